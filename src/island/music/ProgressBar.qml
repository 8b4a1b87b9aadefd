import QtQuick

// How far the track has played, with the time played and the track's length on either side.
Item {
    id: bar

    required property real progress
    required property string elapsed
    required property string duration
    required property color accent

    implicitHeight: 16

    Text {
        id: left
        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        width: 34
        text: bar.elapsed
        color: Qt.rgba(1, 1, 1, 0.5)
        font.family: "Inter"
        font.pixelSize: 10
    }
    Rectangle {
        id: track
        anchors.left: left.right
        anchors.right: right.left
        anchors.verticalCenter: parent.verticalCenter
        height: 4
        radius: 2
        color: Qt.rgba(1, 1, 1, 0.14)

        Rectangle {
            width: parent.width * Math.max(0, Math.min(1, bar.progress))
            height: parent.height
            radius: 2
            color: bar.accent
        }
    }
    Text {
        id: right
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        width: 34
        horizontalAlignment: Text.AlignRight
        text: bar.duration
        color: Qt.rgba(1, 1, 1, 0.5)
        font.family: "Inter"
        font.pixelSize: 10
    }
}
