import QtQuick
import Vaxo.Island

// What a clip holds, as an icon on a small tile: text, a link, code, a colour, an image, files; a lock
// for a secret.
Rectangle {
    id: tile

    required property int kind
    required property bool secret
    required property color accent

    readonly property list<string> names: ["text", "link", "code", "drop", "image", "file"]

    implicitWidth: 26
    implicitHeight: 26
    radius: 7
    color: Qt.rgba(1, 1, 1, 0.08)

    Glyph {
        anchors.centerIn: parent
        width: 15
        height: 15
        name: tile.secret ? "lock" : tile.names[tile.kind]
        stroke: 1.9
        color: tile.secret ? "#ffd60a" : tile.kind === ClipKind.Link ? tile.accent : Qt.rgba(1, 1, 1, 0.8)
    }
}
