import QtQuick
import QtTest
import Jotwell

TestCase {
    id: testCase

    name: "CustomCheckbox"
    when: windowShown
    width: 300
    height: 200
    visible: true

    Component {
        id: checkboxComponent
        CustomCheckbox {
            x: 80
            y: 80
            label: "Enable"
        }
    }

    SignalSpy {
        id: changes
        signalName: "change"
    }

    property var checkbox

    function init() {
        mouseMove(testCase, 5, 5)
        checkbox = createTemporaryObject(checkboxComponent, testCase)
        changes.target = checkbox
        changes.clear()
    }

    function box() {
        return findChild(checkbox, "box")
    }

    function test_measures() {
        compare(box().width, 18)
        compare(box().height, 18)
        compare(box().radius, 4)
        const label = findChild(checkbox, "label")
        compare(label.font.pixelSize, 14)
        compare(label.mapToItem(checkbox, 0, 0).x, 18 + 8)
        verify(Qt.colorEqual(label.color, Theme.text))
        compare(findChild(checkbox, "mark").fontSize, 10)
        compare(box().mapToItem(checkbox, 0, 9).y, checkbox.height / 2)
        checkbox.label = ""
        compare(checkbox.width, 18)
        compare(checkbox.height, 18)
    }

    function test_colours() {
        verify(Qt.colorEqual(box().color, Theme.controlBackground))
        compare(box().border.width, 1)
        verify(Qt.colorEqual(box().border.color, Qt.alpha(Theme.gray, 0.2)))
        mouseMove(checkbox, 40, 5)
        verify(Qt.colorEqual(box().border.color, Qt.alpha(Theme.gray, 0.4)))
        checkbox.isChecked = true
        verify(Qt.colorEqual(box().color, Theme.accent))
        verify(Qt.colorEqual(findChild(checkbox, "mark").color, "white"))
    }

    function test_mark_comes_in_by_opacity() {
        const mark = findChild(checkbox, "mark")
        compare(mark.opacity, 0)
        checkbox.isChecked = true
        tryVerify(() => mark.opacity > 0 && mark.opacity < 1)
        tryCompare(mark, "opacity", 1)
    }

    function test_click_anywhere_toggles_data() {
        return [{ tag: "box", x: 5 }, { tag: "gap", x: 22 }, { tag: "label", x: 40 }]
    }

    function test_click_anywhere_toggles(data) {
        mouseClick(checkbox, data.x, checkbox.height / 2)
        compare(checkbox.isChecked, true)
        compare(changes.count, 1)
        compare(changes.signalArguments[0][0], true)
        mouseClick(checkbox, data.x, checkbox.height / 2)
        compare(checkbox.isChecked, false)
        compare(changes.signalArguments[1][0], false)
    }

    function test_press_scales_and_hover_does_not() {
        mouseMove(checkbox, 5, 5)
        wait(Theme.hoverDuration + 50)
        compare(checkbox.scale, 1)
        mousePress(checkbox)
        tryCompare(checkbox, "scale", 0.95)
        mouseRelease(checkbox)
        tryCompare(checkbox, "scale", 1)
    }

    function test_space_toggles() {
        checkbox.forceActiveFocus(Qt.TabFocusReason)
        verify(findChild(checkbox, "focusRing").visible)
        keyClick(Qt.Key_Space)
        compare(checkbox.isChecked, true)
        keyClick(Qt.Key_Space)
        compare(checkbox.isChecked, false)
        compare(changes.count, 2)
    }

    function test_accessible() {
        compare(checkbox.Accessible.role, Accessible.CheckBox)
        compare(checkbox.Accessible.name, "Enable")
        verify(checkbox.Accessible.checkable)
        verify(!checkbox.Accessible.checked)
        checkbox.Accessible.toggleAction()
        verify(checkbox.isChecked)
        verify(checkbox.Accessible.checked)
        checkbox.Accessible.pressAction()
        verify(!checkbox.Accessible.checked)
        compare(changes.count, 2)
    }

    function test_disabled_does_nothing() {
        checkbox.forceActiveFocus(Qt.TabFocusReason)
        checkbox.isDisabled = true
        mouseClick(checkbox)
        keyClick(Qt.Key_Space)
        checkbox.Accessible.toggleAction()
        compare(checkbox.isChecked, false)
        compare(changes.count, 0)
    }
}
