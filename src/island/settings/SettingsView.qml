import QtQuick
import Vaxo.Island

// Every setting, one row each, taking effect as it is changed; launch at login, the problem report;
// and the way to quit.
Column {
    id: view

    required property IslandRoot root
    readonly property IslandSettings settings: root.settings
    readonly property SettingsCard card: root.settingsCard
    readonly property color accent: root.look.accent
    readonly property real rowHeight: root.measures.settingsRow

    topPadding: 4

    SettingRow {
        label: view.card.rowLabels[SettingsCard.Icon]
        rowHeight: view.rowHeight
        ChipChoice {
            values: view.card.iconValues
            labels: view.card.iconLabels
            current: view.settings.icon
            accent: view.accent
            onPicked: value => view.settings.icon = value
        }
    }
    SettingRow {
        label: view.card.rowLabels[SettingsCard.Accent]
        rowHeight: view.rowHeight
        SwatchChoice {
            values: view.card.accentValues
            colors: view.card.accentColors
            current: view.settings.accent
            onPicked: value => view.settings.accent = value
        }
    }
    SettingRow {
        label: view.card.rowLabels[SettingsCard.Animation]
        rowHeight: view.rowHeight
        ChipChoice {
            values: view.card.animValues
            labels: view.card.animLabels
            current: view.settings.anim
            accent: view.accent
            onPicked: value => view.settings.anim = value
        }
    }
    SettingRow {
        label: view.card.rowLabels[SettingsCard.Sounds]
        rowHeight: view.rowHeight
        Row {
            spacing: 10
            StepChoice {
                anchors.verticalCenter: parent.verticalCenter
                values: view.card.soundValues
                labels: view.card.soundLabels
                current: view.settings.soundName
                enabled: view.settings.sound
                onPicked: value => view.settings.soundName = value
            }
            Toggle {
                anchors.verticalCenter: parent.verticalCenter
                on: view.settings.sound
                accent: view.accent
                onToggled: on => view.settings.sound = on
            }
        }
    }
    SettingRow {
        label: view.card.rowLabels[SettingsCard.Backdrop]
        rowHeight: view.rowHeight
        StepChoice {
            values: view.card.backdropValues
            labels: view.card.backdropLabels
            current: view.settings.backdrop
            onPicked: value => view.settings.backdrop = value
        }
    }
    SettingRow {
        visible: view.settings.backdrop.length > 0
        label: view.card.rowLabels[SettingsCard.Depth]
        rowHeight: view.rowHeight
        ChipChoice {
            values: view.card.strengthValues
            labels: view.card.strengthLabels
            current: view.settings.backdropStrength
            accent: view.accent
            onPicked: value => view.settings.backdropStrength = value
        }
    }
    SettingRow {
        visible: view.settings.backdrop.length > 0
        label: view.card.rowLabels[SettingsCard.Focus]
        rowHeight: view.rowHeight
        ChipChoice {
            values: view.card.focusValues
            labels: view.card.focusLabels
            current: view.settings.backdropFocus
            accent: view.accent
            onPicked: value => view.settings.backdropFocus = value
        }
    }
    SettingRow {
        label: view.card.rowLabels[SettingsCard.Music]
        rowHeight: view.rowHeight
        Row {
            spacing: 10
            Text {
                anchors.verticalCenter: parent.verticalCenter
                text: view.root.music.controlNote
                color: Qt.rgba(1, 1, 1, 0.45)
                font.family: "Inter"
                font.pixelSize: 11
                font.weight: Font.Medium
            }
            Toggle {
                anchors.verticalCenter: parent.verticalCenter
                on: view.settings.music
                accent: view.accent
                onToggled: on => view.settings.music = on
            }
        }
    }
    SettingRow {
        label: view.card.rowLabels[SettingsCard.Clipboard]
        rowHeight: view.rowHeight
        Toggle {
            on: view.settings.clipboard
            accent: view.accent
            onToggled: on => view.settings.clipboard = on
        }
    }
    SettingRow {
        label: view.card.rowLabels[SettingsCard.Clips]
        rowHeight: view.rowHeight
        ChipChoice {
            values: view.card.clipRowValues
            labels: view.card.clipRowValues
            current: view.settings.clipRows
            accent: view.accent
            onPicked: value => view.settings.clipRows = Number(value)
        }
    }
    SettingRow {
        label: view.card.rowLabels[SettingsCard.Speech]
        rowHeight: view.rowHeight
        Toggle {
            on: view.settings.speak
            accent: view.accent
            onToggled: on => view.settings.speak = on
        }
    }
    SettingRow {
        label: view.root.loginItem.label
        rowHeight: view.rowHeight
        Toggle {
            objectName: "launchAtLogin"
            on: view.root.loginItem.enabled
            accent: view.accent
            onToggled: view.root.loginItem.toggle()
        }
    }
    FeedbackRow {
        width: view.width
        height: view.rowHeight
        feedback: view.root.feedback
    }

    Item {
        width: view.width
        height: view.rowHeight + 8

        Rectangle {
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            height: 28
            radius: 8
            color: "#ff453a"
            opacity: quitTap.pressed ? 0.32 : quitHover.hovered ? 0.24 : 0.16

            HoverHandler {
                id: quitHover
                cursorShape: Qt.PointingHandCursor
            }
            TapHandler {
                id: quitTap
                onTapped: view.root.quit()
            }
        }
        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            anchors.bottom: parent.bottom
            anchors.bottomMargin: 7
            text: view.card.quitLabel
            color: "#ff6961"
            font.family: "Inter"
            font.pixelSize: 12
            font.weight: Font.DemiBold
        }
    }
}
