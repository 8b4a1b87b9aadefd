import QtQuick
import Vaxo.Island

// Three dots in the accent colour with a brightness that travels along them, twelve steps a second
// while the animation gate is open; still otherwise.
Row {
    id: dots

    required property IslandRoot root
    property int step: 0

    spacing: 3

    Timer {
        interval: 83
        repeat: true
        running: dots.visible && dots.root.activity.islandAnimating
        onTriggered: dots.step = (dots.step + 1) % 12
    }

    Repeater {
        model: 3
        Rectangle {
            required property int index
            readonly property real wave: Math.max(0, Math.cos((dots.step / 12 - index / 6) * 2 * Math.PI))
            width: 4
            height: 4
            radius: 2
            anchors.verticalCenter: parent.verticalCenter
            color: dots.root.look.accent
            opacity: 0.35 + 0.65 * wave
        }
    }
}
