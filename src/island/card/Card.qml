import QtQuick
import Vaxo.Island

// The open island: the tabs and the gear along the top, Vaxo and the waiting question below them, then
// the chosen tab; or, behind the gear, the settings.
Item {
    id: card

    required property IslandRoot root
    readonly property IslandLook look: root.look
    readonly property bool settingsOpen: root.state.showSettings

    // The music's position moves only while somebody can see it.
    Binding {
        target: card.root.music
        property: "shown"
        value: card.visible && !card.settingsOpen && card.look.tab !== IslandLook.Clipboard
    }

    // What the open agents tab or the settings need in all, told to the controller, which may grow the
    // island for it (within bounds) and sizes the click area to match.
    readonly property real naturalHeight: header.height + root.measures.cardBottom
                                          + (settingsOpen ? settings.implicitHeight : top.height + agents.naturalHeight)
    readonly property bool measured: root.state.expanded && (settingsOpen || agents.visible)
    onNaturalHeightChanged: if (measured) root.controller.reportMeasuredSize(width, naturalHeight)
    onMeasuredChanged: if (measured) root.controller.reportMeasuredSize(width, naturalHeight)

    CardHeader {
        id: header
        width: card.width
        height: card.root.controller.notchHeight
        root: card.root
    }

    TopArea {
        id: top
        visible: !card.settingsOpen
        anchors.top: header.bottom
        width: card.width
        height: card.root.measures.cardTop
        root: card.root
    }

    Item {
        id: body
        visible: !card.settingsOpen
        anchors.top: top.bottom
        anchors.bottom: parent.bottom
        anchors.bottomMargin: card.root.measures.cardBottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: 18
        anchors.rightMargin: 18

        AgentsTab {
            id: agents
            visible: card.look.tab === IslandLook.Agents
            width: body.width
            available: body.height
            root: card.root
        }
        MusicTab {
            visible: card.look.tab === IslandLook.Music
            anchors.fill: parent
            root: card.root
        }
        ClipboardSection {
            visible: card.look.tab === IslandLook.Clipboard
            width: body.width
            listHeight: body.height - 30
            root: card.root
        }
    }

    SettingsView {
        id: settings
        visible: card.settingsOpen
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        anchors.bottomMargin: card.root.measures.cardBottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: 18
        anchors.rightMargin: 18
        root: card.root
    }
}
