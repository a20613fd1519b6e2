import QtQuick
import Jotwell

// An entry of the sidebar.
PressableControl {
    id: row

    required property string symbol
    required property string title
    property bool isSelected: false

    accessibleName: title
    horizontalPadding: 16
    verticalPadding: 8
    scalesOnHover: false
    scale: 1

    Accessible.role: Accessible.ListItem
    Accessible.selectable: true
    Accessible.selected: isSelected

    background: Rectangle {
        objectName: "rowBackground"
        color: row.isSelected ? Theme.accentTint : "transparent"
    }

    contentItem: Row {
        spacing: 12

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            name: row.symbol
            color: Theme.grayText
            fontSize: Theme.title2FontSize
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: row.title
            textFormat: Text.PlainText
            color: Theme.text
            font.pixelSize: Theme.bodyFontSize
            Accessible.ignored: true
        }
    }
}
