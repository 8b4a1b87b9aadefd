import QtQuick
import Vaxo.Island

// The whole panel: transparent, with the island hanging from its top centre. Closed, the island shows
// its strip; open, it grows into the card. Beside a full-screen window it fades out.
Item {
    id: view

    required property IslandRoot root
    readonly property IslandController controller: root.controller
    readonly property CardMeasures measures: root.measures
    readonly property bool expanded: root.state.expanded
    // With VAXO_NO_ANIM even the island's changes of size happen at once.
    readonly property bool motion: !root.activity.frozen

    opacity: controller.concealed ? 0 : 1
    Behavior on opacity {
        enabled: view.motion
        NumberAnimation { duration: view.controller.fadeDuration; easing.type: Easing.InOutQuad }
    }

    Item {
        id: island
        objectName: "island"

        anchors.horizontalCenter: parent.horizontalCenter
        width: view.controller.islandSize.width
        height: view.controller.islandSize.height

        Behavior on width {
            enabled: view.motion
            NumberAnimation { duration: 280; easing.type: Easing.OutCubic }
        }
        Behavior on height {
            enabled: view.motion
            NumberAnimation { duration: 280; easing.type: Easing.OutCubic }
        }

        NotchOutline {
            x: -topRadius
            width: island.width + 2 * topRadius
            height: island.height
            topRadius: view.expanded ? view.measures.expandedTopRadius : view.measures.collapsedTopRadius
            bottomRadius: view.expanded ? view.measures.expandedBottomRadius : view.measures.collapsedBottomRadius

            Behavior on topRadius {
                enabled: view.motion
                NumberAnimation { duration: 280; easing.type: Easing.OutCubic }
            }
            Behavior on bottomRadius {
                enabled: view.motion
                NumberAnimation { duration: 280; easing.type: Easing.OutCubic }
            }
        }

        Item {
            id: body
            anchors.fill: parent
            clip: true

            Backdrop {
                visible: view.expanded && look.backdrop.length > 0
                width: body.width
                height: view.controller.notchHeight + view.measures.cardTop + 60
                look: view.root.look
            }

            CollapsedStrip {
                width: body.width
                height: body.height
                root: view.root
                opacity: view.expanded ? 0 : 1
                visible: opacity > 0

                Behavior on opacity {
                    enabled: view.motion
                    NumberAnimation { duration: 140 }
                }
            }

            Card {
                // Laid out at the card's full size from the start, and uncovered as the island grows.
                width: view.controller.islandSize.width
                height: view.controller.islandSize.height
                root: view.root
                opacity: view.expanded ? 1 : 0
                visible: opacity > 0

                Behavior on opacity {
                    enabled: view.motion
                    NumberAnimation { duration: 220; easing.type: Easing.InQuad }
                }
            }
        }
    }
}
