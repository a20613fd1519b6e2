import QtQuick
import QtTest

EditorTestCase {
    id: testCase

    name: "EditorTokens"

    function test_slash_opens_the_commands() {
        type("/")
        compare(bench.view.showDropdown, true)
        bench.advance(0)
        compare(bench.view.dropdown.rowCount(), 3)
        compare(bench.view.dropdown.selectedIndex, 0)
    }

    function test_arrows_move_the_selection_of_an_open_list() {
        type("/")
        keyClick(Qt.Key_Down)
        bench.advance(0)
        compare(bench.view.dropdown.selectedIndex, 1)
        keyClick(Qt.Key_Up)
        keyClick(Qt.Key_Up)
        bench.advance(0)
        compare(bench.view.dropdown.selectedIndex, 0)
        compare(area.cursorPosition, 1)
    }

    function test_arrows_move_the_cursor_without_a_list() {
        type("one")
        keyClick(Qt.Key_Return)
        type("two")
        keyClick(Qt.Key_Up)
        compare(area.cursorPosition, 3)
        keyClick(Qt.Key_Down)
        compare(area.cursorPosition, 7)
    }

    function test_return_chooses_from_an_open_list() {
        type("/ne")
        keyClick(Qt.Key_Return)
        compare(area.text, "/new_note  $Default")
        compare(bench.text, "/new_note  $Default")
        compare(area.cursorPosition, area.text.length)
        compare(bench.view.showDropdown, false)
        type(" milk")
        compare(bench.text, "/new_note  $Default milk")
    }

    function test_shift_return_makes_a_new_line_like_any_other() {
        type("one")
        keyClick(Qt.Key_Return, Qt.ShiftModifier)
        type("two")
        compare(bench.text, "one\ntwo")
    }

    function test_shift_return_replaces_the_selection() {
        type("one two")
        area.select(3, 4)
        keyClick(Qt.Key_Return, Qt.ShiftModifier)
        compare(bench.text, "one\ntwo")
        compare(area.cursorPosition, 4)
    }

    function test_ctrl_return_runs_the_command_with_a_list_open() {
        type("/")
        compare(bench.view.showDropdown, true)
        keyClick(Qt.Key_Return, Qt.ControlModifier)
        compare(bench.view.showErrorBorder, true)
        compare(area.text, "/")
    }

    function test_tab_is_used_up() {
        type("a")
        keyClick(Qt.Key_Tab)
        compare(area.text, "a")
        verify(area.activeFocus)
    }

    function test_backspace_data() {
        return [
            { tag: "behind a command", text: "x /zebra", cursor: 8, key: Qt.Key_Backspace, modifiers: Qt.NoModifier, result: "x " },
            { tag: "inside it", text: "x /zebra", cursor: 5, key: Qt.Key_Backspace, modifiers: Qt.NoModifier, result: "x " },
            { tag: "before it", text: "x /zebra", cursor: 2, key: Qt.Key_Backspace, modifiers: Qt.NoModifier, result: "x " },
            { tag: "with shift", text: "x /zebra", cursor: 8, key: Qt.Key_Backspace, modifiers: Qt.ShiftModifier, result: "x " },
            { tag: "in a word with a slash", text: "and/or", cursor: 6, key: Qt.Key_Backspace, modifiers: Qt.NoModifier, result: "and" },
            { tag: "elsewhere", text: "x /zebra y", cursor: 10, key: Qt.Key_Backspace, modifiers: Qt.NoModifier, result: "x /zebra " },
            { tag: "delete forwards", text: "x /zebra", cursor: 2, key: Qt.Key_Delete, modifiers: Qt.NoModifier, result: "x zebra" }
        ]
    }

    function test_backspace(data) {
        bench.text = data.text
        area.cursorPosition = data.cursor
        keyClick(data.key, data.modifiers)
        compare(area.text, data.result)
        compare(bench.text, data.result)
    }

    function test_backspace_with_a_selection_deletes_only_that() {
        bench.text = "x /zebra"
        area.select(4, 6)
        keyClick(Qt.Key_Backspace)
        compare(bench.text, "x /zra")
    }

    function test_deleted_command_comes_back_by_undo() {
        bench.text = "x /zebra"
        area.cursorPosition = 8
        keyClick(Qt.Key_Backspace)
        compare(area.cursorPosition, 2)
        keySequence(StandardKey.Undo)
        compare(bench.text, "x /zebra")
    }

    function test_rewrite_is_undone_with_the_edit_before_it() {
        type("hello /recent")
        compare(bench.text, "hello /recent  $All Folders")
        keySequence(StandardKey.Undo)
        compare(bench.text.includes("$"), false)
        compare(bench.text.includes("/recent"), false)
        compare(area.text, bench.text)
        keySequence(StandardKey.Redo)
        compare(bench.text, "hello /recent  $All Folders")
        compare(area.text, bench.text)
    }

    function test_chosen_row_is_undone_by_itself() {
        type("hello /se")
        keyClick(Qt.Key_Return)
        compare(bench.text, "hello /search_notes")
        type(" cats")
        keySequence(StandardKey.Undo)
        compare(bench.text, "hello /search_notes")
        keySequence(StandardKey.Undo)
        compare(bench.text, "hello /se")
        compare(bench.view.showDropdown, true)
    }
}
