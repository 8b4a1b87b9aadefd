import QtQuick
import Vaxo.Island

// One clip: its kind, its one-line preview (a secret shows its mask), the program it came from, and a
// pin. A click puts it back on the clipboard.
Item {
    id: row

    required property IslandRoot root
    required property string clipId
    required property int kind
    required property string preview
    required property bool pinned
    required property bool secret
    required property string source
    required property string image

    height: root.measures.clipRow

    Rectangle {
        anchors.fill: parent
        anchors.bottomMargin: 4
        radius: 10
        color: "white"
        opacity: tap.pressed ? 0.14 : hover.hovered ? 0.08 : 0.04
    }

    KindGlyph {
        id: kindTile
        visible: row.image.length === 0
        anchors.left: parent.left
        anchors.leftMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        anchors.verticalCenterOffset: -2
        kind: row.kind
        secret: row.secret
        accent: row.root.look.accent
    }
    Image {
        visible: row.image.length > 0
        anchors.fill: kindTile
        source: row.image
        fillMode: Image.PreserveAspectCrop
        asynchronous: true
        smooth: true
    }

    Column {
        anchors.left: kindTile.right
        anchors.leftMargin: 10
        anchors.right: pin.left
        anchors.rightMargin: 6
        anchors.verticalCenter: parent.verticalCenter
        anchors.verticalCenterOffset: -2
        spacing: 1

        Text {
            width: parent.width
            text: row.preview
            color: "white"
            font.family: row.kind === ClipKind.Code ? "JetBrains Mono" : "Inter"
            font.pixelSize: 12
            elide: Text.ElideRight
            maximumLineCount: 1
        }
        Text {
            width: parent.width
            visible: text.length > 0
            text: row.source
            color: Qt.rgba(1, 1, 1, 0.45)
            font.family: "Inter"
            font.pixelSize: 10
            elide: Text.ElideRight
        }
    }

    IconButton {
        id: pin
        anchors.right: parent.right
        anchors.rightMargin: 4
        anchors.verticalCenter: parent.verticalCenter
        anchors.verticalCenterOffset: -2
        width: 26
        height: 26
        glyph: "pin"
        glyphSize: 14
        color: row.pinned ? row.root.look.accent : "white"
        opacity: row.pinned || hover.hovered ? 1 : 0
        onClicked: row.root.clipboard.togglePin(row.clipId)
    }

    HoverHandler {
        id: hover
        cursorShape: Qt.PointingHandCursor
    }
    TapHandler {
        id: tap
        onTapped: row.root.clipboard.copyBack(row.clipId)
    }
}
