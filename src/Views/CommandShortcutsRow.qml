pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Jotwell

// A button for each command, in equal widths.
Item {
    id: row

    required property CommandShortcutsRowState shortcuts
    // Those of what the row lies on.
    property ThemeColors colors: Theme

    readonly property int horizontalPadding: 12
    readonly property int verticalPadding: 8

    implicitWidth: buttons.implicitWidth + 2 * horizontalPadding
    implicitHeight: buttons.implicitHeight + 2 * verticalPadding

    RowLayout {
        id: buttons

        x: row.horizontalPadding
        y: row.verticalPadding
        width: row.width - 2 * row.horizontalPadding
        spacing: 8

        CreateNoteInlineButton {
            objectName: "createNoteButton"
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            visible: row.shortcuts.showCreateNoteButton
            colors: row.colors
            onCreateNote: row.shortcuts.createNote()
        }

        Repeater {
            model: row.shortcuts

            CommandShortcutButton {
                objectName: text
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                colors: row.colors
                onTap: row.shortcuts.select(shortcutNumber)
            }
        }
    }
}
