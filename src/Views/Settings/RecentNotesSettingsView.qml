import QtQuick
import Jotwell

// How many recent notes are listed.
SettingsCard {
    id: view

    required property RecentNotesSettingsState screen

    CustomTextField {
        id: field

        objectName: "recentFilesCount"
        width: parent.width
        title: "Number of Recent Files to Show"
        placeholder: "10"
        text: view.screen.recentFilesCount
        onTextChanged: view.screen.recentFilesCount = text
    }

    // The next key replaces it, so that any number can be typed.
    Connections {
        target: view.screen

        function onPutBack(): void {
            field.selectAll()
        }
    }
}
