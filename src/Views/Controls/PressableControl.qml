import QtQuick
import QtQuick.Templates as T
import Jotwell

// What can be pressed by mouse, keys and a screen reader. A click leaves the keyboard where it is.
// It has no Control's type, since a Control forgets its role when a screen reader comes.
Item {
    id: control

    property string accessibleName
    property bool isDisabled: false
    property bool takesClicks: true
    property real cornerRadius: 0
    property bool scalesOnHover: true
    property int hoverDuration: Theme.hoverDuration

    property bool isHovered: press.isHovered && enabled
    property bool isPressed: press.isPressed || isKeyHeld
    property bool isFocusShown: activeFocus
    readonly property int scaleDuration: isPressed ? Theme.pressDuration : hoverDuration
    property bool isKeyHeld: false

    property alias background: frame.background
    property alias contentItem: frame.contentItem
    property alias horizontalPadding: frame.horizontalPadding
    property alias verticalPadding: frame.verticalPadding

    signal action()

    enabled: !isDisabled
    activeFocusOnTab: takesClicks
    implicitWidth: frame.implicitContentWidth + frame.leftPadding + frame.rightPadding
    implicitHeight: frame.implicitContentHeight + frame.topPadding + frame.bottomPadding
    scale: isPressed ? 0.95 : isHovered && scalesOnHover ? 1.05 : 1

    Accessible.role: Accessible.Button
    Accessible.name: accessibleName
    Accessible.description: isDisabled ? "Disabled" : ""
    Accessible.focusable: takesClicks && !isDisabled
    Accessible.onPressAction: act()

    Keys.onPressed: event => {
        const isPlain = !(event.modifiers & ~Qt.KeypadModifier)
        if (!isPlain || ![Qt.Key_Space, Qt.Key_Return, Qt.Key_Enter].includes(event.key))
            return
        event.accepted = true
        if (event.isAutoRepeat)
            return
        if (event.key === Qt.Key_Space)
            isKeyHeld = true
        else
            act()
    }
    Keys.onReleased: event => {
        if (event.key !== Qt.Key_Space || event.isAutoRepeat || !isKeyHeld)
            return
        event.accepted = true
        isKeyHeld = false
        act()
    }
    onActiveFocusChanged: isKeyHeld = false
    onEnabledChanged: isKeyHeld = false

    function act(): void {
        if (enabled)
            action()
    }

    Behavior on scale {
        NumberAnimation {
            duration: control.scaleDuration
            easing.type: Easing.InOutQuad
        }
    }

    T.Control {
        id: frame

        anchors.fill: parent
        hoverEnabled: false
        focusPolicy: Qt.NoFocus
        Accessible.ignored: true
    }

    PressEventModifier {
        id: press

        enabled: control.takesClicks
        z: 1
        onClicked: control.act()
    }

    FocusRing {
        visible: control.isFocusShown
        cornerRadius: control.cornerRadius
    }
}
