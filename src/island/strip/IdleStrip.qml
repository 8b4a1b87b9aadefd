import QtQuick
import Vaxo.Island

// Nothing running: Vaxo alone, in the middle of the island, with z's beside her while she sleeps.
Item {
    id: strip

    required property IslandRoot root

    FaceSlot {
        id: face
        anchors.centerIn: parent
        width: 18
        height: 18
        root: strip.root
    }

    SleepingZs {
        visible: strip.root.state.mood === Mood.Sleeping && strip.root.look.restIcon !== IslandLook.None
        anchors.left: face.right
        anchors.leftMargin: 6
        anchors.bottom: face.verticalCenter
        root: strip.root
    }
}
