import QtQuick
import Jotwell

// One line of text behind a symbol, if there is one; as much of the text as there is room for.
Item {
    id: line

    property string icon
    property int iconSize: fontSize
    required property string text
    required property color color
    required property int fontSize
    property int fontWeight: Font.Normal

    readonly property int spacing: 6
    readonly property real textX: symbol.visible ? symbol.width + spacing : 0

    implicitWidth: textX + label.implicitWidth
    implicitHeight: Math.max(label.implicitHeight, symbol.visible ? symbol.height : 0)

    Symbol {
        id: symbol

        objectName: "icon"
        anchors.verticalCenter: parent.verticalCenter
        visible: line.icon !== ""
        name: line.icon
        color: line.color
        fontSize: line.iconSize
    }
    Text {
        id: label

        objectName: "text"
        x: line.textX
        anchors.verticalCenter: parent.verticalCenter
        width: Math.max(0, line.width - x)
        text: line.text
        textFormat: Text.PlainText
        maximumLineCount: 1
        elide: Text.ElideRight
        color: line.color
        font.pixelSize: line.fontSize
        font.weight: line.fontWeight
        Accessible.ignored: true
    }
}
