import QtQuick
import Jotwell

// A title over a framed field, what stands behind the field in its line, and what stands under it.
Item {
    id: field

    required property string title
    property string icon
    // What takes the keyboard.
    required property Item input

    default property alias content: frame.data
    property alias behind: behindRow.data
    property alias below: belowColumn.data

    readonly property int spacing: 6
    readonly property int behindSpacing: 8
    property bool isHovered: hover.hovered
    property bool isFocused: input.activeFocus
    readonly property int outlineWidth: isFocused ? 2 : 1
    readonly property color outlineColor: isFocused ? Theme.focusStroke
                                                    : isHovered ? Theme.hoveredControlStroke : Theme.controlStroke

    implicitWidth: 240
    implicitHeight: column.implicitHeight

    Column {
        id: column

        width: parent.width
        spacing: field.spacing

        IconAndText {
            objectName: "title"
            width: parent.width
            visible: field.title !== "" || field.icon !== ""
            icon: field.icon
            text: field.title
            color: Theme.secondaryText
            fontSize: Theme.fieldTitleFontSize
            fontWeight: Font.Medium
        }
        Item {
            width: parent.width
            height: Math.max(frame.height, behindRow.height)

            Rectangle {
                id: frame

                objectName: "frame"
                width: parent.width - (behindRow.width > 0 ? behindRow.width + field.behindSpacing : 0)
                height: field.input ? childrenRect.height : 0
                anchors.verticalCenter: parent.verticalCenter
                radius: 8
                color: Theme.textBackground
                border.width: field.outlineWidth
                border.color: field.outlineColor

                HoverHandler { id: hover }
            }
            Row {
                id: behindRow

                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
            }
        }
        Column {
            id: belowColumn

            width: parent.width
            visible: children.length > 0
        }
    }
}
