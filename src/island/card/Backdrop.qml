import QtQuick
import Vaxo.Island

// The chosen backdrop image behind the card's upper part, at the chosen depth, fading into the island's
// black so that the card's rounded corners stay black.
Item {
    id: backdrop

    required property IslandLook look

    visible: look.backdrop.length > 0

    Image {
        anchors.fill: parent
        source: backdrop.look.backdrop
        sourceSize: Qt.size(backdrop.width, backdrop.height)
        fillMode: Image.PreserveAspectCrop
        asynchronous: true
        smooth: true
        opacity: backdrop.look.backdropOpacity
    }

    Rectangle {
        anchors.fill: parent
        gradient: Gradient {
            GradientStop { position: 0.0; color: "transparent" }
            GradientStop { position: 0.55; color: Qt.rgba(0, 0, 0, 0.35) }
            GradientStop { position: 1.0; color: "black" }
        }
    }
}
