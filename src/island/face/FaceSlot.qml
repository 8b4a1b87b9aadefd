import QtQuick
import Vaxo.Island

// Where Vaxo shows her mood. Until her drawn face arrives, a simple stand-in in the mood's colour: a
// round head with two eyes, closed while she sleeps. The "Icon" setting can make it a dot or nothing.
Item {
    id: slot

    required property IslandRoot root
    // The stand-in is drawn whatever the setting says where the face is the point (the card).
    property bool alwaysFace: false

    readonly property color tint: root.look.moodColor
    readonly property int icon: alwaysFace ? IslandLook.Face : root.look.restIcon
    readonly property bool asleep: root.state.mood === Mood.Sleeping

    implicitWidth: 20
    implicitHeight: 20

    Rectangle {
        id: head
        visible: slot.icon === IslandLook.Face
        anchors.centerIn: parent
        width: Math.min(slot.width, slot.height)
        height: width
        radius: width / 2
        color: slot.tint

        Repeater {
            model: 2
            Rectangle {
                required property int index
                width: head.width * 0.14
                height: slot.asleep ? head.width * 0.05 : head.width * 0.2
                radius: width / 2
                color: "black"
                x: head.width * (index === 0 ? 0.3 : 0.56)
                y: head.height * (slot.asleep ? 0.5 : 0.36)
            }
        }
    }

    Rectangle {
        visible: slot.icon === IslandLook.Dot
        anchors.centerIn: parent
        width: Math.min(slot.width, slot.height) * 0.4
        height: width
        radius: width / 2
        color: slot.tint
    }
}
