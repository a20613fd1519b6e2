import QtQuick
import Jotwell

// A gray button with a title, and a symbol before it if there is one.
PressableControl {
    id: button

    required property string title
    property string icon
    property bool fullWidth: false
    property int size: ButtonSize.Regular

    readonly property ButtonSize measures: ButtonSize { value: button.size }
    property color foregroundColor: isDisabled ? Theme.grayText : Theme.text

    // In a layout it takes all the width there is.
    readonly property bool fillsWidth: fullWidth

    accessibleName: title
    horizontalPadding: measures.horizontalPadding
    verticalPadding: measures.verticalPadding
    cornerRadius: measures.cornerRadius

    background: Rectangle {
        objectName: "buttonBackground"
        radius: button.cornerRadius
        color: Theme.buttonBackground
        border.color: Theme.controlStroke
    }

    contentItem: Item {
        implicitWidth: content.implicitWidth
        implicitHeight: content.implicitHeight

        IconAndText {
            id: content

            anchors.centerIn: parent
            width: Math.min(implicitWidth, parent.width)
            icon: button.icon
            iconSize: button.measures.fontSize
            text: button.title
            color: button.foregroundColor
            fontSize: button.measures.fontSize
        }
    }
}
