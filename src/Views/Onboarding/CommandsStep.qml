import QtQuick
import Jotwell

OnboardingStep {
    id: step

    symbol: "command.circle.fill"
    title: "Quick Commands"
    subtitle: "Use these commands to supercharge your workflow"

    CommandRow {
        width: step.width
        command: "/new_note"
        shortcut: KeyCaps.text("⌘") + " 1"
        description: "Create a new note in your vault from anywhere"
    }
    CommandRow {
        width: step.width
        command: "/search_notes"
        shortcut: KeyCaps.text("⌘") + " 2"
        description: "Search notes by name or #tags"
    }
    CommandRow {
        width: step.width
        command: "/recent"
        shortcut: KeyCaps.text("⌘") + " 3"
        description: "Fast check recent notes"
    }
    StepText {
        topPadding: 12
        text: "Type / to see all available commands"
        color: Theme.secondaryText
        font.pixelSize: Theme.captionFontSize
    }
}
