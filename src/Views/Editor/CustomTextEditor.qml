import QtQuick
import QtQuick.Controls.Basic
import Jotwell

// The capture window's field for plain text, with its tokens as chips.
Flickable {
    id: field

    required property CustomTextEditorState editor
    // Those of the ground that it lies on.
    property ThemeColors colors: Theme

    boundsBehavior: Flickable.StopAtBounds
    flickableDirection: Flickable.VerticalFlick
    clip: true

    ScrollBar.vertical: ScrollBar { Accessible.ignored: true }

    TextAreaEvents {
        id: events

        editor: field.editor
        commandColor: field.colors.commandToken
        parameterColor: field.colors.parameterToken
    }

    TextArea.flickable: TextArea {
        id: area

        objectName: "textArea"
        // Has the keyboard as soon as the window has it, so that no key is ever lost.
        focus: true
        textFormat: TextEdit.PlainText
        wrapMode: field.editor.hasEndlessWord ? TextEdit.WrapAnywhere : TextEdit.Wrap
        selectByMouse: true
        persistentSelection: true
        padding: 5
        leftPadding: padding
        rightPadding: padding
        background: null
        color: field.colors.text
        selectionColor: field.colors.selectedTextBackground
        selectedTextColor: field.colors.text
        font.pixelSize: Theme.editorFontSize
        placeholderText: field.editor.placeholder
        placeholderTextColor: field.colors.placeholderText

        Accessible.name: "Note editor"

        Keys.priority: Keys.BeforeItem
        Keys.onPressed: event => {
            event.accepted = events.keyPressed(event.key, event.modifiers, event.isAutoRepeat)
        }
        onFocusChanged: if (!focus) events.editingEnded()
        Component.onCompleted: events.attach(area)

        // The tint of a chip is doubled: once under its text and once over it.
        component Chips: ChipBackground {
            y: field.contentY
            width: area.width
            height: field.height
            editor: field.editor
            commandColor: field.colors.commandChip
            parameterColor: field.colors.parameterChip
        }

        Chips {
            objectName: "chipsUnderText"
            z: -1
        }
        Chips {
            objectName: "chipsOverText"
            z: 1
        }

        MouseArea {
            anchors.fill: parent
            z: 2
            hoverEnabled: true
            preventStealing: true // not for the dragging of the window
            acceptedButtons: Qt.LeftButton
            cursorShape: events.isOverChip ? Qt.PointingHandCursor : Qt.IBeamCursor
            onPressed: mouse => {
                const point = Qt.point(mouse.x, mouse.y)
                mouse.accepted = events.mousePressed(point)
                                 || (mouse.modifiers === Qt.NoModifier && textDrag.mousePressed(point))
            }
            onPositionChanged: mouse => {
                const point = Qt.point(mouse.x, mouse.y)
                events.mouseMoved(point)
                textDrag.mouseMoved(point)
            }
            onReleased: mouse => textDrag.mouseReleased(Qt.point(mouse.x, mouse.y))
            onEntered: events.mouseMoved(Qt.point(mouseX, mouseY))
            onExited: events.mouseExited()
        }

        TextDrag {
            id: textDrag
            editor: field.editor
        }

        DropArea {
            id: dropArea

            anchors.fill: parent
            keys: ["text/plain"]
            onDropped: drop => {
                if (textDrag.drop(Qt.point(drop.x, drop.y), drop.text, drop.proposedAction))
                    drop.acceptProposedAction()
            }

            // Where the text would go.
            Rectangle {
                readonly property rect place: area.positionToRectangle(area.positionAt(dropArea.drag.x, dropArea.drag.y))

                visible: dropArea.containsDrag
                x: place.x
                y: place.y
                width: 1
                height: place.height
                color: field.colors.text
            }
        }
    }
}
