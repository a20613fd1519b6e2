import QtQuick
import Jotwell

// Whether there is a newer version, and whether the program looks for one by itself.
SettingsCard {
    id: view

    required property UpdateSettingsState screen

    Item {
        width: parent.width
        height: heading.height

        SettingsText {
            id: heading

            width: Math.min(implicitWidth, parent.width - news.width)
            text: "Updates"
            font.pixelSize: Theme.title2FontSize
            font.weight: Font.DemiBold
            Accessible.role: Accessible.Heading
        }
        Row {
            id: news

            objectName: "news"
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            visible: view.screen.updateAvailable
            spacing: 6

            Rectangle {
                objectName: "newsDot"
                anchors.verticalCenter: parent.verticalCenter
                width: 8
                height: 8
                radius: 4
                color: Theme.accentMark
            }
            SettingsText {
                width: implicitWidth
                text: "Update Available"
                color: Theme.accentText
                font.pixelSize: Theme.captionFontSize
            }
            SettingsText {
                objectName: "version"
                width: Math.min(implicitWidth, view.width / 3)
                visible: view.screen.latestVersion !== ""
                text: "(v" + view.screen.latestVersion + ")"
                wrapMode: Text.NoWrap
                elide: Text.ElideRight
                color: Theme.secondaryText
                font.pixelSize: Theme.captionFontSize
            }
        }
    }

    Column {
        width: parent.width
        spacing: 12

        BoundCheckbox {
            objectName: "checksAutomatically"
            label: "Automatically check for updates"
            value: view.screen.automaticallyChecksForUpdates
            onChange: isChecked => view.screen.automaticallyChecksForUpdates = isChecked
        }
        BoundCheckbox {
            objectName: "downloadsAutomatically"
            label: "Automatically download updates"
            isDisabled: !view.screen.automaticallyChecksForUpdates
            value: view.screen.automaticallyDownloadsUpdates
            onChange: isChecked => view.screen.automaticallyDownloadsUpdates = isChecked
        }
    }

    SecondaryButton {
        objectName: "checkNow"
        title: "Check for Updates Now"
        isDisabled: !view.screen.canCheckForUpdates
        onAction: view.screen.checkForUpdatesInBackground()
    }

    Item {
        objectName: "hint"
        width: parent.width
        height: hintText.height
        visible: view.screen.updateAvailable

        Symbol {
            id: hintSymbol

            name: "arrow.down.circle.fill"
            color: Theme.accentMark
            fontSize: Theme.bodyFontSize
        }
        SettingsText {
            id: hintText

            anchors.verticalCenter: hintSymbol.verticalCenter
            x: hintSymbol.width + 8
            width: parent.width - x
            text: "A new version is available! Click 'Download Update' to get the latest version."
            color: Theme.secondaryText
            font.pixelSize: Theme.captionFontSize
        }
    }
}
