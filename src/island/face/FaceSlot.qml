import QtQuick
import QtQuick.Window
import Vaxo.Island

// Where Vaxo shows her mood, at any size: the user's artwork for the mood when the "Face" folder has
// some (stills or a video), else her drawn face. The "Icon" setting can make her a dot or nothing. She
// moves only while the animation gate is open and she is on screen.
Item {
    id: slot

    required property IslandRoot root
    // She is drawn whatever the setting says where she is the point (the card, the summon panel).
    property bool alwaysFace: false

    readonly property MoodArt art: root.face
    readonly property int icon: alwaysFace ? IslandLook.Face : root.look.restIcon
    readonly property bool animating: visible && Window.visibility !== Window.Hidden && root.activity.islandAnimating

    implicitWidth: 20
    implicitHeight: 20

    Item {
        id: face
        visible: slot.icon === IslandLook.Face
        anchors.centerIn: parent
        width: Math.min(slot.width, slot.height)
        height: width

        DrawnFace {
            anchors.fill: parent
            visible: slot.art.kind === MoodArt.Drawn
            mood: slot.root.state.mood
            color: slot.root.look.moodColor
            calm: slot.root.settings.calm
            animating: visible && slot.animating
        }

        FaceStill {
            objectName: "faceStill"
            anchors.fill: parent
            visible: slot.art.kind === MoodArt.Still
            art: slot.art
            animating: visible && slot.animating
        }

        FaceVideoView {
            anchors.fill: parent
            visible: slot.art.kind === MoodArt.Video
            art: slot.art
            animating: visible && slot.animating
        }
    }

    Rectangle {
        visible: slot.icon === IslandLook.Dot
        anchors.centerIn: parent
        width: Math.min(slot.width, slot.height) * 0.4
        height: width
        radius: width / 2
        color: slot.root.look.moodColor
    }
}
