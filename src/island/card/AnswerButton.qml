import QtQuick
import Vaxo.Island

// A button that answers a permission request: allow is black on green, deny white on a faint white.
Item {
    id: button

    required property string label
    required property bool allow
    required property color green
    // An allow that goes further than this once: green words on a faint green.
    property bool soft: false

    signal clicked

    implicitWidth: Math.max(76, text.implicitWidth + 28)
    implicitHeight: 28

    Rectangle {
        anchors.fill: parent
        radius: 8
        color: button.allow ? Qt.rgba(button.green.r, button.green.g, button.green.b, button.soft ? 0.18 : 0.9)
                            : Qt.rgba(1, 1, 1, 0.14)
    }
    Rectangle {
        anchors.fill: parent
        radius: 8
        color: "white"
        opacity: tap.pressed ? 0.25 : hover.hovered ? 0.1 : 0
    }
    Text {
        id: text
        anchors.centerIn: parent
        width: Math.min(implicitWidth, button.width - 20)
        elide: Text.ElideRight
        text: button.label
        color: button.soft ? button.green : button.allow ? "black" : Qt.rgba(1, 1, 1, 0.9)
        font.family: "Inter"
        font.pixelSize: 12
        font.weight: Font.Black
    }

    HoverHandler {
        id: hover
        cursorShape: Qt.PointingHandCursor
    }
    TapHandler {
        id: tap
        onTapped: button.clicked()
    }
}
