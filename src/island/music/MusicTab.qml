import QtQuick
import Vaxo.Island

// The music tab: the artwork large, the track, how far it has played, and the transport buttons; a calm
// word when nothing plays.
Item {
    id: tab

    required property IslandRoot root
    readonly property MusicSection music: root.music

    Column {
        anchors.centerIn: parent
        width: Math.min(parent.width, 300)
        spacing: 10

        Artwork {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 200
            height: 200
            source: tab.music.artwork
        }
        Item {
            width: 1
            height: 6
        }
        Text {
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: tab.music.hasTrack ? tab.music.title
                                     : tab.root.settings.music ? tab.music.emptyText : tab.root.labels.musicOff
            color: tab.music.hasTrack ? "white" : Qt.rgba(1, 1, 1, 0.5)
            font.family: "Inter"
            font.pixelSize: 17
            font.weight: Font.DemiBold
            elide: Text.ElideRight
        }
        Text {
            width: parent.width
            visible: tab.music.hasTrack
            horizontalAlignment: Text.AlignHCenter
            text: tab.music.artist
            color: Qt.rgba(1, 1, 1, 0.6)
            font.family: "Inter"
            font.pixelSize: 13
            elide: Text.ElideRight
        }
        ProgressBar {
            visible: tab.music.hasTrack
            width: parent.width
            progress: tab.music.progress
            elapsed: tab.music.elapsedText
            duration: tab.music.durationText
            accent: tab.root.look.accent
        }
        Transport {
            anchors.horizontalCenter: parent.horizontalCenter
            music: tab.music
            size: 30
        }
        Text {
            width: parent.width
            visible: tab.music.hasTrack
            horizontalAlignment: Text.AlignHCenter
            text: tab.music.source
            color: Qt.rgba(1, 1, 1, 0.35)
            font.family: "Inter"
            font.pixelSize: 10
            font.weight: Font.DemiBold
            font.capitalization: Font.AllUppercase
            font.letterSpacing: 0.8
        }
    }
}
