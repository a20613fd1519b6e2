import QtQuick
import QtQuick.Window
import Jotwell

// Where the vault is, and how its index stands.
SettingsCard {
    id: view

    required property ObsidianVaultSettingsState screen

    readonly property bool isIndexing: screen.progress.isIndexing

    Column {
        width: parent.width
        spacing: 8

        CustomTextFieldWithButton {
            objectName: "vaultPath"
            width: parent.width
            title: "Vault Path"
            text: view.screen.obsidianFolderPath
            buttonTitle: "Browse"
            onTextChanged: view.screen.obsidianFolderPath = text
            onEditingEnd: view.screen.commitPath()
            onButtonAction: view.screen.browse(Window.window)
        }
        SettingsText {
            text: "Select the folder where your Obsidian vault is located. New notes will be created in this folder."
            color: Theme.secondaryText
            font.pixelSize: Theme.captionFontSize
        }
    }

    Column {
        width: parent.width
        spacing: 8

        Item {
            width: parent.width
            height: Math.max(heading.height, badge.height)

            SettingsText {
                id: heading

                objectName: "indexHeading"
                width: implicitWidth
                anchors.verticalCenter: parent.verticalCenter
                text: "Search Index"
                font.pixelSize: Theme.headlineFontSize
                font.weight: Font.DemiBold
                Accessible.role: Accessible.Heading
            }
            IndexStatusBadge {
                id: badge

                objectName: "badge"
                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                maximumWidth: parent.width - heading.width - 16
                status: view.screen.badge
            }
        }
        SettingsText {
            objectName: "indexStatus"
            text: view.isIndexing ? "Indexing " + view.screen.progress.fileCountText + ".."
                                  : view.screen.indexStatusText
            color: Theme.secondaryText
            font.pixelSize: Theme.captionFontSize
        }
        SecondaryButton {
            objectName: "rebuild"
            visible: !view.isIndexing
            title: "Rebuild Index"
            icon: "arrow.clockwise"
            isDisabled: !view.screen.hasPath
            onAction: view.screen.rebuildIndex()
        }
    }
}
