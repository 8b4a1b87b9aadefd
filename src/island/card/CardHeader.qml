import QtQuick
import Vaxo.Island

// The card's top row, under the screen's edge: the tabs and the gear; with the settings open, their
// title and the way back.
Item {
    id: header

    required property IslandRoot root
    readonly property IslandLook look: root.look
    readonly property bool settingsOpen: root.state.showSettings

    Row {
        visible: !header.settingsOpen
        anchors.left: parent.left
        anchors.leftMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2

        TabPill {
            glyph: "prompt"
            label: header.root.labels.agents
            chosen: header.look.tab === IslandLook.Agents
            accent: header.look.accent
            onPicked: header.look.tab = IslandLook.Agents
        }
        TabPill {
            glyph: "note"
            label: header.root.labels.music
            chosen: header.look.tab === IslandLook.Music
            accent: header.look.accent
            onPicked: header.look.tab = IslandLook.Music
        }
        TabPill {
            glyph: "clipboard"
            label: header.root.labels.clipboard
            chosen: header.look.tab === IslandLook.Clipboard
            accent: header.look.accent
            onPicked: header.look.tab = IslandLook.Clipboard
        }
    }

    Row {
        visible: header.settingsOpen
        anchors.left: parent.left
        anchors.leftMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        spacing: 4

        IconButton {
            anchors.verticalCenter: parent.verticalCenter
            glyph: "back"
            stroke: 2.2
            onClicked: header.root.state.showSettings = false
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: header.root.settingsCard.title
            color: "white"
            font.family: "Inter"
            font.pixelSize: 13
            font.weight: Font.DemiBold
        }
    }

    IconButton {
        visible: !header.settingsOpen
        anchors.right: parent.right
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        glyph: "sliders"
        onClicked: {
            header.root.settingsCard.reload()
            header.root.state.showSettings = true
        }
    }
}
