import QtQuick
import Jotwell

// A command, the keys that put it into the text, and what it does.
Row {
    id: row

    required property string command
    required property string shortcut
    required property string description

    spacing: 12

    Accessible.role: Accessible.StaticText
    Accessible.name: command + ", " + shortcut + ", " + description

    Item {
        width: 120
        height: keys.height

        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: row.command
            textFormat: Text.PlainText
            color: Theme.accentText
            font: SystemFonts.monospacedFont(Theme.bodyFontSize, Font.Normal)
            Accessible.ignored: true
        }
    }
    Rectangle {
        id: keys

        width: label.implicitWidth + 16
        height: label.implicitHeight + 8
        radius: 4
        color: Theme.track

        Text {
            id: label

            anchors.centerIn: parent
            text: row.shortcut
            textFormat: Text.PlainText
            color: Theme.text
            font.pixelSize: Theme.captionFontSize
            Accessible.ignored: true
        }
    }
    Text {
        width: row.width - 120 - keys.width - 2 * row.spacing
        anchors.verticalCenter: keys.verticalCenter
        text: row.description
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        color: Theme.secondaryText
        font.pixelSize: Theme.captionFontSize
        Accessible.ignored: true
    }
}
