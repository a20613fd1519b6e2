import QtQuick
import Jotwell

// Runs a command, as Command with its number does.
ShortcutButtonFrame {
    required property int shortcutNumber

    modifier: "⌘"
    drawsModifierSymbol: true
    key: shortcutNumber
}
