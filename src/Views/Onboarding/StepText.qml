import QtQuick
import Jotwell

// A centred text of a step, over as many lines as it needs.
Text {
    width: parent.width
    horizontalAlignment: Text.AlignHCenter
    textFormat: Text.PlainText
    wrapMode: Text.Wrap
    color: Theme.text
    font.pixelSize: Theme.bodyFontSize
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
