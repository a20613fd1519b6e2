pragma ComponentBehavior: Bound

import QtQuick
import Jotwell

// The first line of the panel: which keys do what there, and how many notes were found.
Item {
    id: header

    required property string countText
    // Names of the keys that are held.
    required property list<string> pressedKeys

    readonly property int horizontalPadding: 16
    readonly property int verticalPadding: 8

    implicitHeight: Math.max(hints.height, count.height) + 2 * verticalPadding

    Row {
        id: hints

        objectName: "hints"
        anchors.left: parent.left
        anchors.leftMargin: header.horizontalPadding
        anchors.verticalCenter: parent.verticalCenter
        spacing: 4
        Accessible.role: Accessible.StaticText
        Accessible.name: "Use Tab to switch to notes, ↑↓ to navigate, Enter to open"

        HintText { text: "Use" }
        HintKey {
            key: "Tab"
            isHighlighted: header.pressedKeys.includes("Tab")
        }
        HintText { text: "to switch to notes," }
        HintKey {
            key: "↑↓"
            isHighlighted: header.pressedKeys.includes("↑") || header.pressedKeys.includes("↓")
        }
        HintText { text: "to navigate," }
        HintKey {
            key: "Enter"
            isHighlighted: header.pressedKeys.includes("Enter")
        }
        HintText { text: "to open" }
    }

    HintText {
        id: count

        objectName: "count"
        anchors.right: parent.right
        anchors.rightMargin: header.horizontalPadding
        text: header.countText
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    component HintKey: KeyboardKeyView {
        objectName: "key " + key
        anchors.verticalCenter: parent.verticalCenter
        size: KeySize.Small
        Accessible.ignored: true
    }

    component HintText: Text {
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.secondaryText
        font.pixelSize: Theme.hintFontSize
        textFormat: Text.PlainText
    }
}
