import QtQuick
import QtQuick.Window
import Vaxo.Island

// The session that waits for the user: the caption, which session it is, what it asks to do, and the
// answer buttons when the island can answer (a third where the agent offers to remember the answer);
// below, how many more wait. A click on the caption or the session brings its terminal to the front.
Column {
    id: panel

    required property IslandRoot root
    readonly property SessionsSection section: root.sessions

    spacing: 8

    Row {
        spacing: 6

        HoverHandler {
            cursorShape: Qt.PointingHandCursor
        }
        TapHandler {
            onTapped: panel.root.controller.focusSession(panel.section.waitingId)
        }

        Glyph {
            anchors.verticalCenter: parent.verticalCenter
            width: 13
            height: 13
            name: "disc"
            color: panel.root.look.waiting

            Glyph {
                anchors.fill: parent
                name: "exclamation"
                stroke: 2.6
                color: "black"
            }
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: panel.section.needsPermission
            color: panel.root.look.waiting
            font.family: "Inter"
            font.pixelSize: 12
            font.weight: Font.DemiBold
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            visible: panel.section.waited.length > 0
            text: "\u00B7 " + panel.section.waited
            color: Qt.rgba(1, 1, 1, 0.45)
            font.family: "Inter"
            font.pixelSize: 11
        }
    }

    Item {
        objectName: "waitingCaption"
        width: panel.width
        height: waitingLabel.implicitHeight

        Text {
            id: waitingLabel
            width: Math.min(implicitWidth, parent.width - waitingMark.width - 8)
            text: panel.section.waitingLabel
            color: "white"
            font.family: "Inter"
            font.pixelSize: 15
            font.weight: Font.Bold
            elide: Text.ElideRight
        }
        Image {
            id: waitingMark
            anchors.left: waitingLabel.right
            anchors.leftMargin: 8
            anchors.verticalCenter: waitingLabel.verticalCenter
            width: 14
            height: 14
            sourceSize: Qt.size(Math.ceil(width * Screen.devicePixelRatio), Math.ceil(height * Screen.devicePixelRatio))
            source: panel.section.waitingBrandIcon
            smooth: true
        }
        HoverHandler {
            cursorShape: Qt.PointingHandCursor
        }
        TapHandler {
            onTapped: panel.root.controller.focusSession(panel.section.waitingId)
        }
    }

    AskLine {
        width: panel.width
        tool: panel.section.askTool
        target: panel.section.askTarget
    }

    Text {
        width: panel.width
        visible: text.length > 0
        text: panel.section.waitingFor
        color: Qt.rgba(1, 1, 1, 0.55)
        font.family: "Inter"
        font.pixelSize: 11
        wrapMode: Text.Wrap
        maximumLineCount: 2
        elide: Text.ElideRight
    }

    Row {
        visible: panel.section.answerable
        spacing: 8
        topPadding: 2

        AnswerButton {
            objectName: "denyButton"
            label: panel.root.labels.deny
            allow: false
            green: panel.root.look.done
            onClicked: panel.section.answer(panel.section.askId, false)
        }
        AnswerButton {
            objectName: "allowButton"
            label: panel.root.labels.allow
            allow: true
            green: panel.root.look.done
            onClicked: panel.section.answer(panel.section.askId, true)
        }
    }

    // Allow, and let the agent remember what it offered, worded as its terminal words it.
    AnswerButton {
        objectName: "alwaysButton"
        visible: panel.section.answerable && panel.section.alwaysLabel.length > 0
        width: Math.min(implicitWidth, panel.width)
        label: panel.section.alwaysLabel
        allow: true
        soft: true
        green: panel.root.look.done
        onClicked: panel.section.answerAlways(panel.section.askId)
    }

    Text {
        visible: text.length > 0
        text: panel.section.moreWaiting
        color: panel.root.look.waiting
        opacity: 0.85
        font.family: "Inter"
        font.pixelSize: 11
        font.weight: Font.Medium
    }
}
