import QtQuick
import QtTest
import Jotwell
import JotwellTest

TestCase {
    id: testCase

    name: "CustomTextEditor"
    when: windowShown
    width: 800
    height: 164
    visible: true

    Component {
        id: benchComponent
        ViewBench {}
    }

    Component {
        id: editorComponent
        CustomTextEditor {
            anchors.fill: parent
        }
    }

    property var bench
    property var editor
    property var area

    function init() {
        bench = benchComponent.createObject(testCase)
        editor = editorComponent.createObject(testCase, { editor: bench.editor })
        area = findChild(editor, "textArea")
        area.forceActiveFocus()
        verify(area.activeFocus)
    }

    function cleanup() {
        editor.destroy()
        bench.destroy()
    }

    function type(text) {
        for (const character of text)
            keyClick(character)
    }

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

    function test_composition_is_kept_and_not_sent() {
        type("x")
        bench.compose("ni")
        compare(bench.text, "x")
        keyClick(Qt.Key_Return, Qt.ControlModifier)
        compare(bench.view.showErrorBorder, false)
        compare(area.preeditText, "ni")
        bench.compose("", "\u4f60")
        compare(bench.text, "x\u4f60")
    }

    function test_nothing_rewrites_during_a_composition() {
        type("x")
        bench.compose("ni")
        bench.text = "from outside"
        bench.forceTextUpdate = true
        compare(area.text, "x")
        compare(area.preeditText, "ni")
        bench.compose("", "\u4f60")
        compare(bench.text, "from outside\u4f60")
        compare(area.text, "from outside\u4f60")
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

    // Tokens

    // The middle of a piece of the text.
    function middleOf(piece) {
        const start = area.text.indexOf(piece)
        verify(start >= 0, piece)
        const first = area.positionToRectangle(start)
        const last = area.positionToRectangle(start + piece.length)
        return Qt.point((first.x + last.x) / 2, first.y + first.height / 2)
    }

    function click(piece) {
        const place = middleOf(piece)
        mouseClick(area, place.x, place.y)
    }

    function chipMouse() {
        for (let i = 0; i < area.children.length; ++i) {
            if (area.children[i].cursorShape !== undefined && area.children[i].hoverEnabled)
                return area.children[i]
        }
        return null
    }

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

    function test_click_on_a_chip_opens_its_list_and_leaves_the_cursor() {
        type("/ne")
        keyClick(Qt.Key_Return)
        type(" milk")
        area.cursorPosition = 21
        bench.advance(0)
        click("$Default")
        compare(bench.view.showDropdown, true)
        compare(area.cursorPosition, 21)
        compare(area.selectedText, "")
        bench.advance(0)
        compare(bench.view.dropdown.rowCount(), 3)
        keyClick(Qt.Key_Down)
        keyClick(Qt.Key_Return)
        compare(bench.text, "/new_note  $Meeting milk")
        compare(area.text, bench.text)
    }

    function test_click_on_a_command_offers_all_of_them() {
        type("/ne")
        keyClick(Qt.Key_Return)
        bench.advance(0)
        click("/new_note")
        bench.advance(0)
        compare(bench.view.dropdown.rowCount(), 3)
        bench.view.dropdown.choose(1)
        compare(bench.text, "/search_notes")
    }

    function test_click_beside_chips_moves_the_cursor() {
        type("some words /zebra")
        bench.advance(0)
        click("words")
        verify(area.cursorPosition > 5 && area.cursorPosition < 10)
        compare(bench.view.showDropdown, false)
    }

    function test_double_click_selects_a_word() {
        type("some words")
        const place = middleOf("words")
        mouseDoubleClickSequence(area, place.x, place.y)
        compare(area.selectedText, "words")
    }

    function test_triple_click_selects_a_paragraph() {
        type("some words")
        const place = middleOf("words")
        mouseDoubleClickSequence(area, place.x, place.y)
        mouseClick(area, place.x, place.y)
        compare(area.selectedText, "some words")
    }

    function test_double_click_on_a_chip_selects_nothing() {
        type("some /zebra")
        bench.advance(0)
        area.cursorPosition = 2
        const place = middleOf("zebra")
        mouseDoubleClickSequence(area, place.x, place.y)
        compare(area.selectedText, "")
        compare(area.cursorPosition, 2)
        mouseClick(area, place.x, place.y)
        compare(area.selectedText, "")
    }

    function test_shift_click_extends_the_selection() {
        type("some words here")
        area.cursorPosition = 0
        const words = middleOf("words")
        mouseClick(area, words.x, words.y, Qt.LeftButton, Qt.ShiftModifier)
        const first = area.selectedText
        verify("some words".startsWith(first) && first.length > 5, first)
        const some = middleOf("some")
        mouseClick(area, some.x, some.y, Qt.LeftButton, Qt.ShiftModifier)
        verify(area.selectedText.length > 0 && area.selectedText.length < 5, area.selectedText)
    }

    function test_wheel_scrolls_a_long_text() {
        bench.text = "line\n".repeat(40)
        tryVerify(() => editor.contentHeight > editor.height)
        editor.contentY = 0
        mouseWheel(area, 100, 20, 0, -120)
        tryVerify(() => editor.contentY > 0)
    }

    function test_any_click_takes_the_keyboard_data() {
        return [{ tag: "chip", piece: "zebra" }, { tag: "selection", piece: "words" }, { tag: "text", piece: "other" }]
    }

    function test_any_click_takes_the_keyboard(data) {
        type("words other /zebra ")
        bench.advance(0)
        area.select(0, 5)
        area.focus = false
        click(data.piece)
        verify(area.activeFocus)
    }

    function test_pointer_tells_of_chips() {
        type("some words /zebra #tag")
        bench.advance(0)
        for (const [piece, shape] of [["words", Qt.IBeamCursor], ["zebra", Qt.PointingHandCursor],
                                      ["some", Qt.IBeamCursor], ["tag", Qt.PointingHandCursor]]) {
            const place = middleOf(piece)
            mouseMove(area, place.x, place.y)
            compare(chipMouse().cursorShape, shape, piece)
        }
    }

    function test_pointer_beside_the_field_is_over_no_chip() {
        type("/zebra")
        bench.advance(0)
        const place = middleOf("zebra")
        editor.anchors.leftMargin = 50
        mouseMove(area, place.x, place.y)
        compare(chipMouse().cursorShape, Qt.PointingHandCursor)
        mouseMove(testCase, 5, 5)
        compare(chipMouse().cursorShape, Qt.IBeamCursor)
    }

    function test_shift_click_on_the_selection_shortens_it() {
        type("some words here")
        area.cursorPosition = 0
        area.moveCursorSelection(15)
        const some = middleOf("some")
        mouseClick(area, some.x, some.y, Qt.LeftButton, Qt.ShiftModifier)
        verify("some".startsWith(area.selectedText) && area.selectedText !== "", area.selectedText)
    }

    function test_endless_word_is_wrapped_anywhere() {
        compare(area.wrapMode, TextEdit.Wrap)
        bench.text = "a".repeat(4000)
        compare(area.wrapMode, TextEdit.WrapAnywhere)
        bench.text = "words"
        compare(area.wrapMode, TextEdit.Wrap)
    }

    // What is drawn

    function colorAt(image, point) {
        const place = area.mapToItem(testCase, point.x, point.y)
        return image.pixel(place.x, place.y)
    }

    // Beside the text of the chip, where nothing but the fill is.
    function fillOf(image, piece) {
        const start = area.positionToRectangle(area.text.indexOf(piece))
        return colorAt(image, Qt.point(start.x + 2, start.y))
    }

    function test_chips_are_filled_and_tinted_under_the_pointer() {
        type("some /zebra")
        bench.advance(0)
        mouseMove(area, 400, 100)
        waitForRendering(area)
        const plain = grabImage(testCase)
        const place = middleOf("zebra")
        mouseMove(area, place.x, place.y)
        waitForRendering(area)
        const hovered = grabImage(testCase)
        const ground = fillOf(plain, "some")
        const chip = fillOf(plain, "/zebra")
        // Twice 12 % of blue, and twice 20 %.
        verify(ground.r - chip.r > 0.1, chip)
        verify(chip.r - fillOf(hovered, "/zebra").r > 0.05, fillOf(hovered, "/zebra"))
        compare(fillOf(hovered, "some"), ground)
    }

    // Input methods

    function test_nothing_is_parsed_during_a_composition() {
        bench.compose("/re")
        compare(bench.view.showDropdown, false)
        compare(bench.text, "")
        bench.compose("", "/re")
        compare(bench.view.showDropdown, true)
        compare(bench.text, "/re")
    }

    function test_part_of_a_composition_is_safe_but_not_parsed() {
        bench.compose("rest", "/re")
        compare(bench.text, "/re")
        compare(bench.view.showDropdown, false)
        bench.compose("")
        compare(bench.view.showDropdown, true)
    }

    function test_keys_belong_to_a_composition_data() {
        return [
            { tag: "return", key: Qt.Key_Return },
            { tag: "up", key: Qt.Key_Up },
            { tag: "down", key: Qt.Key_Down }
        ]
    }

    function test_keys_belong_to_a_composition(data) {
        type("/")
        bench.compose("ni")
        keyClick(data.key)
        bench.compose("")
        bench.advance(0)
        compare(bench.view.dropdown.selectedIndex, 0)
        verify(bench.text.startsWith("/"))
        verify(!bench.text.includes("new_note"))
    }

    function test_click_on_a_chip_ends_a_composition_first() {
        type("/zebra x")
        bench.advance(0)
        bench.compose("ni")
        click("zebra")
        compare(bench.view.showDropdown, false)
        compare(area.preeditText, "")
    }

    function test_cursor_stays_behind_what_turns_a_paragraph() {
        type("one")
        keyClick(Qt.Key_Return)
        bench.compose("", "\u05e9")
        compare(area.cursorPosition, 5)
        type("ab")
        compare(bench.text, "one\n\u05e9ab")
        area.cursorPosition = 4
        type("x") // turns it back
        compare(area.cursorPosition, 5)
        compare(bench.text, "one\nx\u05e9ab")
    }

    // Text from elsewhere

    Component {
        id: dragComponent
        TextDrag {}
    }

    function test_press_on_the_selection_may_drag_it_data() {
        return [
            { tag: "before it", position: 4, taken: false },
            { tag: "at its start", position: 5, taken: true },
            { tag: "within it", position: 9, taken: true },
            { tag: "at its end", position: 10, taken: false }
        ]
    }

    function test_press_on_the_selection_may_drag_it(data) {
        type("some words here")
        area.select(5, 10)
        const drag = createTemporaryObject(dragComponent, testCase, { editor: bench.editor })
        const place = area.positionToRectangle(data.position)
        compare(drag.mousePressed(Qt.point(place.x, place.y + 5)), data.taken)
    }

    function test_press_is_released_once() {
        type("some words here")
        area.select(5, 10)
        const drag = createTemporaryObject(dragComponent, testCase, { editor: bench.editor })
        const place = middleOf("words")
        drag.mousePressed(place)
        drag.mouseReleased(place)
        area.cursorPosition = 2
        drag.mouseReleased(place)
        compare(area.cursorPosition, 2)
    }

    function test_dropped_text_is_refused_during_a_composition() {
        const drag = createTemporaryObject(dragComponent, testCase, { editor: bench.editor })
        bench.compose("ni")
        compare(drag.drop(Qt.point(5, 5), "x", Qt.MoveAction), false)
        bench.compose("")
        compare(drag.drop(Qt.point(5, 5), "x", Qt.MoveAction), true)
        compare(bench.text, "x")
    }

    function test_pasted_text_is_plain_and_parsed() {
        bench.copyToClipboard("<b>/re</b>", "/re")
        keySequence(StandardKey.Paste)
        compare(bench.text, "/re")
        compare(bench.view.showDropdown, true)
    }

    function test_selection_is_dragged_with_the_mouse() {
        // A click on the selection that drags nothing sets the cursor.
        type("some words here")
        area.select(5, 10)
        click("words")
        compare(area.selectedText, "")
        verify(area.cursorPosition > 5 && area.cursorPosition < 10)
    }
}
