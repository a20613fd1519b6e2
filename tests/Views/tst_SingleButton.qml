import QtQuick
import QtTest
import Jotwell

TestCase {
    id: testCase

    name: "SingleButton"
    when: windowShown
    width: 200
    height: 200
    visible: true

    Component {
        id: buttonComponent
        SingleButton {
            x: 80
            y: 80
            icon: "xmark"
            accessibleName: "Dismiss"
            foregroundColor: "#80000000"
            hoverColor: "#ff0000"
        }
    }

    Component {
        id: otherComponent
        FocusScope {
            width: 10
            height: 10
            activeFocusOnTab: true
        }
    }

    SignalSpy {
        id: actions
        signalName: "action"
    }

    property var button

    function init() {
        mouseMove(testCase, 5, 5)
        button = createTemporaryObject(buttonComponent, testCase)
        actions.target = button
        actions.clear()
    }

    function background() {
        return findChild(button, "buttonBackground")
    }

    function test_sizes_data() {
        return [
            { tag: "small", size: SingleButtonSize.Small, edge: 24, radius: 4 },
            { tag: "regular", size: SingleButtonSize.Regular, edge: 32, radius: 6 },
            { tag: "large", size: SingleButtonSize.Large, edge: 48, radius: 8 }
        ]
    }

    function test_sizes(data) {
        button.size = data.size
        compare(button.width, data.edge)
        compare(button.height, data.edge)
        compare(background().radius, data.radius)
        compare(background().width, data.edge)
    }

    function test_icon_stands_in_the_middle() {
        button.iconSize = 12
        const icon = findChild(button, "icon")
        compare(icon.name, "xmark")
        compare(icon.fontSize, 12)
        const middle = icon.mapToItem(button, icon.width / 2, icon.height / 2)
        fuzzyCompare(middle.x, 12, 0.51)
        fuzzyCompare(middle.y, 12, 0.51)
    }

    function test_hover_and_press() {
        verify(Qt.colorEqual(button.currentColor, "#80000000"))
        verify(!background().visible)
        mouseMove(button, 10, 10)
        verify(Qt.colorEqual(button.currentColor, "#ff0000"))
        verify(Qt.colorEqual(background().color, Theme.hoveredButtonBackground))
        verify(Qt.colorEqual(background().border.color, Theme.keyStroke))
        verify(background().visible)
        tryCompare(button, "scale", 1.05)
        mousePress(button)
        verify(button.isHovered && button.isPressed)
        verify(Qt.colorEqual(button.currentColor, "#ccff0000"))
        tryCompare(button, "scale", 0.95)
        compare(actions.count, 0)
        mouseRelease(button)
        compare(actions.count, 1)
        tryCompare(button, "scale", 1.05)
        mouseMove(testCase, 5, 5)
        tryCompare(button, "scale", 1)
    }

    function test_scales_about_its_centre_in_these_times() {
        compare(button.transformOrigin, Item.Center)
        compare(button.scaleDuration, 200)
        mousePress(button)
        compare(button.scaleDuration, 100)
        mouseRelease(button)
    }

    function mouseAreaIn(item) {
        for (const child of Array.from(item.children)) {
            const found = child instanceof MouseArea ? child : mouseAreaIn(child)
            if (found)
                return found
        }
        return null
    }

    function test_the_pointer_is_a_hand_over_it() {
        compare(mouseAreaIn(button).cursorShape, Qt.PointingHandCursor)
    }

    function test_press_that_ends_elsewhere_is_none() {
        mousePress(button)
        mouseMove(testCase, 5, 5)
        verify(button.isPressed)
        mouseRelease(testCase, 5, 5)
        verify(!button.isPressed)
        compare(actions.count, 0)
    }

    function test_click_leaves_the_keyboard_where_it_is() {
        const other = createTemporaryObject(otherComponent, testCase)
        other.forceActiveFocus()
        mouseClick(button)
        compare(actions.count, 1)
        verify(other.activeFocus)
    }

    function test_tab_shows_the_focus() {
        const ring = findChild(button, "focusRing")
        verify(!ring.visible)
        const other = createTemporaryObject(otherComponent, testCase)
        other.forceActiveFocus()
        keyClick(Qt.Key_Tab)
        verify(button.activeFocus)
        verify(ring.visible)
        compare(ring.border.width, 2)
        verify(Qt.colorEqual(ring.border.color, Theme.focusStroke))
    }

    function test_keys_press_data() {
        return [{ tag: "Space", key: Qt.Key_Space }, { tag: "Return", key: Qt.Key_Return },
                { tag: "Enter", key: Qt.Key_Enter }]
    }

    function test_keys_press(data) {
        button.forceActiveFocus(Qt.TabFocusReason)
        keyClick(data.key)
        compare(actions.count, 1)
        keyClick(data.key, Qt.ControlModifier)
        compare(actions.count, 1)
    }

    function test_held_space_shows_the_press() {
        button.forceActiveFocus(Qt.TabFocusReason)
        keyPress(Qt.Key_Space)
        verify(button.isPressed)
        compare(actions.count, 0)
        button.focus = false
        verify(!button.isPressed)
        keyRelease(Qt.Key_Space)
        compare(actions.count, 0)
    }

    function test_disabled_does_nothing() {
        button.forceActiveFocus(Qt.TabFocusReason)
        button.isDisabled = true
        mouseClick(button)
        keyClick(Qt.Key_Space)
        button.Accessible.pressAction()
        compare(actions.count, 0)
        compare(button.scale, 1)
    }

    function test_hidden_while_pressed_is_released() {
        mousePress(button)
        button.visible = false
        verify(!button.isPressed)
        button.visible = true
        verify(!button.isPressed)
        mouseRelease(button)
        compare(actions.count, 0)
    }

    function test_accessible_press() {
        compare(button.Accessible.role, Accessible.Button)
        compare(button.Accessible.name, "Dismiss")
        button.Accessible.pressAction()
        compare(actions.count, 1)
    }
}
