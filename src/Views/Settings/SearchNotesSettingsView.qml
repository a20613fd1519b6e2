import QtQuick
import Jotwell

// Searches have no settings.
SettingsCard {
}
