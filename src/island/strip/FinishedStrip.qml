import QtQuick
import Vaxo.Island

// A session has just finished: the green check and its label.
Item {
    id: strip

    required property IslandRoot root

    Row {
        anchors.centerIn: parent
        spacing: 7
        width: Math.min(implicitWidth, strip.width - 28)

        Glyph {
            id: check
            anchors.verticalCenter: parent.verticalCenter
            width: 14
            height: 14
            name: "check"
            stroke: 2.6
            color: strip.root.look.done
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, strip.width - 28 - check.width - 7)
            text: strip.root.state.justFinishedAgent
            color: "white"
            font.family: "Inter"
            font.pixelSize: 13
            font.weight: Font.DemiBold
            elide: Text.ElideRight
        }
    }
}
