import QtQuick
import QtQuick.Window
import Vaxo.Island

// The track's artwork with rounded corners, or a quiet note where there is none.
Rectangle {
    id: art

    required property url source

    radius: width * 0.14
    color: image.status === Image.Ready ? "transparent" : Qt.rgba(1, 1, 1, 0.07)

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
        source: art.source.toString().length > 0 ? "image://artwork/14/" + encodeURIComponent(art.source) : ""
        sourceSize: Qt.size(Math.ceil(art.width * Screen.devicePixelRatio), Math.ceil(art.height * Screen.devicePixelRatio))
        fillMode: Image.PreserveAspectCrop
        asynchronous: true
        smooth: true
    }
}
