import QtQuick
import QtQuick.Shapes
import Vaxo.Island

// Vaxo on her own: her face in her mood over one line about the agents, on a dark rounded card. A
// click anywhere puts her away.
Item {
    id: card

    required property IslandRoot root
    required property SummonPanel summon

    Rectangle {
        id: plate
        anchors.fill: parent
        radius: 30
        color: "#0c0c0f"
        border.color: Qt.rgba(1, 1, 1, 0.09)
        border.width: 1
    }

    // A soft light of her mood's colour behind her.
    Shape {
        id: glow
        readonly property real radius: face.width * 0.72
        readonly property color tint: card.root.look.moodColor
        x: face.x + face.width / 2 - radius
        y: face.y + face.height / 2 - radius
        width: radius * 2
        height: radius * 2
        ShapePath {
            strokeWidth: -1
            fillGradient: RadialGradient {
                centerX: glow.radius
                centerY: glow.radius
                centerRadius: glow.radius
                focalX: glow.radius
                focalY: glow.radius
                GradientStop { position: 0; color: Qt.rgba(glow.tint.r, glow.tint.g, glow.tint.b, 0.3) }
                GradientStop { position: 1; color: "transparent" }
            }
            PathAngleArc {
                centerX: glow.radius
                centerY: glow.radius
                radiusX: glow.radius
                radiusY: glow.radius
                sweepAngle: 360
            }
        }
    }

    FaceSlot {
        id: face
        root: card.root
        alwaysFace: true
        anchors.horizontalCenter: parent.horizontalCenter
        y: 30
        width: 150
        height: 150
    }

    Text {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: face.bottom
        anchors.bottom: parent.bottom
        anchors.leftMargin: 22
        anchors.rightMargin: 22
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.WordWrap
        maximumLineCount: 2
        elide: Text.ElideRight
        text: card.summon.view.line
        color: "white"
        opacity: 0.72
        font.family: "Inter"
        font.pixelSize: 14
        font.weight: Font.Medium
    }

    TapHandler {
        onTapped: card.summon.hide()
    }
}
