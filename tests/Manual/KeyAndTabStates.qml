import QtQuick
import Jotwell

// Key caps in their sizes, tabs and a tab that is hovered.
GallerySection {
    title: "Keys and tabs"

    Row {
        spacing: 24

        KeyboardShortcutView {
            keys: ["Tab", "↑↓", "Enter"]
            size: KeySize.Small
            pressedKeys: ["Enter"]
        }
        KeyboardShortcutView {
            keys: ["⌘", "⌥", "B"]
            pressedKeys: ["⌘"]
        }
        KeyboardShortcutView {
            keys: ["⌃", "⇧", "Space"]
            size: KeySize.Large
            pressedKeys: ["⇧"]
        }
    }
    Row {
        spacing: 12

        CustomTabsView {
            width: 290
            tabs: [{ id: "1", title: "Daily" },
                   { id: "2", title: "Meeting", icon: "doc.text" },
                   { id: "3", title: "Synced", secondaryIcon: "arrow.triangle.2.circlepath" }]
            selectedTabId: "2"
        }
        TabButton {
            tab: ({ id: "4", title: "Hovered" })
            isHovered: true
        }
    }
}
