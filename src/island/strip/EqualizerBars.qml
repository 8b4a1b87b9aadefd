import QtQuick
import Vaxo.Island

// Four bars in the accent colour that rise and fall with the music, twelve steps a second while the
// animation gate is open; still otherwise.
Row {
    id: bars

    required property IslandRoot root
    property int step: 0

    spacing: 2
    height: 14

    Timer {
        interval: 83
        repeat: true
        running: bars.visible && bars.root.music.playing && bars.root.activity.islandAnimating
        onTriggered: bars.step = (bars.step + 1) % 24
    }

    Repeater {
        model: 4
        Rectangle {
            required property int index
            readonly property real level: 0.35 + 0.65 * Math.abs(Math.sin((bars.step + index * 5) * Math.PI / 12))
            anchors.bottom: parent.bottom
            width: 3
            height: bars.height * level
            radius: 1.5
            color: bars.root.look.accent
        }
    }
}
