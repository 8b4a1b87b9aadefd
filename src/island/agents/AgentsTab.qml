import QtQuick
import Vaxo.Island

// The card's first tab: the sessions, and under them what plays and the newest clips. The clips take
// the rows the settings ask for as far as the card has room; naturalHeight says what all of them need.
Column {
    id: tab

    required property IslandRoot root
    required property real available

    readonly property real rowsHeight: root.settings.clipRows * root.measures.clipRow
    readonly property real naturalHeight: clips.y + clips.headerHeight + rowsHeight

    spacing: 18

    SessionsView {
        width: tab.width
        root: tab.root
    }

    MiniPlayer {
        width: tab.width
        root: tab.root
    }

    ClipboardSection {
        id: clips
        width: tab.width
        root: tab.root
        listHeight: Math.max(0, Math.min(tab.rowsHeight, tab.available - y - headerHeight))
    }
}
