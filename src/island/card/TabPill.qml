import QtQuick
import Vaxo.Island

// One tab of the card: its icon and name, lit in the accent colour while chosen.
Item {
    id: pill

    required property string glyph
    required property string label
    required property bool chosen
    required property color accent

    signal picked

    implicitWidth: row.implicitWidth + 20
    implicitHeight: 24

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: pill.chosen ? Qt.rgba(pill.accent.r, pill.accent.g, pill.accent.b, 0.24)
                           : hover.hovered ? Qt.rgba(1, 1, 1, 0.08) : "transparent"
    }

    Row {
        id: row
        anchors.centerIn: parent
        spacing: 5

        Glyph {
            anchors.verticalCenter: parent.verticalCenter
            width: 13
            height: 13
            name: pill.glyph
            stroke: 2
            color: pill.chosen ? pill.accent : Qt.rgba(1, 1, 1, 0.6)
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: pill.label
            color: pill.chosen ? "white" : Qt.rgba(1, 1, 1, 0.6)
            font.family: "Inter"
            font.pixelSize: 12
            font.weight: pill.chosen ? Font.DemiBold : Font.Medium
        }
    }

    HoverHandler {
        id: hover
        cursorShape: Qt.PointingHandCursor
    }
    TapHandler {
        onTapped: pill.picked()
    }
}
