import QtQuick
import QtQuick.Window
import Jotwell

// The titled fields at rest, hovered, with the keyboard and disabled.
GallerySection {
    title: "At rest, hovered, focused, a secret, with a button, disabled, of many lines"

    Grid {
        width: parent.width
        columns: 2
        columnSpacing: 16
        rowSpacing: 12

        component Field: CustomTextField {
            width: (parent.width - parent.columnSpacing) / 2
            title: "Template Name"
            placeholder: "Enter template name"
        }

        Field {}
        Field {
            isHovered: true
            icon: "doc.text"
        }
        Field {
            isFocused: true
            text: "Daily"
        }
        Field {
            isSecure: true
            text: "secret"
        }
    }
    CustomTextFieldWithButton {
        width: parent.width
        title: "Vault Path"
        icon: "folder"
        placeholder: "/home/user/Notes"
        buttonTitle: "Browse"
        onButtonAction: Window.window.title = "Browse"
    }
    CustomTextFieldWithCheckboxAndButton {
        width: parent.width
        title: "Template Name"
        text: "Synced from a folder"
        buttonIcon: "trash"
        buttonName: "Delete"
        buttonHoverColor: Theme.red
        isTextFieldDisabled: true
        isButtonDisabled: true
        isChecked: true
        checkboxLabel: "Enable"
    }
    CustomTextArea {
        width: parent.width
        title: "Template"
        text: "# {{title}}\n\n{{content}}\n\n---\nCreated: {{date}}"
        minHeight: 80
        maxHeight: 110
    }
}
