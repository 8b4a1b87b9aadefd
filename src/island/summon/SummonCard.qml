import QtQuick
import Vaxo.Island

// Vaxo on her own: her face in her mood over one line about the agents, on a dark rounded card. A
// click anywhere puts her away.
Item {
    id: card

    required property IslandRoot root
    required property SummonPanel summon

    Rectangle {
        id: plate
        anchors.fill: parent
        radius: 30
        color: "#0c0c0f"
        border.color: Qt.rgba(1, 1, 1, 0.09)
        border.width: 1
    }

    // A soft light of her mood's colour behind her.
    Rectangle {
        anchors.horizontalCenter: parent.horizontalCenter
        y: face.y + face.height * 0.1
        width: face.width * 0.9
        height: width
        radius: width / 2
        color: card.root.look.moodColor
        opacity: 0.10
    }

    FaceSlot {
        id: face
        root: card.root
        alwaysFace: true
        anchors.horizontalCenter: parent.horizontalCenter
        y: 30
        width: 150
        height: 150
    }

    Text {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: face.bottom
        anchors.bottom: parent.bottom
        anchors.leftMargin: 22
        anchors.rightMargin: 22
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.WordWrap
        maximumLineCount: 2
        elide: Text.ElideRight
        text: card.summon.view.line
        color: "white"
        opacity: 0.72
        font.family: "Inter"
        font.pixelSize: 14
        font.weight: Font.Medium
    }

    TapHandler {
        onTapped: card.summon.hide()
    }
}
