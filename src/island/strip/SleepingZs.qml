import QtQuick
import Vaxo.Island

// Vaxo sleeps: small z's that drift up and fade, twelve steps a second while the animation gate is
// open; resting in place otherwise.
Item {
    id: zs

    required property IslandRoot root
    property int step: 0

    implicitWidth: 22
    implicitHeight: 18

    Timer {
        interval: 83
        repeat: true
        running: zs.visible && zs.root.activity.islandAnimating
        onTriggered: zs.step = (zs.step + 1) % 36
    }

    Repeater {
        model: 3
        Glyph {
            required property int index
            // Each z is a third of the way behind the one before it.
            readonly property real rise: ((zs.step + index * 12) % 36) / 36
            name: "z"
            stroke: 3
            color: zs.root.look.moodColor
            width: 6 + index * 2
            height: width
            x: index * 7
            y: zs.height - height - rise * 6
            opacity: 1 - rise * 0.7
        }
    }
}
