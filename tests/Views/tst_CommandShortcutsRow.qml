import QtQuick
import QtTest
import Jotwell
import JotwellTest

TestCase {
    id: testCase

    name: "CommandShortcutsRow"
    when: windowShown
    width: 800
    height: 200
    visible: true

    Component {
        id: benchComponent
        ShortcutsBench {}
    }

    Component {
        id: rowComponent
        CommandShortcutsRow {
            y: 60
            width: 800
        }
    }

    Component {
        id: draggedComponent
        Item {
            property alias handler: handler
            width: 800
            height: 200

            DragHandler {
                id: handler
                target: null
            }
        }
    }

    SignalSpy {
        id: taps
        signalName: "tap"
    }

    TextInput {
        id: editor
    }

    property var bench
    property var row

    function init() {
        mouseMove(testCase, 5, 5)
        bench = benchComponent.createObject(testCase)
        makeRow(testCase)
    }

    function cleanup() {
        row.destroy()
        bench.destroy()
    }

    function makeRow(parent) {
        row = rowComponent.createObject(parent, { shortcuts: bench.shortcuts })
        waitForRendering(row)
    }

    function button(name) {
        return findChild(row, name)
    }

    function names() {
        const layout = row.children[0]
        return Array.from(layout.children).filter(each => each.visible && each.text)
            .sort((one, other) => one.x - other.x).map(each => each.text)
    }

    function fill(button) {
        return findChild(button, "buttonBackground").color
    }

    function verifyColor(actual, expected) {
        fuzzyCompare(actual, expected, 1)
    }

    function test_buttons_by_text_data() {
        const commands = ["/new_note", "/search_notes", "/recent"]
        const create = ["Create Note", "/search_notes", "/recent"]
        return [
            { tag: "empty", text: "", names: commands },
            { tag: "search and recent", text: "/search_notes /recent", names: commands },
            { tag: "the command", text: "/new_note", names: create },
            { tag: "in the middle", text: "a /new_note b", names: create },
            { tag: "in a longer word", text: "/new_notebook", names: create }
        ]
    }

    function test_buttons_by_text(data) {
        bench.setCurrentText(data.text)
        waitForRendering(row)
        compare(names(), data.names)
        bench.setCurrentText("")
        compare(names().length, 3)
    }

    function test_share_the_width_evenly() {
        for (const text of ["", "/new_note"]) {
            bench.setCurrentText(text)
            waitForRendering(row)
            const first = button(text === "" ? "/new_note" : "createNoteButton")
            const second = button("/search_notes")
            const third = button("/recent")
            compare(first.mapToItem(row, 0, 0), Qt.point(12, 8))
            for (const each of [first, second, third]) {
                verify(Math.abs(each.width - 760 / 3) < 1)
                compare(each.y, first.y)
                compare(each.height, first.height)
            }
            compare(second.x, first.x + first.width + 8)
            compare(third.x, second.x + second.width + 8)
            compare(third.mapToItem(row, third.width, 0).x, 788)
            compare(row.height, first.height + 16)
        }
    }

    function test_measures_of_a_button() {
        const it = button("/search_notes")
        const icon = findChild(it, "icon")
        const text = findChild(it, "text")
        const hint = findChild(it, "keyHint")
        compare(icon.text, "🔍")
        compare(icon.font.pixelSize, 14)
        compare(text.text, "/search_notes")
        compare(text.font.pixelSize, 12)
        compare(text.font.weight, Font.Medium)
        compare(text.maximumLineCount, 1)
        compare(text.x, icon.x + icon.width + 6)
        compare(hint.x, text.x + text.width + 6)
        compare(it.height, Math.max(icon.height, text.height, hint.height) + 12)
        const left = icon.mapToItem(it, 0, 0).x
        const right = it.width - hint.mapToItem(it, hint.width, 0).x
        verify(Math.abs(left - right) <= 1)
        compare(findChild(it, "buttonBackground").radius, 6)
        compare(hint.radius, 4)
        const key = findChild(hint, "keyText")
        compare(key.text, "2")
        compare(key.font.pixelSize, 10)
        compare(key.font.weight, Font.Medium)
        const symbol = findChild(hint, "modifierSymbol")
        verify(symbol.visible)
        compare(symbol.name, "command")
        compare(symbol.fontSize, 10)
        verify(!findChild(hint, "modifierText").visible)
        compare(key.x, symbol.x + symbol.width + 2)
        compare(hint.width, symbol.width + 2 + key.width + 8)
        compare(hint.height, key.height + 4)
    }

    function test_create_note_has_texts_for_keys() {
        bench.setCurrentText("/new_note")
        const it = button("createNoteButton")
        const hint = findChild(it, "keyHint")
        compare(findChild(it, "icon").text, "📝")
        verify(!findChild(hint, "modifierSymbol").visible)
        compare(findChild(hint, "modifierText").text, "⌘")
        compare(findChild(hint, "keyText").text, "⏎")
    }

    function test_keys_have_the_words_of_the_keyboard() {
        row.destroy()
        bench.writeWordsOnKeys()
        makeRow(testCase)
        bench.setCurrentText("/new_note")
        for (const name of ["createNoteButton", "/recent"]) {
            const hint = findChild(button(name), "keyHint")
            verify(!findChild(hint, "modifierSymbol").visible)
            compare(findChild(hint, "modifierText").text, "Ctrl")
        }
        compare(button("/recent").Accessible.description, "Ctrl+3")
        compare(button("createNoteButton").Accessible.description, "Ctrl+Return")
    }

    function test_text_gives_way_in_a_narrow_row() {
        row.width = 300
        waitForRendering(row)
        const it = button("/search_notes")
        const text = findChild(it, "text")
        const hint = findChild(it, "keyHint")
        verify(text.truncated)
        verify(text.x + text.width <= hint.x)
        verify(hint.mapToItem(it, hint.width, 0).x <= it.width - 9)
        verify(findChild(it, "icon").mapToItem(it, 0, 0).x >= 9)
    }

    function test_colours_of_the_states_data() {
        return [{ tag: "/recent" }, { tag: "createNoteButton" }]
    }

    function test_colours_of_the_states(data) {
        bench.setCurrentText("/new_note")
        waitForRendering(row)
        const it = button(data.tag)
        const hint = findChild(it, "keyHint")
        verifyColor(fill(it), Qt.alpha(Theme.gray, 0.1))
        verifyColor(findChild(it, "text").color, Theme.text)
        verifyColor(hint.foregroundColor, Theme.secondaryText)
        verifyColor(hint.color, Qt.alpha(Theme.gray, 0.1))
        compare(it.scale, 1)

        mouseMove(it, 20, 10)
        verify(it.isHovered)
        tryCompare(it, "hover", 1)
        verifyColor(fill(it), Theme.accent)
        verifyColor(findChild(it, "text").color, Theme.white)
        verifyColor(hint.foregroundColor, Theme.white)
        verifyColor(hint.color, Qt.alpha("#ffffff", 0.2))

        mousePress(it, 20, 10)
        verify(it.isPressed)
        tryCompare(it, "press", 1)
        verifyColor(fill(it), Qt.alpha(Theme.accent, 0.8))
        verifyColor(findChild(it, "text").color, Theme.white)
        fuzzyCompare(it.scale, 0.95, 0.001)
        compare(it.transformOrigin, Item.Center)

        mouseRelease(it, 20, 10)
        mouseMove(testCase, 5, 5)
        tryCompare(it, "press", 0)
        tryCompare(it, "hover", 0)
        verifyColor(fill(it), Qt.alpha(Theme.gray, 0.1))
    }

    function test_hover_and_press_come_gradually() {
        const it = button("/recent")
        mouseMove(it, 20, 10)
        tryVerify(() => it.hover > 0 && it.hover < 1)
        tryCompare(it, "hover", 1)
        mousePress(it, 20, 10)
        tryVerify(() => it.press > 0 && it.press < 1)
        verify(it.scale > 0.95 && it.scale < 1)
        mouseRelease(it, 20, 10)
        compare(Theme.hoverDuration, 150)
        compare(Theme.pressDuration, 100)
    }

    function test_press_counts_wherever_it_is_dragged() {
        const it = button("/recent")
        mousePress(it, 20, 10)
        mouseMove(testCase, 5, 190)
        mouseMove(testCase, 6, 195)
        verify(it.isPressed)
        verify(!it.isHovered)
        tryCompare(it, "hover", 0)
        tryCompare(it, "press", 1)
        verifyColor(findChild(it, "text").color, Theme.white)
        verifyColor(fill(it), Qt.alpha(Theme.accent, 0.8))
        verifyColor(findChild(it, "keyHint").foregroundColor, Theme.secondaryText)
        mouseMove(it, 20, 10)
        verify(it.isHovered)
        mouseMove(testCase, 6, 195)
        mouseRelease(testCase, 6, 195)
        verify(!it.isPressed)
        compare(bench.asked, [])
    }

    function test_drag_from_a_button_moves_nothing() {
        row.destroy()
        const dragged = createTemporaryObject(draggedComponent, testCase)
        makeRow(dragged)
        const it = button("/recent")
        mousePress(it, 20, 10)
        for (let step = 1; step <= 10; ++step)
            mouseMove(it, 20 - 20 * step, 10)
        verify(!dragged.handler.active)
        verify(it.isPressed)
        mouseRelease(it, -180, 10)
        mousePress(dragged, 400, 190)
        for (let step = 1; step <= 10; ++step)
            mouseMove(dragged, 400 - 20 * step, 190)
        verify(dragged.handler.active)
        mouseRelease(dragged, 200, 190)
    }

    function test_click_asks() {
        mouseClick(button("/new_note"))
        mouseClick(button("/search_notes"))
        mouseClick(button("/recent"))
        bench.setCurrentText("/new_note")
        waitForRendering(row)
        mouseClick(button("createNoteButton"))
        mouseClick(button("/recent"))
        compare(bench.asked, ["/new_note", "/search_notes", "/recent", "Create Note", "/recent"])
    }

    function test_other_mouse_buttons_ask_nothing() {
        mouseClick(button("/recent"), 20, 10, Qt.RightButton)
        mouseClick(button("/recent"), 20, 10, Qt.MiddleButton)
        compare(bench.asked, [])
    }

    function test_click_leaves_the_keyboard_where_it_is() {
        editor.forceActiveFocus()
        mouseClick(button("/recent"))
        verify(editor.activeFocus)
        keyClick(Qt.Key_A)
        compare(editor.text, "a")
    }

    function test_other_buttons_stay_hovered_when_the_first_changes() {
        const it = button("/recent")
        mouseMove(it, 20, 10)
        tryCompare(it, "hover", 1)
        bench.setCurrentText("/new_note")
        waitForRendering(row)
        compare(button("/recent"), it)
        compare(it.hover, 1)
    }

    function test_screen_reader_finds_and_presses_buttons() {
        bench.setCurrentText("/new_note")
        const names = { "createNoteButton": "Create Note", "/search_notes": "/search_notes", "/recent": "/recent" }
        for (const each of Object.keys(names)) {
            compare(button(each).Accessible.role, Accessible.Button)
            compare(button(each).Accessible.name, names[each])
            button(each).Accessible.pressAction()
        }
        compare(button("/recent").Accessible.description, "⌘+3")
        compare(bench.asked, ["Create Note", "/search_notes", "/recent"])
    }

    function test_colours_are_those_of_the_ground() {
        row.colors = Theme.onFlash
        verifyColor(findChild(button("/recent"), "text").color, Theme.onFlash.text)
    }
}
