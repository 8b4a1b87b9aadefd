import QtQuick
import QtQuick.Window
import Vaxo.Island

// A video clip: its poster until the first frame of the video shows, then the muted video, playing
// only while animating and holding its frame otherwise.
Item {
    id: view

    required property MoodArt art
    property bool animating: false

    Image {
        anchors.fill: parent
        visible: !video.hasFrame
        source: view.art.frames.length > 0 ? view.art.frames[0] : ""
        sourceSize: Qt.size(Math.ceil(width * Screen.devicePixelRatio), Math.ceil(height * Screen.devicePixelRatio))
        fillMode: Image.PreserveAspectCrop
        smooth: true
    }

    FaceVideo {
        id: video
        anchors.fill: parent
        source: view.visible ? view.art.video : ""
        loops: view.art.loops
        playing: view.animating
    }
}
