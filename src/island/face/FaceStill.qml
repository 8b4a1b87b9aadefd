import QtQuick
import QtQuick.Window
import Vaxo.Island

// A still clip: its frames in turn at the artwork's frame rate, round and round or back and forth,
// filling the square; only while animating, else the frame it stopped on.
Image {
    id: still

    required property MoodArt art
    property bool animating: false
    property int step: 0
    readonly property int index: art.frameIndex(step, art.frames.length, art.pingPong)

    source: art.frames.length > 0 ? art.frames[Math.min(index, art.frames.length - 1)] : ""
    sourceSize: Qt.size(Math.ceil(width * Screen.devicePixelRatio), Math.ceil(height * Screen.devicePixelRatio))
    fillMode: Image.PreserveAspectCrop
    smooth: true
    cache: true

    Timer {
        interval: still.art.frameInterval
        repeat: true
        running: still.animating && still.art.frames.length > 1
        onTriggered: still.step += 1
    }
}
