import QtQuick

// A row of the settings card: its name on the left, its control on the right.
Item {
    id: row

    required property string label
    required property real rowHeight
    default property alias control: holder.data

    width: parent ? parent.width : 0
    height: rowHeight

    Text {
        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        text: row.label
        color: Qt.rgba(1, 1, 1, 0.7)
        font.family: "Inter"
        font.pixelSize: 12
        font.weight: Font.Medium
    }

    Item {
        id: holder
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        width: childrenRect.width
        height: childrenRect.height
    }
}
