import QtQuick
import Jotwell

// A box to be checked, with a label if there is one.
PressableControl {
    id: checkbox

    property bool isChecked: false
    property string label

    readonly property int boxSize: 18
    readonly property color boxColor: isChecked ? Theme.accent : Theme.controlBackground
    readonly property color strokeColor: isChecked ? "transparent"
                                                   : isHovered ? Theme.hoveredControlStroke : Theme.controlStroke

    signal change(isChecked: bool)

    accessibleName: label
    scalesOnHover: false
    cornerRadius: 4
    opacity: isDisabled ? 0.5 : 1
    onAction: {
        isChecked = !isChecked
        change(isChecked)
    }

    Accessible.role: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checked: isChecked
    Accessible.onToggleAction: act()

    contentItem: Item {
        implicitWidth: checkbox.boxSize + (caption.visible ? 8 + caption.implicitWidth : 0)
        implicitHeight: Math.max(checkbox.boxSize, caption.visible ? caption.implicitHeight : 0)

        Rectangle {
            objectName: "box"
            anchors.verticalCenter: parent.verticalCenter
            width: checkbox.boxSize
            height: checkbox.boxSize
            radius: checkbox.cornerRadius
            color: checkbox.boxColor
            border.width: 1
            border.color: checkbox.strokeColor

            Symbol {
                objectName: "mark"
                anchors.centerIn: parent
                name: "checkmark"
                color: Theme.white
                fontSize: Theme.badgeFontSize
                opacity: checkbox.isChecked ? 1 : 0

                Behavior on opacity {
                    NumberAnimation {
                        duration: Theme.highlightDuration
                        easing.type: Easing.InOutQuad
                    }
                }
            }
        }
        Text {
            id: caption

            objectName: "label"
            x: checkbox.boxSize + 8
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, Math.max(0, parent.width - x))
            visible: text !== ""
            text: checkbox.label
            textFormat: Text.PlainText
            maximumLineCount: 1
            elide: Text.ElideRight
            color: Theme.text
            font.pixelSize: Theme.checkboxFontSize
            Accessible.ignored: true
        }
    }
}
