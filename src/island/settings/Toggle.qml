import QtQuick

// An on/off switch in the accent colour.
Item {
    id: toggle

    required property bool on
    required property color accent

    signal toggled(bool on)

    implicitWidth: 34
    implicitHeight: 20

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: toggle.on ? toggle.accent : Qt.rgba(1, 1, 1, 0.18)
    }
    Rectangle {
        width: toggle.height - 4
        height: width
        radius: width / 2
        y: 2
        x: toggle.on ? toggle.width - width - 2 : 2
        color: "white"
    }
    HoverHandler {
        cursorShape: Qt.PointingHandCursor
    }
    TapHandler {
        onTapped: toggle.toggled(!toggle.on)
    }
}
