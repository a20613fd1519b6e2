import QtQuick
import QtTest
import Jotwell
import JotwellTest

TestCase {
    id: testCase

    name: "ShortcutRecorderView"
    when: windowShown
    width: 600
    height: 200
    visible: true

    // Places on the keyboard.
    readonly property int keyK: 40
    readonly property int tab: 48

    Component {
        id: benchComponent
        SettingsBench {}
    }

    Component {
        id: viewComponent
        ShortcutRecorderView {
            x: 20
            y: 20
            width: 500
        }
    }

    property var bench
    property var view

    function init() {
        mouseMove(testCase, 5, 5)
        bench = benchComponent.createObject(testCase)
        view = viewComponent.createObject(testCase, { recorder: bench.recorder })
    }

    function cleanup() {
        view.destroy()
        bench.destroy()
        wait(0)
    }

    function part(name) {
        return findChild(view, name)
    }

    function shownKeys() {
        return Array.from(part("caps").keys)
    }

    function press(key, modifiers, keyCode) {
        bench.key(view, true, key, modifiers, keyCode)
    }

    function pressCommandK() {
        press(Qt.Key_K, Qt.ControlModifier, keyK)
    }

    function verifyColor(actual, expected) {
        verify(Qt.colorEqual(actual, expected), actual + " isn't " + expected)
    }

    function test_at_rest() {
        compare(shownKeys(), ["⌥", "⌘", "B"])
        compare(part("caps").size, KeySize.Regular)
        verify(part("recordButton").visible)
        verify(!part("cancelButton").visible)
        verify(!part("saveButton").visible)
        verify(!part("prompt").visible)
        compare(part("recordButton").title, "Record Shortcut")
        compare(part("frame").radius, 8)
        verifyColor(part("frame").color, Qt.alpha(Theme.gray, 0.1))
        compare(part("frame").border.width, 0)
    }

    function test_recording() {
        mouseClick(part("recordButton"))
        verify(bench.recorder.isRecording)
        verify(!part("recordButton").visible)
        verify(part("prompt").visible)
        compare(part("prompt").text, "Press new shortcut...")
        verifyColor(part("prompt").color, Theme.secondaryText)
        compare(part("cancelButton").title, "Cancel")
        compare(part("saveButton").title, "Save")
        verify(part("saveButton").isDisabled)
        compare(part("saveButton").x, part("cancelButton").x + part("cancelButton").width + 8)
        verifyColor(part("frame").color, Qt.alpha(Theme.accent, 0.1))
        compare(part("frame").border.width, 2)
        verifyColor(part("frame").border.color, Theme.accent)
    }

    function test_measures() {
        verify(part("display").width >= 200)
        const button = part("recordButton")
        verify(button.mapToItem(view, 0, 0).x >= part("display").x + part("display").width + 8)
        compare(button.y + button.height / 2, view.height / 2)
        compare(part("display").y + part("display").height / 2, view.height / 2)
        view.width = 10
        compare(part("display").width, 200)
    }

    function test_key_caps_follow_the_keys() {
        mouseClick(part("recordButton"))
        press(Qt.Key_Control, Qt.NoModifier, 55)
        compare(shownKeys(), ["⌘"])
        verify(!part("prompt").visible)
        verify(part("saveButton").isDisabled)
        pressCommandK()
        compare(shownKeys(), ["⌘", "K"])
        verify(!part("saveButton").isDisabled)
        bench.key(view, false, Qt.Key_K, Qt.ControlModifier, keyK)
        bench.key(view, false, Qt.Key_Control, Qt.ControlModifier, 55)
        compare(shownKeys(), ["⌘", "K"])
    }

    function test_saves_by_mouse() {
        mouseClick(part("recordButton"))
        pressCommandK()
        mouseClick(part("saveButton"))
        verify(!bench.recorder.isRecording)
        compare(shownKeys(), ["⌘", "K"])
        compare(bench.hotkeyCode, 11)
        bench.advance(0)
        compare(bench.hotkeyCode, keyK)
        compare(bench.hotkeyModifiers, 0x100000)
    }

    function test_cancels_by_mouse() {
        mouseClick(part("recordButton"))
        pressCommandK()
        mouseClick(part("cancelButton"))
        bench.advance(0)
        compare(shownKeys(), ["⌥", "⌘", "B"])
        compare(bench.hotkeyCode, 11)
    }

    function test_save_is_refused_data() {
        return [
            { tag: "nothing", keys: [] },
            { tag: "modifier alone", keys: [[Qt.Key_Control, Qt.NoModifier, 55]] },
            { tag: "key alone", keys: [[Qt.Key_K, Qt.NoModifier, 40]] },
            { tag: "key of code zero", keys: [[Qt.Key_A, Qt.ControlModifier, 0]] }
        ]
    }

    function test_save_is_refused(data) {
        mouseClick(part("recordButton"))
        for (const [key, modifiers, keyCode] of data.keys)
            press(key, modifiers, keyCode)
        verify(part("saveButton").isDisabled)
        mouseClick(part("saveButton"))
        verify(bench.recorder.isRecording)
    }

    function test_all_by_keyboard() {
        part("recordButton").forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_Return)
        verify(bench.recorder.isRecording)
        verify(part("display").activeFocus)
        pressCommandK()
        press(Qt.Key_Tab, Qt.NoModifier, tab)
        verify(part("cancelButton").activeFocus)
        press(Qt.Key_Tab, Qt.NoModifier, tab)
        verify(part("saveButton").activeFocus)
        verify(bench.recorder.hasFocusedButton)
        keyClick(Qt.Key_Space)
        verify(!bench.recorder.isRecording)
        verify(part("recordButton").activeFocus)
        bench.advance(0)
        compare(bench.hotkeyCode, keyK)
    }

    function test_recorded_key_replaces_while_a_button_has_the_keyboard() {
        part("recordButton").forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_Space)
        press(Qt.Key_Tab, Qt.NoModifier, tab)
        verify(part("cancelButton").activeFocus)
        pressCommandK()
        compare(shownKeys(), ["⌘", "K"])
        keyClick(Qt.Key_Return)
        verify(!bench.recorder.isRecording)
        verify(part("recordButton").activeFocus)
    }

    function test_click_leaves_the_keyboard_where_it_is() {
        testCase.forceActiveFocus()
        mouseClick(part("recordButton"))
        verify(!part("display").activeFocus)
        mouseClick(part("cancelButton"))
        verify(!part("recordButton").activeFocus)
    }

    function test_held_keys_light_up_at_rest_only() {
        view.pressedKeys = ["⌥"]
        compare(part("caps").pressedKeys, ["⌥"])
        mouseClick(part("recordButton"))
        compare(part("caps").pressedKeys, [])
    }

    function test_accessible() {
        const display = part("display")
        compare(display.Accessible.role, Accessible.StaticText)
        compare(display.Accessible.name, "⌥ ⌘ B")
        compare(display.Accessible.description, "Keyboard shortcut")
        part("recordButton").Accessible.pressAction()
        verify(bench.recorder.isRecording)
        compare(display.Accessible.name, "Press new shortcut...")
        compare(display.Accessible.description, "Recording")
        pressCommandK()
        compare(display.Accessible.name, "⌘ K")
        part("saveButton").Accessible.pressAction()
        verify(!bench.recorder.isRecording)
    }
}
