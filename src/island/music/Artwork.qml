import QtQuick
import Vaxo.Island

// The track's artwork, or a quiet note where there is none.
Rectangle {
    id: art

    required property url source

    radius: width * 0.14
    color: Qt.rgba(1, 1, 1, 0.07)
    clip: true

    Glyph {
        visible: image.status !== Image.Ready
        anchors.centerIn: parent
        width: art.width * 0.38
        height: width
        name: "note"
        stroke: 1.5
        color: Qt.rgba(1, 1, 1, 0.35)
    }
    Image {
        id: image
        anchors.fill: parent
        source: art.source
        sourceSize: Qt.size(art.width * 2, art.height * 2)
        fillMode: Image.PreserveAspectCrop
        asynchronous: true
        smooth: true
    }
}
