import QtQuick
import Jotwell

// What the program can do, in a line of its own.
Row {
    id: row

    required property string icon
    required property string title
    required property string description

    spacing: 12

    Accessible.role: Accessible.StaticText
    Accessible.name: title + ", " + description

    Item {
        width: 30
        height: texts.height

        Symbol {
            anchors.centerIn: parent
            name: row.icon
            color: Theme.accentMark
            fontSize: Theme.title2FontSize
        }
    }
    Column {
        id: texts

        width: row.width - row.spacing - 30

        Text {
            width: parent.width
            text: row.title
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.text
            font.pixelSize: Theme.headlineFontSize
            font.weight: Font.DemiBold
            Accessible.ignored: true
        }
        Text {
            width: parent.width
            text: row.description
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.secondaryText
            font.pixelSize: Theme.captionFontSize
            Accessible.ignored: true
        }
    }
}
