import QtQuick
import Jotwell

// The keys that do the same as a button, small and behind its text.
Rectangle {
    id: hint

    required property string modifier
    required property string key
    // A modifier that has one stands as a symbol.
    property bool drawsSymbol: false
    required property color foregroundColor

    readonly property int horizontalPadding: 4
    readonly property int verticalPadding: 2
    readonly property bool isSymbol: drawsSymbol && modifier === "⌘"

    implicitWidth: keys.width + 2 * horizontalPadding
    implicitHeight: keyText.height + 2 * verticalPadding
    radius: 4

    Row {
        id: keys

        anchors.centerIn: parent
        spacing: 2

        Symbol {
            objectName: "modifierSymbol"
            anchors.verticalCenter: parent.verticalCenter
            visible: hint.isSymbol
            name: "command"
            color: hint.foregroundColor
            fontSize: Theme.keyHintFontSize
        }
        KeyText {
            objectName: "modifierText"
            visible: !hint.isSymbol
            text: hint.modifier
            color: hint.foregroundColor
        }
        KeyText {
            id: keyText

            objectName: "keyText"
            text: hint.key
            color: hint.foregroundColor
        }
    }

    component KeyText: Text {
        anchors.verticalCenter: parent.verticalCenter
        textFormat: Text.PlainText
        font.pixelSize: Theme.keyHintFontSize
        font.weight: Font.Medium
        Accessible.ignored: true
    }
}
