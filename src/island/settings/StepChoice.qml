import QtQuick
import Vaxo.Island

// One choice among many, stepped through with the arrows on either side of its name.
Row {
    id: choice

    required property list<string> values
    required property list<string> labels
    required property string current
    property bool enabled: true

    signal picked(string value)

    readonly property int at: Math.max(0, values.indexOf(current))

    spacing: 2
    opacity: enabled ? 1 : 0.4

    IconButton {
        width: 22
        height: 22
        glyph: "back"
        glyphSize: 12
        stroke: 2.4
        enabled: choice.enabled
        onClicked: choice.picked(choice.values[(choice.at + choice.values.length - 1) % choice.values.length])
    }
    Text {
        anchors.verticalCenter: parent.verticalCenter
        width: 96
        horizontalAlignment: Text.AlignHCenter
        text: choice.labels[choice.at] ?? ""
        color: "white"
        elide: Text.ElideRight
        font.family: "Inter"
        font.pixelSize: 12
        font.weight: Font.Medium
    }
    IconButton {
        width: 22
        height: 22
        glyph: "back"
        glyphSize: 12
        stroke: 2.4
        rotation: 180
        enabled: choice.enabled
        onClicked: choice.picked(choice.values[(choice.at + 1) % choice.values.length])
    }
}
