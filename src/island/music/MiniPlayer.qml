import QtQuick
import Vaxo.Island

// What plays, small, under the sessions: the artwork, the track, the buttons, and how far it has played.
Rectangle {
    id: mini

    required property IslandRoot root
    readonly property MusicSection music: root.music

    visible: music.hasTrack
    // The track's row, then the room the card keeps for what plays: the position bar.
    height: 40 + music.allowance
    radius: 12
    color: Qt.rgba(1, 1, 1, 0.06)

    Artwork {
        id: art
        anchors.left: parent.left
        anchors.leftMargin: 10
        anchors.top: parent.top
        anchors.topMargin: 10
        width: 36
        height: 36
        source: mini.music.artwork
    }
    Column {
        anchors.left: art.right
        anchors.leftMargin: 10
        anchors.right: transport.left
        anchors.rightMargin: 8
        anchors.verticalCenter: art.verticalCenter
        spacing: 2

        Text {
            width: parent.width
            text: mini.music.title
            color: "white"
            font.family: "Inter"
            font.pixelSize: 12
            font.weight: Font.DemiBold
            elide: Text.ElideRight
        }
        Text {
            width: parent.width
            text: mini.music.artist
            color: Qt.rgba(1, 1, 1, 0.55)
            font.family: "Inter"
            font.pixelSize: 11
            elide: Text.ElideRight
        }
    }
    Transport {
        id: transport
        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.verticalCenter: art.verticalCenter
        music: mini.music
        size: 24
    }
    ProgressBar {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: 10
        progress: mini.music.progress
        elapsed: mini.music.elapsedText
        duration: mini.music.durationText
        accent: mini.root.look.accent
    }
}
