import QtQuick
import QtQuick.Controls.Basic
import Jotwell

// The capture window's field for plain text.
Flickable {
    id: editor

    required property CustomTextEditorCoordinator coordinator
    required property bool isFocused

    boundsBehavior: Flickable.StopAtBounds
    flickableDirection: Flickable.VerticalFlick
    clip: true
    onIsFocusedChanged: if (isFocused) area.forceActiveFocus()

    ScrollBar.vertical: ScrollBar { Accessible.ignored: true }

    TextArea.flickable: TextArea {
        id: area

        objectName: "textArea"
        // Has the keyboard as soon as the window has it, so that no key is ever lost.
        focus: true
        textFormat: TextEdit.PlainText
        wrapMode: editor.coordinator.hasEndlessWord ? TextEdit.WrapAnywhere : TextEdit.Wrap
        selectByMouse: true
        persistentSelection: true
        padding: 5
        background: null
        color: Theme.text
        selectionColor: Theme.selectedTextBackground
        selectedTextColor: Theme.text
        font.pixelSize: Theme.editorFontSize
        placeholderText: editor.coordinator.placeholder
        placeholderTextColor: Theme.secondaryText

        Accessible.name: "Note editor"

        Keys.priority: Keys.BeforeItem
        Keys.onPressed: event => {
            event.accepted = editor.coordinator.handleKey(event.key, event.modifiers, event.isAutoRepeat)
        }
        onFocusChanged: if (!focus) editor.coordinator.endEditing()
        onInputMethodComposingChanged: editor.coordinator.isComposing = inputMethodComposing
        Component.onCompleted: editor.coordinator.attach(textDocument)
    }

    Connections {
        target: editor.coordinator
        function onCursorMoved(position: int): void { area.cursorPosition = position }
    }
}
