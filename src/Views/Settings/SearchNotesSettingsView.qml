import QtQuick
import Jotwell

// Searches have no settings.
Item {
    Column {
        objectName: "searchNotes"
        anchors.centerIn: parent
        width: parent.width - 2 * 16
        spacing: 12

        Symbol {
            objectName: "symbol"
            anchors.horizontalCenter: parent.horizontalCenter
            name: "magnifyingglass.circle"
            color: Theme.secondaryText
            fontSize: 48
        }
        SettingsText {
            horizontalAlignment: Text.AlignHCenter
            text: "Search Notes Settings"
            font.pixelSize: Theme.title2FontSize
            font.weight: Font.DemiBold
            Accessible.role: Accessible.Heading
        }
        SettingsText {
            horizontalAlignment: Text.AlignHCenter
            text: "Search for notes in your Obsidian vault by filename."
            color: Theme.secondaryText
        }
        SettingsText {
            horizontalAlignment: Text.AlignHCenter
            text: "No additional configuration needed"
            color: Theme.secondaryText
            font.pixelSize: Theme.captionFontSize
        }
    }
}
