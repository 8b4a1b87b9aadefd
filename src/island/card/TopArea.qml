import QtQuick
import Vaxo.Island

// The card's upper area: Vaxo, and beside her the sentence about the agents or, while a session waits,
// its question and the answer buttons.
Item {
    id: area

    required property IslandRoot root
    readonly property SessionsSection section: root.sessions

    FaceSlot {
        id: face
        anchors.left: parent.left
        anchors.leftMargin: 26
        anchors.verticalCenter: parent.verticalCenter
        width: 92
        height: 92
        root: area.root
        alwaysFace: true
    }

    Column {
        visible: !area.section.waiting
        anchors.left: face.right
        anchors.leftMargin: 24
        anchors.right: parent.right
        anchors.rightMargin: 24
        anchors.verticalCenter: parent.verticalCenter
        spacing: 6

        Text {
            width: parent.width
            text: area.section.headline
            color: "white"
            font.family: "Inter"
            font.pixelSize: 19
            font.weight: Font.DemiBold
            wrapMode: Text.Wrap
            maximumLineCount: 2
            elide: Text.ElideRight
        }
        Text {
            width: parent.width
            visible: !area.section.empty
            text: area.root.state.agentsLabel
            color: Qt.rgba(1, 1, 1, 0.5)
            font.family: "Inter"
            font.pixelSize: 12
        }
    }

    WaitingPanel {
        visible: area.section.waiting
        anchors.left: face.right
        anchors.leftMargin: 24
        anchors.right: parent.right
        anchors.rightMargin: 22
        anchors.verticalCenter: parent.verticalCenter
        root: area.root
    }
}
