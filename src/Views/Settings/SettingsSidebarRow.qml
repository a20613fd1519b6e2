import QtQuick
import Jotwell

// An entry of the sidebar: a screen by its symbol and title, or a command by its emoji, name and what
// it does.
PressableControl {
    id: row

    required property string symbol
    required property string title
    property string description
    property bool isSelected: false

    readonly property bool isCommand: description !== ""
    readonly property int symbolSpacing: 12

    accessibleName: title
    horizontalPadding: isCommand ? 10 : 16
    verticalPadding: isCommand ? 10 : 8
    scalesOnHover: false
    scale: 1
    isFocusShown: false // by a line within, as the row reaches to the window's edge

    Accessible.role: Accessible.ListItem
    Accessible.description: description
    Accessible.selectable: true
    Accessible.selected: isSelected

    background: Rectangle {
        objectName: "rowBackground"
        color: row.isSelected ? Theme.accentTint : "transparent"
        border.width: row.activeFocus ? 2 : 0
        border.color: Theme.focusStroke
    }

    contentItem: Loader {
        sourceComponent: row.isCommand ? command : screen
    }

    component RowText: Text {
        textFormat: Text.PlainText
        color: Theme.text
        Accessible.ignored: true
    }

    Component {
        id: screen

        Row {
            spacing: row.symbolSpacing

            Symbol {
                objectName: "symbol"
                anchors.verticalCenter: parent.verticalCenter
                name: row.symbol
                color: Theme.grayText
                fontSize: Theme.title2FontSize
            }
            RowText {
                objectName: "title"
                anchors.verticalCenter: parent.verticalCenter
                text: row.title
                font.pixelSize: Theme.bodyFontSize
            }
        }
    }

    Component {
        id: command

        Row {
            spacing: 6

            RowText {
                objectName: "emoji"
                width: 33 // so that emoji and texts stand below the symbols and titles
                anchors.verticalCenter: parent.verticalCenter
                horizontalAlignment: Text.AlignHCenter
                text: row.symbol
                font: SystemFonts.emojiFont(Theme.title3FontSize)
            }
            Column {
                anchors.verticalCenter: parent.verticalCenter
                spacing: 2

                RowText {
                    objectName: "title"
                    text: row.title
                    font.pixelSize: Theme.title3FontSize
                }
                RowText {
                    objectName: "description"
                    text: row.description
                    color: Theme.secondaryText
                    font.pixelSize: Theme.captionFontSize
                }
            }
        }
    }
}
