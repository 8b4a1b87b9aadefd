import QtQuick

// A count of sessions in a small pill of its colour; nothing when there are none.
Rectangle {
    id: badge

    required property int count
    required property color tint

    visible: count > 0
    width: Math.max(height, label.implicitWidth + 12)
    height: 18
    radius: height / 2
    color: Qt.rgba(tint.r, tint.g, tint.b, 0.22)

    Text {
        id: label
        anchors.centerIn: parent
        text: badge.count
        color: badge.tint
        font.family: "Inter"
        font.pixelSize: 11
        font.weight: Font.Bold
    }
}
