import QtQuick

// A small button with words on it, lit under the pointer.
Rectangle {
    id: button

    required property string label

    signal clicked

    width: text.implicitWidth + 18
    height: 22
    radius: 11
    color: tap.pressed ? Qt.rgba(1, 1, 1, 0.2) : hover.hovered ? Qt.rgba(1, 1, 1, 0.13) : Qt.rgba(1, 1, 1, 0.07)

    Text {
        id: text
        anchors.centerIn: parent
        text: button.label
        color: Qt.rgba(1, 1, 1, hover.hovered ? 0.95 : 0.75)
        font.family: "Inter"
        font.pixelSize: 11
        font.weight: Font.Medium
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
