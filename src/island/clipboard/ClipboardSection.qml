import QtQuick
import Vaxo.Island

// The clipboard history with its heading and "Clear", which removes every clip that is not pinned.
// listHeight sets how much of the list shows; the rest scrolls.
Column {
    id: section

    required property IslandRoot root
    required property real listHeight
    readonly property real headerHeight: heading.height + spacing

    spacing: 6

    Item {
        id: heading
        width: section.width
        height: 24

        Text {
            anchors.left: parent.left
            anchors.leftMargin: 4
            anchors.verticalCenter: parent.verticalCenter
            text: section.root.labels.clipboard
            color: Qt.rgba(1, 1, 1, 0.55)
            font.family: "Inter"
            font.pixelSize: 11
            font.weight: Font.DemiBold
            font.capitalization: Font.AllUppercase
            font.letterSpacing: 0.6
        }

        Rectangle {
            visible: section.root.clipboard.clips.count > 0
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            width: clear.implicitWidth + 18
            height: 22
            radius: 11
            color: "white"
            opacity: clearTap.pressed ? 0.22 : clearHover.hovered ? 0.16 : 0.1

            HoverHandler {
                id: clearHover
                cursorShape: Qt.PointingHandCursor
            }
            TapHandler {
                id: clearTap
                onTapped: section.root.clipboard.clearAll()
            }
        }
        Text {
            id: clear
            visible: section.root.clipboard.clips.count > 0
            anchors.right: parent.right
            anchors.rightMargin: 9
            anchors.verticalCenter: parent.verticalCenter
            text: section.root.labels.clear
            color: "white"
            font.family: "Inter"
            font.pixelSize: 11
            font.weight: Font.DemiBold
        }
    }

    ClipList {
        width: section.width
        height: section.listHeight
        root: section.root
    }
}
