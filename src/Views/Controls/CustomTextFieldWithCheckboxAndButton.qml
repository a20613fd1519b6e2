import QtQuick
import Jotwell

// A titled field for one line of text, a button behind it and a checkbox under it.
LineField {
    id: field

    required property string buttonIcon
    // How a screen reader calls the button.
    required property string buttonName
    property color buttonForegroundColor: Theme.text
    property color buttonHoverColor: Theme.text
    property bool isButtonDisabled: false
    property alias isChecked: checkbox.isChecked
    property string checkboxLabel

    signal buttonAction()
    signal change(isChecked: bool)

    behind: SingleButton {
        objectName: "button"
        icon: field.buttonIcon
        accessibleName: field.buttonName
        foregroundColor: field.buttonForegroundColor
        hoverColor: field.buttonHoverColor
        size: SingleButtonSize.Regular
        isDisabled: field.isButtonDisabled
        onAction: field.buttonAction()
    }
    below: CustomCheckbox {
        id: checkbox

        objectName: "checkbox"
        label: field.checkboxLabel
        onChange: isChecked => field.change(isChecked)
    }
}
