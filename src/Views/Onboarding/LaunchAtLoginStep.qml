pragma ComponentBehavior: Bound

import QtQuick
import Jotwell

OnboardingStep {
    id: step

    required property OnboardingState view

    symbol: "power.circle.fill"
    title: "Always ready when you need it"
    subtitle: "Start Jotwell automatically when you log in"

    Rectangle {
        objectName: "switchPanel"
        width: step.width
        height: panel.height + 32
        radius: 8
        color: step.view.launchAtLogin ? Theme.accentTint : Theme.controlBackground
        border.color: step.view.launchAtLogin ? Theme.accentTintStroke : "transparent"

        Column {
            id: panel

            x: 16
            y: 16
            width: parent.width - 32
            spacing: 6

            BoundCheckbox {
                objectName: "launchAtLogin"
                label: "Launch at Login"
                value: step.view.launchAtLogin
                onChange: isChecked => step.view.launchAtLogin = isChecked
            }
            StepText {
                horizontalAlignment: Text.AlignLeft
                text: "Jotwell will start automatically when you log into your Mac"
                color: Theme.secondaryText
                font.pixelSize: Theme.captionFontSize
            }
        }
    }
    StepText {
        text: "You can change this later in Settings"
        color: Theme.secondaryText
        font.pixelSize: Theme.captionFontSize
    }
    Repeater {
        model: ["Quick access with global hotkey", "Runs quietly in the menu bar"]

        IconAndText {
            required property string modelData

            icon: "checkmark.circle.fill"
            text: modelData
            color: Theme.text
            fontSize: Theme.bodyFontSize
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }
}
