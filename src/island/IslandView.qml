import QtQuick
import Vaxo.Island

Item {
    id: view
    required property IslandRoot root
    Rectangle {
        anchors.horizontalCenter: parent.horizontalCenter
        width: view.root.controller.islandSize.width
        height: view.root.controller.islandSize.height
        color: "black"
    }
}
