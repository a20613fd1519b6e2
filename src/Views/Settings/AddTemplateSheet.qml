import QtQuick
import QtQuick.Templates as T
import Jotwell

// A new template is written here before it is one of the others. The keyboard stays in it.
T.Popup {
    id: sheet

    signal save(name: string, content: string)

    parent: T.Overlay.overlay
    anchors.centerIn: parent
    width: Math.min(500, parent ? parent.width : 500)
    height: Math.min(600, parent ? parent.height : 600)
    padding: 16
    modal: true
    focus: true
    closePolicy: T.Popup.CloseOnEscape
    onAboutToShow: {
        nameField.text = ""
        content.text = ""
    }
    // The item behind it can be named to a screen reader only from outside.
    Component.onCompleted: {
        contentItem.parent.Accessible.role = Accessible.Dialog
        contentItem.parent.Accessible.name = heading.text
    }
    onOpened: nameField.input.forceActiveFocus(Qt.PopupFocusReason)

    // The overlay's own size for it is that from before the window was resized.
    T.Overlay.modal: Rectangle {
        anchors.fill: parent
        color: Theme.sheetShade
    }

    background: Rectangle {
        objectName: "sheetBackground"
        radius: 12
        color: Theme.windowBackground
        border.color: Theme.controlStroke
    }

    contentItem: Item {
        objectName: "sheetContent"

        SettingsText {
            id: heading

            text: "Add New Template"
            font.pixelSize: Theme.title2FontSize
            font.weight: Font.DemiBold
            Accessible.role: Accessible.Heading
        }
        CustomTextField {
            id: nameField

            objectName: "newName"
            y: heading.height + 16
            width: parent.width
            title: "Template Name"
            placeholder: "Enter template name"
        }
        CustomTextArea {
            id: contentField

            readonly property int titleHeight: 24

            objectName: "newContent"
            y: nameField.y + nameField.height + 16
            width: parent.width
            title: "Template Content"
            placeholder: "Enter template content..."
            minHeight: Math.max(80, buttons.y - y - titleHeight - 16)
            maxHeight: minHeight

            // As it was entered: see TemplateText.
            TemplateText {
                id: content

                document: contentField.input.textDocument
                onEdited: newText => text = newText
            }
        }
        Row {
            id: buttons

            anchors.right: parent.right
            anchors.bottom: parent.bottom
            spacing: 8

            SecondaryButton {
                objectName: "cancel"
                title: "Cancel"
                onAction: sheet.close()
            }
            CustomAccentButton {
                objectName: "add"
                title: "Add Template"
                onAction: {
                    Qt.inputMethod.commit() // what it has at hand belongs to the template
                    sheet.save(nameField.text, content.text)
                }
            }
        }
    }
}
