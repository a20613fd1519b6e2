import QtQuick
import Jotwell

// Makes a note of the text, as Command with Return does.
ShortcutButtonFrame {
    signal createNote()

    icon: "📝"
    text: "Create Note"
    modifier: "⌘"
    key: "⏎"
    keyName: "Return"
    onTap: createNote()
}
