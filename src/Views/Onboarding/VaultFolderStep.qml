import QtQuick
import Jotwell

OnboardingStep {
    id: step

    required property OnboardingState view

    symbol: "folder.fill.badge.plus"
    title: "Select Your Obsidian Vault"
    subtitle: "Choose the folder where your Obsidian notes are stored"

    FolderRow {
        objectName: "vaultFolder"
        accessibleName: "Obsidian vault"
        path: step.view.obsidianVaultPath
        onChoose: step.view.selectVaultFolder(step.Window.window)
    }
    StepText {
        text: "This is where Jotwell will create new notes and search for existing ones"
        color: Theme.secondaryText
        font.pixelSize: Theme.captionFontSize
    }
}
