import QtQuick
import Vaxo.Island

// Nothing running: Vaxo alone, in the middle of the island.
Item {
    id: strip

    required property IslandRoot root

    FaceSlot {
        anchors.centerIn: parent
        width: 18
        height: 18
        root: strip.root
    }
}
