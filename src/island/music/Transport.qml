import QtQuick
import Vaxo.Island

// Previous, play or pause, next: sent to the player that plays. Dimmed while there is nothing to control.
Row {
    id: transport

    required property MusicSection music
    property real size: 28

    readonly property bool usable: music.hasTrack && music.canControl

    spacing: size * 0.5

    IconButton {
        anchors.verticalCenter: parent.verticalCenter
        width: transport.size
        height: transport.size
        glyph: "previous"
        glyphSize: transport.size * 0.55
        stroke: 0
        enabled: transport.usable
        onClicked: transport.music.previous()
    }
    IconButton {
        anchors.verticalCenter: parent.verticalCenter
        width: transport.size * 1.3
        height: transport.size * 1.3
        glyph: transport.music.playing ? "pause" : "play"
        glyphSize: transport.size * 0.75
        stroke: 0
        enabled: transport.usable
        onClicked: transport.music.playPause()
    }
    IconButton {
        anchors.verticalCenter: parent.verticalCenter
        width: transport.size
        height: transport.size
        glyph: "next"
        glyphSize: transport.size * 0.55
        stroke: 0
        enabled: transport.usable
        onClicked: transport.music.next()
    }
}
