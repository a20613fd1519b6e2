import QtQuick
import Jotwell

// An icon that can be pressed.
Item {
    id: button

    enum Size { Small, Regular, Large }

    required property string icon
    required property string accessibleName
    property int iconSize: 14
    property color foregroundColor: Theme.text
    property color hoverColor: Theme.text
    property int size: SingleButton.Small
    property bool takesClicks: true

    readonly property bool isHovered: mouse.containsMouse
    readonly property bool isPressed: mouse.pressed
    readonly property int buttonSize: [24, 32, 48][size]
    readonly property int cornerRadius: [4, 6, 8][size]
    readonly property color currentColor: isPressed ? Qt.rgba(hoverColor.r, hoverColor.g, hoverColor.b, 0.8)
                                                    : isHovered ? hoverColor : foregroundColor

    signal action()

    implicitWidth: buttonSize
    implicitHeight: buttonSize
    scale: isPressed ? 0.95 : isHovered ? 1.05 : 1

    Accessible.role: Accessible.Button
    Accessible.name: accessibleName
    Accessible.onPressAction: button.action()

    Behavior on scale {
        NumberAnimation {
            duration: button.isPressed ? Theme.pressDuration : Theme.hoverDuration
            easing.type: Easing.InOutQuad
        }
    }

    Rectangle {
        anchors.fill: parent
        visible: button.isHovered
        radius: button.cornerRadius
        color: Qt.rgba(Theme.gray.r, Theme.gray.g, Theme.gray.b, 0.2)
        border.color: Qt.rgba(Theme.gray.r, Theme.gray.g, Theme.gray.b, 0.3)
    }

    Symbol {
        anchors.centerIn: parent
        name: button.icon
        color: button.currentColor
        fontSize: button.iconSize
    }

    MouseArea {
        id: mouse

        anchors.fill: parent
        enabled: button.takesClicks
        hoverEnabled: true
        cursorShape: Qt.PointingHandCursor
        onClicked: button.action()
    }
}
