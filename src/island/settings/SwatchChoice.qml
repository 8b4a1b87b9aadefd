import QtQuick

// The accent colours as swatches; the chosen one ringed.
Row {
    id: choice

    required property list<string> values
    required property list<string> colors
    required property string current

    signal picked(string value)

    spacing: 6

    Repeater {
        model: choice.values.length

        Item {
            id: swatch
            required property int index
            readonly property bool chosen: choice.values[index] === choice.current

            width: 18
            height: 18

            Rectangle {
                anchors.fill: parent
                radius: width / 2
                color: "transparent"
                border.width: 1.5
                border.color: swatch.chosen ? "white" : "transparent"
            }
            Rectangle {
                anchors.centerIn: parent
                width: 12
                height: 12
                radius: 6
                color: choice.colors[swatch.index]
            }
            HoverHandler {
                cursorShape: Qt.PointingHandCursor
            }
            TapHandler {
                onTapped: choice.picked(choice.values[swatch.index])
            }
        }
    }
}
