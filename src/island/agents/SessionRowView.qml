import QtQuick
import QtQuick.Window
import Vaxo.Island

// One session of the list: its status, label, agent and time, then its last prompt, what it does now,
// and its tasks. Every line's height comes from the same measures that size the card. A click brings
// the session's terminal to the front.
Item {
    id: row

    required property IslandRoot root
    required property string sessionId
    required property string brand
    required property string brandIcon
    required property string label
    required property int statusIcon
    required property string elapsed
    required property string prompt
    required property string actionTool
    required property string actionRest
    required property bool hasTasks
    required property string taskSummary
    required property string tasksCompleted
    required property list<string> taskSubjects
    required property list<bool> taskActive
    required property real rowHeight

    readonly property CardMeasures measures: root.measures

    objectName: "sessionRow"
    height: rowHeight

    Rectangle {
        anchors.fill: parent
        radius: 12
        color: Qt.rgba(1, 1, 1, tap.pressed ? 0.13 : hover.hovered ? 0.09 : 0.06)
    }
    HoverHandler {
        id: hover
        cursorShape: Qt.PointingHandCursor
    }
    TapHandler {
        id: tap
        onTapped: row.root.controller.focusSession(row.sessionId)
    }

    Column {
        anchors.fill: parent
        anchors.leftMargin: 14
        anchors.rightMargin: 14
        topPadding: row.measures.rowPadding

        Item {
            width: parent.width
            height: row.measures.rowHeader - 2 * row.measures.rowPadding

            StatusGlyph {
                id: status
                anchors.verticalCenter: parent.verticalCenter
                root: row.root
                icon: row.statusIcon
            }
            Text {
                anchors.left: status.right
                anchors.leftMargin: 8
                anchors.right: brandMark.left
                anchors.rightMargin: 8
                anchors.verticalCenter: parent.verticalCenter
                text: row.label
                color: "white"
                font.family: "Inter"
                font.pixelSize: 12
                font.weight: Font.Bold
                elide: Text.ElideRight
            }
            Image {
                id: brandMark
                anchors.right: brandName.left
                anchors.rightMargin: 4
                anchors.verticalCenter: parent.verticalCenter
                width: 12
                height: 12
                sourceSize: Qt.size(Math.ceil(width * Screen.devicePixelRatio), Math.ceil(height * Screen.devicePixelRatio))
                source: row.brandIcon
                smooth: true
            }
            Text {
                id: brandName
                anchors.right: time.left
                anchors.rightMargin: 8
                anchors.verticalCenter: parent.verticalCenter
                text: row.brand
                color: Qt.rgba(1, 1, 1, 0.45)
                font.family: "Inter"
                font.pixelSize: 10
                font.weight: Font.DemiBold
            }
            Text {
                id: time
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                text: row.elapsed
                color: Qt.rgba(1, 1, 1, 0.45)
                font.family: "Inter"
                font.pixelSize: 10
                font.weight: Font.DemiBold
            }
        }

        Text {
            visible: row.prompt.length > 0
            width: parent.width
            height: row.measures.rowLine
            verticalAlignment: Text.AlignTop
            text: row.prompt
            color: Qt.rgba(1, 1, 1, 0.6)
            font.family: "Inter"
            font.pixelSize: 11
            font.italic: true
            elide: Text.ElideRight
            maximumLineCount: 1
        }

        Row {
            visible: row.actionTool.length > 0
            width: parent.width
            height: row.measures.rowLine
            spacing: 5

            Text {
                id: tool
                text: row.actionTool
                color: "white"
                font.family: "Inter"
                font.pixelSize: 11
                font.weight: Font.Bold
            }
            Text {
                width: parent.width - tool.width - 5
                text: row.actionRest
                color: Qt.rgba(1, 1, 1, 0.75)
                font.family: "JetBrains Mono"
                font.pixelSize: 11
                elide: Text.ElideMiddle
            }
        }

        TaskBlock {
            visible: row.hasTasks
            width: parent.width
            summary: row.taskSummary
            completed: row.tasksCompleted
            subjects: row.taskSubjects
            active: row.taskActive
            measures: row.measures
            accent: row.root.look.accent
        }
    }
}
