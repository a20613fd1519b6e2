import QtQuick
import Jotwell

// How many recent notes are listed.
SettingsCard {
    id: view

    required property RecentNotesSettingsState screen
}
