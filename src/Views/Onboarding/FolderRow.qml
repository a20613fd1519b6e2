import QtQuick
import Jotwell

// A folder that is to be chosen.
Rectangle {
    id: row

    required property string path
    // What the folder is for, to those who can't see where the row stands.
    required property string accessibleName

    signal choose()

    width: parent.width
    height: button.height + 16
    radius: 8
    color: Theme.controlBackground
    border.color: Theme.controlStroke

    Symbol {
        id: symbol

        x: 12
        anchors.verticalCenter: parent.verticalCenter
        name: "folder"
        color: Theme.accentMark
        fontSize: Theme.bodyFontSize
    }
    Text {
        objectName: "path"
        anchors.left: symbol.right
        anchors.right: button.left
        anchors.margins: 8
        anchors.verticalCenter: parent.verticalCenter
        text: row.path === "" ? "No folder selected" : row.path
        textFormat: Text.PlainText
        elide: Text.ElideMiddle
        maximumLineCount: 1
        color: row.path === "" ? Theme.secondaryText : Theme.text
        font.pixelSize: Theme.bodyFontSize
        Accessible.role: Accessible.StaticText
        Accessible.name: row.accessibleName + ": " + text
    }
    SecondaryButton {
        id: button

        objectName: "choose"
        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        title: "Choose..."
        accessibleName: title + " " + row.accessibleName
        onAction: row.choose()
    }
}
