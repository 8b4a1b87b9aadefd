import QtQuick
import Vaxo.Island

// Something plays and no agent needs the island: the artwork, the track, and bars that dance while the
// animation gate is open.
Item {
    id: strip

    required property IslandRoot root
    readonly property MusicSection music: root.music

    Artwork {
        id: art
        anchors.left: parent.left
        anchors.leftMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        width: 22
        height: 22
        source: strip.music.artwork
    }
    Text {
        anchors.left: art.right
        anchors.leftMargin: 9
        anchors.right: bars.left
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        text: strip.music.stripText
        color: "white"
        font.family: "Inter"
        font.pixelSize: 12
        font.weight: Font.DemiBold
        elide: Text.ElideRight
    }
    EqualizerBars {
        id: bars
        anchors.right: parent.right
        anchors.rightMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        root: strip.root
    }
}
