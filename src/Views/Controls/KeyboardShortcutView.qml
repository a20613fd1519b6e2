pragma ComponentBehavior: Bound

import QtQuick
import Jotwell

// Keys side by side, given as lists of texts; those that are held are lit.
Row {
    id: shortcut

    property var keys: []
    property int size: KeySize.Regular
    property var pressedKeys: []

    spacing: 4

    Repeater {
        model: shortcut.keys

        KeyboardKeyView {
            required property string modelData

            anchors.verticalCenter: shortcut.verticalCenter
            key: modelData
            size: shortcut.size
            isHighlighted: shortcut.pressedKeys.includes(modelData)
        }
    }
}
