import QtQuick
import Jotwell

// A titled field for one line of text, and a button that helps to fill it.
LineField {
    id: field

    required property string buttonTitle
    property string buttonIcon

    signal buttonAction()

    behind: SecondaryButton {
        objectName: "button"
        title: field.buttonTitle
        icon: field.buttonIcon
        onAction: field.buttonAction()
    }
}
