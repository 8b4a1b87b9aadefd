import QtQuick
import Vaxo.Island

// Agents at work: Vaxo and the working dots on the left, the sessions in words, and the counts of
// working and waiting sessions on the right.
Item {
    id: strip

    required property IslandRoot root
    readonly property IslandState state: root.state

    FaceSlot {
        id: face
        anchors.left: parent.left
        anchors.leftMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        width: 18
        height: 18
        root: strip.root
    }

    WorkingDots {
        id: dots
        anchors.left: face.right
        anchors.leftMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        root: strip.root
        visible: strip.state.workingCount > 0
    }

    Text {
        anchors.left: dots.visible ? dots.right : face.right
        anchors.leftMargin: 10
        anchors.right: counts.left
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        text: strip.state.agentsLabel
        color: strip.state.waitingCount > 0 ? strip.root.look.waiting : "white"
        font.family: "Inter"
        font.pixelSize: 13
        font.weight: Font.DemiBold
        elide: Text.ElideRight
    }

    Row {
        id: counts
        anchors.right: parent.right
        anchors.rightMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        spacing: 6

        CountBadge {
            count: strip.state.workingCount
            tint: strip.root.look.accent
        }
        CountBadge {
            count: strip.state.waitingCount
            tint: strip.root.look.waiting
        }
    }
}
