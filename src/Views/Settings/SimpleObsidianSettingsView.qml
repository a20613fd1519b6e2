import QtQuick
import Jotwell

// The templates of new notes.
SettingsCard {
    id: view

    required property SimpleObsidianSettingsState screen
}
