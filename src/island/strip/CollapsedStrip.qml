import QtQuick
import Vaxo.Island

// What the closed island shows, by the island's mode: Vaxo at rest, the agents at work, a session that
// has just finished, or what is playing.
Item {
    id: strip

    required property IslandRoot root
    readonly property int kind: root.controller.stripKind

    IdleStrip {
        anchors.fill: parent
        root: strip.root
        visible: strip.kind === IslandMode.Idle
    }
    AgentsStrip {
        anchors.fill: parent
        root: strip.root
        visible: strip.kind === IslandMode.Agents
    }
    MusicStrip {
        anchors.fill: parent
        root: strip.root
        visible: strip.kind === IslandMode.Music
    }
    FinishedStrip {
        anchors.fill: parent
        root: strip.root
        visible: strip.kind === IslandMode.Finished
    }
}
