import QtQuick
import Vaxo.Island

// A round button that shows one of our icons and brightens under the pointer.
Item {
    id: button

    required property string glyph
    property real stroke: 1.8
    property real glyphSize: 16
    property color color: "white"
    property bool enabled: true

    signal clicked

    implicitWidth: 28
    implicitHeight: 28
    opacity: enabled ? 1 : 0.35

    Rectangle {
        anchors.fill: parent
        radius: width / 2
        color: "white"
        opacity: hover.hovered && button.enabled ? 0.12 : 0
    }

    Glyph {
        anchors.centerIn: parent
        width: button.glyphSize
        height: button.glyphSize
        name: button.glyph
        stroke: button.stroke
        color: button.color
        opacity: hover.hovered ? 1 : 0.8
    }

    HoverHandler {
        id: hover
        cursorShape: button.enabled ? Qt.PointingHandCursor : Qt.ArrowCursor
    }
    TapHandler {
        enabled: button.enabled
        onTapped: button.clicked()
    }
}
