import QtQuick
import Jotwell

// The plain button that leaves the welcome.
PressableControl {
    id: button

    readonly property string title: "Skip"

    accessibleName: title
    verticalPadding: 6

    contentItem: Text {
        horizontalAlignment: Text.AlignHCenter
        text: button.title
        textFormat: Text.PlainText
        color: Theme.secondaryText
        font.pixelSize: Theme.bodyFontSize
        Accessible.ignored: true
    }
}
