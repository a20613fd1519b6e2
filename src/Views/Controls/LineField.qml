import QtQuick
import QtQuick.Controls.Basic
import Jotwell

// A titled field for one line of text.
TitledField {
    id: field

    property alias text: line.text
    property string placeholder
    property bool isTextFieldDisabled: false
    property alias textFieldFocused: line.focus
    property alias echoMode: line.echoMode

    // Return was pressed in the field.
    signal commit()
    // That too, or the keyboard has gone elsewhere; not with the whole window.
    signal editingEnd()

    input: line

    function selectAll(): void {
        line.selectAll()
    }

    TextField {
        id: line

        objectName: "input"
        width: parent.width
        leftPadding: 12
        rightPadding: 12
        topPadding: 10
        bottomPadding: 10
        enabled: !field.isTextFieldDisabled
        selectByMouse: true
        background: null
        color: enabled ? Theme.text : Theme.grayText
        selectionColor: Theme.selectedTextBackground
        selectedTextColor: Theme.text
        font.pixelSize: Theme.fieldFontSize
        placeholderText: field.placeholder
        placeholderTextColor: Theme.placeholderText
        onAccepted: field.commit()
        onEditingFinished: {
            if (Window.active)
                field.editingEnd()
        }

        Accessible.name: field.title
        Accessible.description: field.placeholder
        Accessible.passwordEdit: echoMode === TextInput.Password
    }
}
