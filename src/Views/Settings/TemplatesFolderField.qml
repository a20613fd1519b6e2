import QtQuick
import Jotwell

// The folder that templates are synced from.
Column {
    id: part

    required property SimpleObsidianSettingsState screen

    readonly property string path: screen.templatesFolderPath

    spacing: 8
    onPathChanged: showPath()
    Component.onCompleted: showPath()

    function showPath(): void {
        if (field.text !== path)
            field.text = path
    }

    SettingsText {
        text: "Sync templates from a folder with Jotwell"
        font.pixelSize: Theme.headlineFontSize
        font.weight: Font.DemiBold
        Accessible.role: Accessible.Heading
    }
    CustomTextFieldWithButton {
        id: field

        objectName: "folderField"
        width: parent.width
        title: "Path to a templates folder (optional)"
        buttonTitle: "Browse"
        onTextChanged: part.screen.templatesFolderPath = text
        onButtonAction: part.screen.chooseTemplatesFolder(Window.window)
    }
}
