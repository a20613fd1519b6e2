import QtQuick
import Jotwell

// The selected template.
Column {
    id: fields

    required property SimpleObsidianSettingsState screen

    readonly property string name: screen.editingTemplateName
    readonly property string owner: screen.selectedTabId
    readonly property bool isComposing: content.isComposing || nameField.input.inputMethodComposing
    property bool isShowing: false

    signal deleted()

    spacing: 16
    onNameChanged: showName()
    onOwnerChanged: showNameOfAnother()
    onIsComposingChanged: screen.isComposing = isComposing
    Component.onCompleted: showName()

    function showName(): void {
        if (nameField.text === name || nameField.input.inputMethodComposing)
            return
        isShowing = true
        nameField.text = name
        isShowing = false
    }

    // An emptied field can't undo its way back into the name of another template.
    function showNameOfAnother(): void {
        isShowing = true
        nameField.text = ""
        nameField.text = name
        isShowing = false
    }

    CustomTextFieldWithCheckboxAndButton {
        id: nameField

        objectName: "nameField"
        width: parent.width
        title: "Template Name"
        buttonIcon: "trash"
        buttonName: "Delete Template"
        buttonHoverColor: Theme.red
        isTextFieldDisabled: fields.screen.isSynced
        isButtonDisabled: fields.screen.isSynced
        checkboxLabel: "Enable"
        isChecked: fields.screen.showInDropdown
        onTextChanged: {
            if (!fields.isShowing)
                fields.screen.editingTemplateName = text
        }
        onChange: isChecked => {
            fields.screen.showInDropdown = isChecked
            nameField.isChecked = Qt.binding(() => fields.screen.showInDropdown)
        }
        onButtonAction: {
            fields.screen.deleteTemplate()
            fields.deleted()
        }
    }

    Column {
        width: parent.width
        spacing: 6

        CustomTextArea {
            id: area

            objectName: "contentField"
            width: parent.width
            title: "Template"
            placeholder: "Enter template content..."
            minHeight: 160
            maxHeight: 320

            // Behind the text: see TemplateText.
            TemplateText {
                id: content

                document: area.input.textDocument
                text: fields.screen.editingTemplateContent
                owner: fields.owner
                onOwnerChanged: area.input.cursorPosition = 0
                onEdited: newText => fields.screen.editingTemplateContent = newText
            }
        }
        SettingsText {
            objectName: "notice"
            visible: text !== ""
            text: fields.screen.notice
            color: Theme.red
            font.pixelSize: Theme.hintFontSize
            Accessible.role: Accessible.Notification
            Accessible.ignored: !visible
        }
        SettingsText {
            text: "Available placeholders: {{title}}, {{content}}, {{date}}"
            color: Theme.secondaryText
            font.pixelSize: Theme.captionFontSize
        }
    }
}
