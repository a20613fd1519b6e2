import QtQuick
import QtTest
import Jotwell
import JotwellTest

EditorTestCase {
    id: testCase

    name: "CustomTextEditor"

    function test_typing_goes_into_the_state_at_each_change() {
        keyClick("a")
        compare(bench.text, "a")
        keyClick("b")
        compare(bench.text, "ab")
        keyClick(Qt.Key_Backspace)
        compare(bench.text, "a")
    }

    function test_return_makes_a_new_line() {
        type("one")
        keyClick(Qt.Key_Return)
        type("two")
        compare(bench.text, "one\ntwo")
        compare(bench.toastCount, 0)
    }

    function test_ctrl_return_runs_the_command_and_is_used_up() {
        type("Call Ada /new_note")
        keyClick(Qt.Key_Return, Qt.ControlModifier)
        tryVerify(() => bench.noteCount === 1)
        tryCompare(area, "text", "")
        compare(bench.text, "")
    }

    function test_ctrl_return_of_a_failing_command_keeps_the_text() {
        type("Call Ada")
        keyClick(Qt.Key_Return, Qt.ControlModifier)
        compare(bench.view.showErrorBorder, true)
        compare(area.text, "Call Ada")
        compare(bench.text, "Call Ada")
    }

    function test_ctrl_return_runs_it_with_other_modifiers_too() {
        keyClick(Qt.Key_Return, Qt.ControlModifier | Qt.AltModifier)
        compare(bench.view.showErrorBorder, true)
    }

    function test_keypad_enter_runs_it_too() {
        keyClick(Qt.Key_Enter, Qt.ControlModifier)
        compare(bench.view.showErrorBorder, true)
    }

    function test_undo_takes_back_ten_characters() {
        type("abcdefghij")
        compare(bench.text, "abcdefghij")
        keySequence(StandardKey.Undo)
        compare(area.text, "")
        compare(bench.text, "")
        keySequence(StandardKey.Redo)
        compare(bench.text, "abcdefghij")
    }

    function test_undo_brings_back_what_a_command_has_cleared() {
        type("Call Ada /new_note")
        keyClick(Qt.Key_Return, Qt.ControlModifier)
        tryCompare(area, "text", "")
        keySequence(StandardKey.Undo)
        compare(area.text, "Call Ada /new_note  $Default")
        compare(bench.text, "Call Ada /new_note  $Default")
    }

    function test_forced_update_puts_the_cursor_at_the_end() {
        type("abc")
        area.cursorPosition = 1
        bench.text = "/recent  $All Folders "
        compare(area.text, "abc")
        bench.forceTextUpdate = true
        compare(area.text, "/recent  $All Folders ")
        compare(area.cursorPosition, 22)
    }

    function test_force_flag_is_cleared_on_a_later_turn() {
        bench.text = "abc"
        bench.forceTextUpdate = true
        compare(bench.forceTextUpdate, true)
        bench.advance(0)
        compare(bench.forceTextUpdate, false)
    }

    function test_change_from_outside_waits_for_the_user_to_stop() {
        bench.text = "first"
        compare(area.text, "first")
        type("!")
        bench.text = "second"
        compare(area.text, "first!")
    }

    function test_editing_ends_with_the_focus() {
        type("abc")
        area.focus = false
        bench.text = "outside"
        compare(area.text, "outside")
    }

    function test_placeholder_data() {
        return [
            { tag: "empty", keys: "", preedit: "", visible: true },
            { tag: "text", keys: "a", preedit: "", visible: false },
            { tag: "composing", keys: "", preedit: "ni", visible: false }
        ]
    }

    function test_placeholder(data) {
        type(data.keys)
        if (data.preedit !== "")
            bench.compose(data.preedit)
        compare(area.placeholderText, "What's on your mind right now?")
        compare(area.placeholderTextColor, Theme.secondaryText)
        compare(placeholderItem().visible, data.visible)
    }

    function placeholderItem() {
        for (let i = 0; i < area.children.length; ++i) {
            if (area.children[i].text === area.placeholderText)
                return area.children[i]
        }
        return null
    }

    function test_looks() {
        compare(area.font.pixelSize, 14)
        for (const side of ["left", "top", "right", "bottom"])
            compare(area[side + "Padding"], 5)
        compare(area.textFormat, TextEdit.PlainText)
        compare(area.Accessible.name, "Note editor")
    }

    function test_long_text_scrolls_with_the_cursor() {
        for (let i = 0; i < 40; ++i)
            keyClick(Qt.Key_Return)
        tryVerify(() => editor.contentY > 0)
        verify(area.cursorRectangle.y + area.cursorRectangle.height <= editor.contentY + editor.height + 1)
    }

    function test_endless_word_is_wrapped_anywhere() {
        compare(area.wrapMode, TextEdit.Wrap)
        bench.text = "a".repeat(4000)
        compare(area.wrapMode, TextEdit.WrapAnywhere)
        bench.text = "words"
        compare(area.wrapMode, TextEdit.Wrap)
    }

    function test_pasted_text_is_plain_and_parsed() {
        bench.copyToClipboard("<b>/re</b>", "/re")
        keySequence(StandardKey.Paste)
        compare(bench.text, "/re")
        compare(bench.view.showDropdown, true)
    }
}
