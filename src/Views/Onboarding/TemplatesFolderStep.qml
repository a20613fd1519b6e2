import QtQuick
import Jotwell

OnboardingStep {
    id: step

    required property OnboardingState view

    symbol: "doc.on.doc.fill"
    title: "Templates Folder (Optional)"
    subtitle: "Sync your Obsidian templates"

    FolderRow {
        objectName: "templatesFolder"
        accessibleName: "Templates folder"
        path: step.view.templatesFolderPath
        onChoose: step.view.selectTemplatesFolder(step.Window.window)
    }
    StepText {
        text: "Templates will automatically sync and appear in the app"
        color: Theme.secondaryText
        font.pixelSize: Theme.captionFontSize
    }
}
