import QtQuick
import Vaxo.Island

// The sessions section: the first two sessions as rows, then how many more run; or, with none, a quiet
// word that Vaxo keeps watch.
Column {
    id: view

    required property IslandRoot root
    readonly property SessionsSection section: root.sessions

    spacing: root.measures.rowGap

    // Elapsed times are worded again only while somebody can read them.
    Binding {
        target: view.section
        property: "shown"
        value: view.visible
    }

    Repeater {
        model: view.section.rows

        SessionRowView {
            width: view.width
            root: view.root
        }
    }

    Text {
        visible: text.length > 0
        leftPadding: 14
        text: view.section.moreRunning
        color: Qt.rgba(1, 1, 1, 0.5)
        font.family: "Inter"
        font.pixelSize: 11
        font.weight: Font.Medium
    }

    Row {
        visible: view.section.empty
        leftPadding: 4
        spacing: 8

        WorkingMark {
            anchors.verticalCenter: parent.verticalCenter
            root: view.root
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: view.section.emptyText
            color: Qt.rgba(1, 1, 1, 0.6)
            font.family: "Inter"
            font.pixelSize: 12
        }
    }
}
