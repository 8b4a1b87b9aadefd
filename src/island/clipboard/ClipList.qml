import QtQuick
import Vaxo.Island

// The clipboard history, newest first with pinned clips on top, scrolling for what does not fit; or a
// word about why it is empty.
Item {
    id: list

    required property IslandRoot root
    readonly property bool historyOn: root.settings.clipboard

    ListView {
        id: view
        anchors.fill: parent
        visible: list.historyOn
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: list.root.clipboard.clips

        delegate: ClipRowView {
            width: view.width
            root: list.root
        }
    }

    Text {
        visible: view.count === 0 || !list.historyOn
        anchors.centerIn: parent
        width: parent.width - 40
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        text: list.historyOn ? list.root.labels.noClips : list.root.labels.clipboardOff
        color: Qt.rgba(1, 1, 1, 0.5)
        font.family: "Inter"
        font.pixelSize: 12
    }
}
