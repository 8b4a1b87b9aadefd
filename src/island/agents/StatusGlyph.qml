import QtQuick
import Vaxo.Island

// A session's status in a 12 by 12 box: the working mark, the orange exclamation mark, or the green
// check for "done" and any other status.
Item {
    id: status

    required property IslandRoot root
    required property int icon

    implicitWidth: 12
    implicitHeight: 12

    WorkingMark {
        anchors.fill: parent
        visible: status.icon === StatusIcon.Working
        root: status.root
    }

    Glyph {
        anchors.fill: parent
        visible: status.icon !== StatusIcon.Working
        name: "disc"
        color: status.icon === StatusIcon.Waiting ? status.root.look.waiting : status.root.look.done

        Glyph {
            anchors.fill: parent
            name: status.icon === StatusIcon.Waiting ? "exclamation" : "check"
            stroke: 2.8
            color: "black"
        }
    }
}
