import QtQuick
import Jotwell

// A text of a screen, over as many lines as it needs.
Text {
    width: parent.width
    textFormat: Text.PlainText
    wrapMode: Text.Wrap
    color: Theme.text
    font.pixelSize: Theme.bodyFontSize
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
