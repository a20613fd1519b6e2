import QtQuick
import Jotwell

// The present shortcut on key caps, or what is being recorded, and the buttons to record another.
Item {
    id: view

    required property ShortcutRecorderState recorder
    // Names as on the caps.
    property var pressedKeys: []

    readonly property int padding: 8
    readonly property int displayPadding: 12
    readonly property int spacing: 8
    readonly property int leastDisplayWidth: 200
    readonly property real buttonsWidth: recorder.isRecording ? recordingButtons.width : recordButton.width

    implicitWidth: leastDisplayWidth + spacing + buttonsWidth + displayPadding + padding
    implicitHeight: recordButton.height + 2 * padding

    // The keyboard stays with the recorder, but on no button that a recorded key would work.
    function start(): void {
        const hadFocus = recordButton.activeFocus
        recorder.startRecording()
        if (hadFocus)
            display.forceActiveFocus(Qt.OtherFocusReason)
    }

    function finish(end: var): void {
        const hadFocus = display.activeFocus || recorder.hasFocusedButton
        end()
        if (hadFocus)
            recordButton.forceActiveFocus(Qt.TabFocusReason)
    }

    Binding {
        target: view.recorder
        property: "hasFocusedButton"
        value: cancelButton.activeFocus || saveButton.activeFocus
    }

    Rectangle {
        objectName: "frame"
        anchors.fill: parent
        radius: 8
        color: view.recorder.isRecording ? Theme.accentTint : Theme.buttonBackground
        border.width: view.recorder.isRecording ? 2 : 0
        border.color: Theme.accentMark
    }

    Item {
        id: display

        objectName: "display"
        anchors.verticalCenter: parent.verticalCenter
        x: view.displayPadding
        width: Math.max(view.leastDisplayWidth,
                        view.width - view.displayPadding - view.padding - view.spacing
                        - view.buttonsWidth)
        height: caps.height
        // A stop of the keyboard, as Tab goes astray from an item that is none.
        activeFocusOnTab: activeFocus || view.recorder.isRecording

        Accessible.role: Accessible.StaticText
        Accessible.name: view.recorder.isWaiting ? prompt.text
                                                 : Array.from(view.recorder.keys).map(key => KeyCaps.text(key)).join(" ")
        Accessible.description: view.recorder.isRecording ? "Recording" : "Keyboard shortcut"
        Accessible.focusable: view.recorder.isRecording

        Text {
            id: prompt

            objectName: "prompt"
            anchors.verticalCenter: parent.verticalCenter
            visible: view.recorder.isWaiting
            text: "Press new shortcut..."
            color: Theme.secondaryText
            font.pixelSize: Theme.bodyFontSize
            Accessible.ignored: true
        }
        KeyboardShortcutView {
            id: caps

            objectName: "caps"
            anchors.verticalCenter: parent.verticalCenter
            keys: view.recorder.keys
            pressedKeys: view.recorder.isRecording ? [] : view.pressedKeys
        }
    }

    SecondaryButton {
        id: recordButton

        objectName: "recordButton"
        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        anchors.rightMargin: view.padding
        visible: !view.recorder.isRecording
        title: "Record Shortcut"
        onAction: view.start()
    }
    Row {
        id: recordingButtons

        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        anchors.rightMargin: view.padding
        spacing: view.spacing
        visible: view.recorder.isRecording

        SecondaryButton {
            id: cancelButton

            objectName: "cancelButton"
            title: "Cancel"
            onAction: view.finish(() => view.recorder.cancelRecording())
        }
        SecondaryButton {
            id: saveButton

            objectName: "saveButton"
            title: "Save"
            isDisabled: !view.recorder.canSave
            onAction: view.finish(() => view.recorder.saveShortcut())
        }
    }
}
