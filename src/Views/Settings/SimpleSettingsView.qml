import QtQuick
import QtQuick.Window
import Jotwell

// The settings: the sidebar, and the screen of its selected entry.
Rectangle {
    id: root

    required property SettingsState view

    color: Theme.windowBackground
    Component.onCompleted: sidebar.takeFocus()

    Binding {
        target: root.Window.window
        property: "color"
        value: root.color
    }

    // The window is moved by any place of it that has no other use.
    DragHandler {
        target: null
        onActiveChanged: {
            if (active)
                root.Window.window.startSystemMove()
        }
    }

    SettingsSidebar {
        id: sidebar

        objectName: "sidebar"
        width: 250
        height: parent.height
        view: root.view
    }

    Loader {
        objectName: "detail"
        anchors.left: sidebar.right
        anchors.right: parent.right
        height: parent.height
        sourceComponent: root.screenOf(root.view.selectedItem)
    }

    function screenOf(item: string): Component {
        switch (item) {
        case "obsidianVault": return obsidianVault
        case "softwareUpdates": return softwareUpdates
        case "other": return other
        case "/new_note": return newNote
        case "/search_notes": return searchNotes
        case "/recent": return recentNotes
        default: return globalHotkey
        }
    }

    Component {
        id: globalHotkey

        GlobalHotkeySettingsView { screen: root.view.globalHotkey }
    }
    Component {
        id: obsidianVault

        ObsidianVaultSettingsView { screen: root.view.obsidianVault }
    }
    Component {
        id: softwareUpdates

        UpdateSettingsView { screen: root.view.softwareUpdates }
    }
    Component {
        id: other

        OtherSettingsView { screen: root.view.other }
    }
    Component {
        id: newNote

        SimpleObsidianSettingsView { screen: root.view.newNote }
    }
    Component {
        id: searchNotes

        SearchNotesSettingsView {}
    }
    Component {
        id: recentNotes

        RecentNotesSettingsView { screen: root.view.recentNotes }
    }
}
