import QtQuick
import Vaxo.Island

// The card's first tab: the sessions, and under them what plays and the newest clips.
Column {
    id: tab

    required property IslandRoot root

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
        width: tab.width
        root: tab.root
        listHeight: tab.root.settings.clipRows * tab.root.measures.clipRow
    }
}
