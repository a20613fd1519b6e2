import QtQuick
import Jotwell

// A symbol that can be pressed.
PressableControl {
    id: button

    required property string icon
    property int iconSize: 14
    property color foregroundColor: Theme.text
    property color hoverColor: Theme.text
    property int size: SingleButtonSize.Small

    readonly property int buttonSize: measures.buttonSize
    readonly property color currentColor: isPressed ? Qt.alpha(hoverColor, 0.8 * hoverColor.a)
                                                    : isHovered ? hoverColor : foregroundColor
    readonly property SingleButtonSize measures: SingleButtonSize { value: button.size }

    implicitWidth: buttonSize
    implicitHeight: buttonSize
    cornerRadius: measures.cornerRadius
    hoverDuration: Theme.iconHoverDuration
    opacity: isDisabled ? 0.5 : 1

    background: Rectangle {
        objectName: "buttonBackground"
        visible: button.isHovered || button.isPressed
        radius: button.cornerRadius
        color: Theme.hoveredButtonBackground
        border.color: Theme.keyStroke
    }

    contentItem: Item {
        Symbol {
            objectName: "icon"
            anchors.centerIn: parent
            name: button.icon
            color: button.currentColor
            fontSize: button.iconSize
        }
    }
}
