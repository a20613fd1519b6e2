import QtQuick
import Jotwell

// What belongs to no other screen.
SettingsCard {
    id: view

    required property OtherSettingsState screen

    SettingsText {
        text: "Other Settings"
        font.pixelSize: Theme.title2FontSize
        font.weight: Font.DemiBold
        Accessible.role: Accessible.Heading
    }

    Column {
        width: parent.width
        spacing: 8

        BoundCheckbox {
            objectName: "launchAtLogin"
            label: "Launch at Login"
            value: view.screen.launchAtLogin
            onChange: isChecked => view.screen.launchAtLogin = isChecked
        }
        SettingsText {
            text: "Start Jotwell automatically when you log in to your Mac."
            color: Theme.secondaryText
            font.pixelSize: Theme.captionFontSize
        }
    }
}
