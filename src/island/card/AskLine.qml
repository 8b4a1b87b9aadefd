import QtQuick
import Vaxo.Island

// What the agent asks to do: the tool in a small pill and its target (a command, a path, an address)
// elided in the middle; the whole target shows under the pointer.
Item {
    id: ask

    required property string tool
    required property string target

    implicitHeight: 22
    visible: tool.length > 0 || target.length > 0

    Rectangle {
        id: pill
        visible: ask.tool.length > 0
        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        width: toolText.implicitWidth + 12
        height: 20
        radius: 5
        color: Qt.rgba(1, 1, 1, 0.12)

        Text {
            id: toolText
            anchors.centerIn: parent
            text: ask.tool
            color: "white"
            font.family: "Inter"
            font.pixelSize: 11
            font.weight: Font.Bold
        }
    }

    Text {
        id: targetText
        anchors.left: pill.visible ? pill.right : parent.left
        anchors.leftMargin: pill.visible ? 8 : 0
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        text: ask.target
        color: Qt.rgba(1, 1, 1, 0.85)
        font.family: "JetBrains Mono"
        font.pixelSize: 12
        elide: Text.ElideMiddle

        HoverHandler {
            id: hover
        }
    }

    // The whole target, above everything else in the card, while the pointer rests on it.
    Rectangle {
        visible: hover.hovered && targetText.truncated
        z: 10
        x: targetText.x - 8
        y: ask.height + 4
        width: ask.width - x + 8
        height: whole.implicitHeight + 14
        radius: 8
        color: "#1c1c1e"
        border.color: Qt.rgba(1, 1, 1, 0.12)

        Text {
            id: whole
            anchors.fill: parent
            anchors.margins: 7
            text: ask.target
            color: "white"
            wrapMode: Text.WrapAnywhere
            font.family: "JetBrains Mono"
            font.pixelSize: 12
        }
    }
}
