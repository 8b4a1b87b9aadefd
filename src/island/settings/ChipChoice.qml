import QtQuick

// A few choices side by side; the chosen one lit in the accent colour.
Row {
    id: choice

    required property list<string> values
    required property list<string> labels
    required property string current
    required property color accent

    signal picked(string value)

    spacing: 3

    Repeater {
        model: choice.values.length

        Rectangle {
            id: chip
            required property int index
            readonly property bool chosen: choice.values[index] === choice.current

            width: text.implicitWidth + 16
            height: 22
            radius: 11
            color: chosen ? Qt.rgba(choice.accent.r, choice.accent.g, choice.accent.b, 0.3)
                          : hover.hovered ? Qt.rgba(1, 1, 1, 0.12) : Qt.rgba(1, 1, 1, 0.06)

            Text {
                id: text
                anchors.centerIn: parent
                text: choice.labels[chip.index]
                color: chip.chosen ? "white" : Qt.rgba(1, 1, 1, 0.65)
                font.family: "Inter"
                font.pixelSize: 11
                font.weight: chip.chosen ? Font.DemiBold : Font.Normal
            }
            HoverHandler {
                id: hover
                cursorShape: Qt.PointingHandCursor
            }
            TapHandler {
                onTapped: choice.picked(choice.values[chip.index])
            }
        }
    }
}
