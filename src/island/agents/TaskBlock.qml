import QtQuick
import Vaxo.Island

// A session's task list: how many are under way and open, how many are completed, then each task,
// those under way brighter and heavier than the rest.
Column {
    id: block

    required property string summary
    required property string completed
    required property list<string> subjects
    required property list<bool> active
    required property CardMeasures measures
    required property color accent

    Item {
        width: block.width
        height: block.measures.tasksSummary

        Text {
            anchors.bottom: parent.bottom
            text: block.summary
            color: Qt.rgba(1, 1, 1, 0.5)
            font.family: "Inter"
            font.pixelSize: 10
            font.weight: Font.DemiBold
        }
    }

    Item {
        visible: block.completed.length > 0
        width: block.width
        height: block.measures.tasksCompleted

        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: block.completed
            color: Qt.rgba(1, 1, 1, 0.4)
            font.family: "Inter"
            font.pixelSize: 10
            font.weight: Font.Medium
        }
    }

    Repeater {
        model: block.subjects

        Item {
            id: item
            required property int index
            required property string modelData
            readonly property bool underWay: block.active[index] ?? false

            width: block.width
            height: block.measures.rowLine

            Rectangle {
                anchors.verticalCenter: parent.verticalCenter
                x: 2
                width: 5
                height: 5
                radius: 2.5
                color: item.underWay ? block.accent : "transparent"
                border.width: item.underWay ? 0 : 1
                border.color: Qt.rgba(1, 1, 1, 0.35)
            }
            Text {
                anchors.left: parent.left
                anchors.leftMargin: 14
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                text: item.modelData
                color: item.underWay ? "white" : Qt.rgba(1, 1, 1, 0.55)
                font.family: "Inter"
                font.pixelSize: 11
                font.weight: item.underWay ? Font.DemiBold : Font.Normal
                elide: Text.ElideRight
            }
        }
    }
}
