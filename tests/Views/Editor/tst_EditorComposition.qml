import QtQuick
import QtTest

EditorTestCase {
    id: testCase

    name: "EditorComposition"

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

    function test_dropped_text_is_refused_during_a_composition() {
        const drag = makeDrag()
        bench.compose("ni")
        compare(drag.drop(Qt.point(5, 5), "x", Qt.MoveAction), false)
        bench.compose("")
        compare(drag.drop(Qt.point(5, 5), "x", Qt.MoveAction), true)
        compare(bench.text, "x")
    }
}
