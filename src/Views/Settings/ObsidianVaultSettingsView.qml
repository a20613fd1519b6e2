import QtQuick
import Jotwell

// Where the vault is, and how its index stands.
SettingsCard {
    id: view

    required property ObsidianVaultSettingsState screen
}
