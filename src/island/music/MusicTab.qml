import QtQuick
import Vaxo.Island

// What is playing, with the transport buttons.
Item {
    id: tab

    required property IslandRoot root

    Column {
        anchors.centerIn: parent
        spacing: 14

        Rectangle {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 120
            height: 120
            radius: 18
            color: Qt.rgba(1, 1, 1, 0.06)

            Glyph {
                anchors.centerIn: parent
                width: 44
                height: 44
                name: "note"
                stroke: 1.4
                color: Qt.rgba(1, 1, 1, 0.35)
            }
        }

        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            text: tab.root.labels.nothingPlaying
            color: Qt.rgba(1, 1, 1, 0.5)
            font.family: "Inter"
            font.pixelSize: 13
            font.weight: Font.Medium
        }

        Row {
            anchors.horizontalCenter: parent.horizontalCenter
            spacing: 18

            IconButton {
                glyph: "previous"
                stroke: 0
                enabled: false
            }
            IconButton {
                width: 36
                height: 36
                glyph: "play"
                glyphSize: 20
                stroke: 0
                enabled: false
            }
            IconButton {
                glyph: "next"
                stroke: 0
                enabled: false
            }
        }
    }
}
