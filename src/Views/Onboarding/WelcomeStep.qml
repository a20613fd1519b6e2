import QtQuick
import Jotwell

OnboardingStep {
    id: step

    symbol: "o.circle.fill"
    symbolSize: 80
    title: "Jotwell"
    titleSize: Theme.largeTitleFontSize
    subtitle: "Your companion for Obsidian note-taking"
    subtitleSize: Theme.title3FontSize

    FeatureRow {
        width: step.width
        icon: "keyboard"
        title: "Global Hotkey"
        description: "Quick access with ⌘⌥Space"
    }
    FeatureRow {
        width: step.width
        icon: "magnifyingglass"
        title: "Fast Search"
        description: "Find notes instantly by name or tags"
    }
    FeatureRow {
        width: step.width
        icon: "doc.text"
        title: "Templates"
        description: "Create notes with customizable templates"
    }
}
