import QtQuick
import Vaxo.Island

// The working agent's icon in the accent colour: an arc that turns, or in the calm variant a dot that
// breathes. It moves only while the animation gate is open, at most thirty frames a second (twelve for
// the calm dot), and stands still otherwise.
Item {
    id: mark

    required property IslandRoot root
    readonly property bool calm: root.settings.calm
    readonly property color tint: root.look.accent
    property real phase: 0 // 0..1 through one turn or one breath

    implicitWidth: 12
    implicitHeight: 12

    Timer {
        interval: mark.calm ? 83 : 33
        repeat: true
        running: mark.visible && mark.root.activity.islandAnimating
        onTriggered: mark.phase = (mark.phase + interval / (mark.calm ? 2400 : 1000)) % 1
    }

    Glyph {
        visible: !mark.calm
        anchors.fill: parent
        name: "arc"
        stroke: 3.2
        color: mark.tint
        rotation: mark.phase * 360
    }

    Rectangle {
        visible: mark.calm
        anchors.centerIn: parent
        width: mark.width * 0.62
        height: width
        radius: width / 2
        color: mark.tint
        opacity: 0.55 + 0.45 * Math.sin(mark.phase * Math.PI)
    }
}
