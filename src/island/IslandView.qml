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
            fillColor: "black"
            strokeWidth: -1
            readonly property real t: root.topRadius
            readonly property real b: root.bottomRadius
            readonly property real w: island.width
            readonly property real h: island.height

            startX: 0; startY: 0
            PathQuad { x: t; y: t; controlX: t; controlY: 0 }
            PathLine { x: t; y: h - b }
            PathQuad { x: t + b; y: h; controlX: t; controlY: h }
            PathLine { x: w - t - b; y: h }
            PathQuad { x: w - t; y: h - b; controlX: w - t; controlY: h }
            PathLine { x: w - t; y: t }
            PathQuad { x: w; y: 0; controlX: w - t; controlY: 0 }
        }
    }

    Text {
        anchors.centerIn: island
        visible: root.islandState.modeKind === "agents"
        text: root.islandState.agentsLabel
        color: "white"
        font.pixelSize: 13
        font.weight: Font.DemiBold
    }

    Text {
        anchors.centerIn: island
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
