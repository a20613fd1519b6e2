import QtQuick
import Jotwell

// A heading over what it is about.
Column {
    required property string title

    spacing: 10

    Text {
        text: parent.title
        color: Theme.secondaryText
        font.pixelSize: Theme.captionFontSize
        font.weight: Font.DemiBold
    }
}
