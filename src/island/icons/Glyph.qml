import QtQuick
import QtQuick.Window

// One of our icons by name, drawn at its size on screen, crisp at any scale.
Image {
    id: glyph

    required property string name
    property color color: "white"
    // 0 fills the outline; otherwise the outline is stroked this wide, in a 24-point box's units.
    property real stroke: 0

    width: 16
    height: 16
    sourceSize: Qt.size(Math.ceil(width * Screen.devicePixelRatio), Math.ceil(height * Screen.devicePixelRatio))
    source: "image://glyph/" + name + "/" + String(color).slice(1) + "/" + stroke
    smooth: true
    cache: true
}
