pragma ComponentBehavior: Bound

import QtQuick
import Jotwell

// The global hotkey, and whether the program may listen for it.
SettingsCard {
    id: view

    required property GlobalHotkeySettingsState screen

    readonly property bool isActive: screen.hasAccessibilityPermission

    KeyEventHandler {
        keyView: view.screen.keyView
    }

    SettingsText {
        text: "Global Hotkey"
        font.pixelSize: Theme.title2FontSize
        font.weight: Font.DemiBold
        Accessible.role: Accessible.Heading
    }

    Column {
        width: parent.width
        spacing: 8

        SettingsText {
            text: "Keyboard Shortcut"
            font.pixelSize: Theme.headlineFontSize
            font.weight: Font.DemiBold
            Accessible.role: Accessible.Heading
        }
        ShortcutRecorderView {
            objectName: "recorder"
            width: parent.width
            recorder: view.screen.recorder
            pressedKeys: view.screen.keyView.pressedKeys
        }
    }

    Column {
        width: parent.width
        spacing: 8

        SettingsText {
            text: "Status"
            font.pixelSize: Theme.headlineFontSize
            font.weight: Font.DemiBold
            Accessible.role: Accessible.Heading
        }
        Row {
            width: parent.width
            spacing: 8

            Rectangle {
                objectName: "statusDot"
                anchors.verticalCenter: parent.verticalCenter
                width: 8
                height: 8
                radius: 4
                color: view.isActive ? Theme.systemGreen : Theme.accentMark
            }
            SettingsText {
                objectName: "statusText"
                width: Math.min(implicitWidth, parent.width - 8 - parent.spacing)
                text: view.isActive ? "Active" : "Requires the accessability permission"
                color: view.isActive ? Theme.green : Theme.accentText
            }
        }
        SecondaryButton {
            objectName: "openSettings"
            visible: !view.isActive
            title: "Open Settings"
            onAction: view.screen.requestAccessibilityPermissions()
        }
    }

    Rectangle {
        objectName: "instructions"
        width: parent.width
        height: steps.height + 2 * steps.y
        radius: 8
        visible: !view.isActive
        color: Theme.accentTint

        Column {
            id: steps

            x: 12
            y: 12
            width: parent.width - 2 * x
            spacing: 4

            SettingsText {
                text: "To enable the global hotkey:"
                font.weight: Font.Medium
            }
            SettingsText { text: "1. Open the system settings using the button above" }
            SettingsText { text: "2. In the Accessability Settings  grant the app permissions with a toggle" }
            SettingsText { text: "3. Restart the app." }
        }
    }
}
