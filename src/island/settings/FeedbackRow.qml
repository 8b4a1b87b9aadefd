import QtQuick
import Vaxo.Island

// Reporting a problem and copying the diagnostics; what came of it takes the row's place for a while.
Item {
    id: row

    required property Feedback feedback
    readonly property bool telling: feedback.outcome.length > 0

    SettingRow {
        visible: !row.telling
        label: row.feedback.rowLabel
        rowHeight: row.height

        Row {
            spacing: 4
            TextButton {
                objectName: "reportProblem"
                label: row.feedback.reportLabel
                onClicked: row.feedback.reportProblem()
            }
            TextButton {
                objectName: "copyDiagnostics"
                label: row.feedback.copyLabel
                onClicked: row.feedback.copyDiagnostics()
            }
        }
    }

    Text {
        objectName: "feedbackOutcome"
        visible: row.telling
        anchors.fill: parent
        verticalAlignment: Text.AlignVCenter
        text: row.feedback.outcome
        color: Qt.rgba(1, 1, 1, 0.8)
        font.family: "Inter"
        font.pixelSize: 11
        wrapMode: Text.Wrap
        maximumLineCount: 2
        elide: Text.ElideRight
    }
}
