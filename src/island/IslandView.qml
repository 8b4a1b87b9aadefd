import QtQuick
import QtQuick.Shapes

// The whole panel: transparent, with the island hanging from its top centre.
Item {
    id: root

    required property var islandState
    required property var controller

    // How far the top corners flare out into the top edge, and the bottom corners' radius.
    readonly property real topRadius: 6
    readonly property real bottomRadius: 14

    Shape {
        id: island

        width: root.controller.islandWidth + 2 * root.topRadius
        height: root.controller.islandHeight
        anchors.horizontalCenter: parent.horizontalCenter
        y: 0

        ShapePath {
            id: outline

            readonly property real t: root.topRadius
            readonly property real b: root.bottomRadius
            readonly property real w: island.width
            readonly property real h: island.height

            fillColor: "black"
            strokeWidth: -1
            startX: 0
            startY: 0

            // Top corners flare outward into the top edge; bottom corners are rounded.
            PathQuad { x: outline.t; y: outline.t; controlX: outline.t; controlY: 0 }
            PathLine { x: outline.t; y: outline.h - outline.b }
            PathQuad { x: outline.t + outline.b; y: outline.h; controlX: outline.t; controlY: outline.h }
            PathLine { x: outline.w - outline.t - outline.b; y: outline.h }
            PathQuad { x: outline.w - outline.t; y: outline.h - outline.b; controlX: outline.w - outline.t; controlY: outline.h }
            PathLine { x: outline.w - outline.t; y: outline.t }
            PathQuad { x: outline.w; y: 0; controlX: outline.w - outline.t; controlY: 0 }
        }
    }

    // The strip that the collapsed island shows; it stays at the top when the card opens.
    readonly property real stripHeight: 38

    Text {
        anchors.horizontalCenter: island.horizontalCenter
        y: (root.stripHeight - height) / 2
        visible: root.islandState.modeKind === "agents"
        text: root.islandState.agentsLabel
        color: "white"
        font.pixelSize: 13
        font.weight: Font.DemiBold
    }

    Text {
        anchors.horizontalCenter: island.horizontalCenter
        y: (Math.min(root.stripHeight, island.height) - height) / 2
        visible: root.islandState.modeKind === "finished"
        text: "\u2713 " + root.islandState.justFinishedAgent
        color: "#7ee787"
        font.pixelSize: 13
        font.weight: Font.DemiBold
        elide: Text.ElideRight
        width: Math.min(implicitWidth, island.width - 40)
        horizontalAlignment: Text.AlignHCenter
    }
}
