import QtQuick
import QtTest

EditorTestCase {
    id: testCase

    name: "EditorMouse"

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
        const drag = makeDrag()
        const place = area.positionToRectangle(data.position)
        compare(drag.mousePressed(Qt.point(place.x, place.y + 5)), data.taken)
    }

    function test_press_is_released_once() {
        type("some words here")
        area.select(5, 10)
        const drag = makeDrag()
        const place = middleOf("words")
        drag.mousePressed(place)
        drag.mouseReleased(place)
        area.cursorPosition = 2
        drag.mouseReleased(place)
        compare(area.cursorPosition, 2)
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
