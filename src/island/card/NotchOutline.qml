import QtQuick
import QtQuick.Shapes

// The island's outline: a black body whose top corners flare outward into the screen's top edge and
// whose bottom corners are rounded. The shape is 2 × topRadius wider than the body it encloses.
Shape {
    id: outline

    property real topRadius: 6
    property real bottomRadius: 14

    antialiasing: true

    ShapePath {
        id: path

        readonly property real t: outline.topRadius
        readonly property real b: outline.bottomRadius
        readonly property real w: outline.width
        readonly property real h: outline.height

        fillColor: "black"
        strokeWidth: -1
        startX: 0
        startY: 0

        PathQuad { x: path.t; y: path.t; controlX: path.t; controlY: 0 }
        PathLine { x: path.t; y: path.h - path.b }
        PathQuad { x: path.t + path.b; y: path.h; controlX: path.t; controlY: path.h }
        PathLine { x: path.w - path.t - path.b; y: path.h }
        PathQuad { x: path.w - path.t; y: path.h - path.b; controlX: path.w - path.t; controlY: path.h }
        PathLine { x: path.w - path.t; y: path.t }
        PathQuad { x: path.w; y: 0; controlX: path.w - path.t; controlY: 0 }
    }
}
