import QtQuick
import QtTest
import Jotwell
import JotwellTest

TestCase {
    id: testCase

    name: "FloatingWindowView"
    when: windowShown
    width: 860
    height: 600
    visible: true

    Component {
        id: benchComponent
        ViewBench {}
    }

    Component {
        id: viewComponent
        FloatingWindowView { anchors.fill: parent }
    }

    property var bench
    property var root
    property var card
    property var background
    property var border

    function init() {
        bench = benchComponent.createObject(testCase)
        root = viewComponent.createObject(testCase, { view: bench.view })
        card = findChild(root, "card")
        background = findChild(root, "background")
        border = findChild(root, "border")
        findChild(root, "textArea").forceActiveFocus()
    }

    function cleanup() {
        root.destroy()
        bench.destroy()
    }

    function run(text) {
        bench.text = text
        keyClick(Qt.Key_Return, Qt.ControlModifier)
    }

    function test_card_stands_in_the_middle() {
        compare(card.width, 800)
        compare(card.height, 164)
        compare(card.x, 30)
        compare(card.y, (600 - 164) / 2)
        compare(background.radius, 12)
        compare(border.border.width, 2)
    }

    function test_colours_at_rest() {
        verify(Qt.colorEqual(background.color, Theme.windowBackground))
        compare(border.border.color.a, 0)
    }

    function test_success_flash() {
        run("Call Ada /new_note")
        tryVerify(() => Qt.colorEqual(border.border.color, Theme.accent))
        tryVerify(() => Qt.colorEqual(background.color, Theme.successFlash))
        bench.advance(300)
        tryVerify(() => border.border.color.a === 0)
        tryVerify(() => Qt.colorEqual(background.color, Theme.windowBackground))
    }

    function test_failure_flash() {
        run("Call Ada")
        tryVerify(() => Qt.colorEqual(border.border.color, Theme.systemRed))
        tryVerify(() => Qt.colorEqual(background.color, Theme.errorFlash))
        bench.advance(300)
        tryVerify(() => border.border.color.a === 0)
    }

    function test_failure_shows_over_a_success() {
        run("Call Ada /new_note")
        tryVerify(() => bench.view.showAccentBorder)
        run("Call Ada")
        verify(bench.view.showAccentBorder && bench.view.showErrorBorder)
        tryVerify(() => Qt.colorEqual(border.border.color, Theme.systemRed))
        tryVerify(() => Qt.colorEqual(background.color, Theme.errorFlash))
    }

    function test_flash_comes_gradually() {
        run("Call Ada")
        tryVerify(() => border.border.color.a > 0 && border.border.color.a < 1)
        tryVerify(() => Qt.colorEqual(background.color, Theme.errorFlash))
    }

    function test_border_lies_on_the_edge_of_the_card() {
        compare(border.mapToItem(card, 0, 0), Qt.point(-1, -1))
        compare(border.width, 802)
        compare(border.height, 166)
        compare(border.radius, 13)
    }

    function test_spring_overshoots_and_settles() {
        run("Call Ada")
        tryVerify(() => card.scale > 1.05)
        for (let step = 0; step < 20; ++step) {
            wait(10)
            verify(card.scale < 1.056, card.scale)
        }
        bench.advance(100)
        tryVerify(() => card.scale < 1)
        tryCompare(card, "scale", 1)
    }

    function write(text) {
        bench.text = ""
        for (const character of text)
            keyClick(character)
        bench.advance(0)
    }

    function lowerEdge(item) {
        return item.mapToItem(card, 0, item.height).y
    }

    function test_rows_stand_on_one_another_data() {
        return [
            { tag: "text alone", text: "Ada", results: 0, height: 164 },
            { tag: "list", text: "/", results: 0, height: 264 },
            { tag: "one note", text: "/search_notes a", results: 1, height: 484 },
            { tag: "many notes", text: "/search_notes a", results: 50, height: 484 },
            { tag: "list and notes", text: "/recent /", results: 50, height: 584 }
        ]
    }

    function test_rows_stand_on_one_another(data) {
        bench.appear()
        write(data.text)
        bench.deliver(data.results)
        const editor = findChild(root, "editor")
        const row = findChild(root, "shortcutsRow")
        const panel = findChild(root, "resultsPanel")
        compare(card.height, data.height)
        compare(card.y, (600 - data.height) / 2)
        compare(editor.mapToItem(card, 0, 0), Qt.point(12, 12))
        compare(editor.width, 776)
        compare(row.width, 800)
        compare(row.y, lowerEdge(editor) + 12)
        compare(panel.y, row.y + row.height)
        compare(panel.y + panel.height, card.height)
        compare(panel.height > 0, data.results > 0)
        verify(panel.height <= 320)
        if (data.results === 50)
            compare(panel.height, 320)
    }

    function test_strip_stands_below_the_other_rows() {
        bench.appear()
        write("/search_notes a")
        bench.deliver(3)
        bench.startBuild()
        const strip = findChild(root, "indexStrip")
        const panel = findChild(root, "resultsPanel")
        tryVerify(() => strip.progress > 0 && strip.progress < 1)
        verify(strip.height > 0)
        compare(strip.opacity, strip.progress)
        tryCompare(strip, "progress", 1)
        const shown = findChild(strip, "strip")
        compare(shown.mapToItem(card, 0, 0).x, 12)
        compare(shown.width, 776)
        compare(lowerEdge(shown), card.height - 12)
        compare(panel.y + panel.height, strip.y)
        compare(shown.mapToItem(card, 0, 0).y, strip.y)
        compare(card.height, 484)
        bench.finishBuild()
        tryVerify(() => strip.progress > 0 && strip.progress < 1)
        tryCompare(strip, "height", 0)
        compare(findChild(strip, "strip"), null)
        compare(lowerEdge(panel), card.height)
    }

    function test_list_lies_over_the_rows_and_inside_the_card() {
        write("/")
        const dropdown = findChild(root, "dropdown")
        compare(dropdown.visible, true)
        compare(dropdown.x, 24)
        compare(dropdown.width, 752)
        compare(dropdown.y, 47)
        verify(lowerEdge(dropdown) <= card.height - 12)
        keyClick(Qt.Key_Backspace)
        compare(dropdown.visible, false)
    }

    function test_click_beside_the_list_closes_it_data() {
        return [
            { tag: "on the card", x: 5, y: 5 },
            { tag: "on the text", x: 400, y: 25 },
            { tag: "beside the card", x: -10, y: 5 }
        ]
    }

    function test_click_beside_the_list_closes_it(data) {
        write("/")
        mouseClick(root, card.x + data.x, card.y + data.y)
        tryCompare(bench.view, "showDropdown", false)
        mouseClick(root, card.x + data.x, card.y + data.y)
        wait(0)
        compare(bench.view.showDropdown, false)
    }

    function test_click_on_the_text_beside_a_list_comes_where_it_was_made() {
        write("one two /")
        const area = findChild(root, "textArea")
        const place = area.positionToRectangle(3)
        mousePress(area, place.x, place.y + 5)
        compare(bench.view.showDropdown, true)
        mouseRelease(area, place.x, place.y + 5)
        tryCompare(bench.view, "showDropdown", false)
        compare(area.cursorPosition, 3)
        compare(area.selectedText, "")
    }

    function test_drag_beside_a_list_selects_what_it_goes_over() {
        write("one two /")
        const area = findChild(root, "textArea")
        const start = area.positionToRectangle(4)
        const end = area.positionToRectangle(0)
        mouseDrag(area, start.x, start.y + 5, end.x - start.x, 0)
        compare(area.selectedText, "one ")
    }

    function test_click_on_a_row_of_the_list_takes_it() {
        write("/")
        mouseClick(findChild(root, "dropdown"), 100, 20)
        compare(bench.text, "/new_note  $Default")
        compare(bench.view.showDropdown, false)
    }

    function test_click_on_a_shortcut_closes_the_list() {
        write("/")
        mouseClick(findChild(root, "/recent"))
        compare(bench.text, "/recent  $All Folders ")
        tryCompare(bench.view, "showDropdown", false)
    }

    function test_click_on_a_token_opens_its_list_anew() {
        write("/recent ")
        const area = findChild(root, "textArea")
        mouseClick(area, 20, 14)
        wait(0)
        compare(bench.view.showDropdown, true)
        mouseClick(area, 20, 14)
        wait(0)
        compare(bench.view.showDropdown, true)
    }

    function test_tab_moves_into_the_panel_and_up_comes_back() {
        bench.appear()
        write("/search_notes a")
        bench.deliver(3)
        keyClick(Qt.Key_Tab)
        compare(bench.view.results.selectedIndex, 0)
        keyClick(Qt.Key_Down)
        compare(bench.view.results.selectedIndex, 1)
        keyClick(Qt.Key_Up)
        keyClick(Qt.Key_Up)
        compare(bench.view.results.selectedIndex, -1)
        keyClick("b")
        compare(bench.text, "/search_notes ab")
    }

    function test_panel_goes_with_the_search() {
        bench.appear()
        write("/search_notes a")
        bench.deliver(3)
        compare(bench.view.showSearchResults, true)
        keyClick(Qt.Key_Backspace)
        compare(bench.view.showSearchResults, false)
        compare(card.height, 164)
    }

    function test_click_on_a_shortcut_leaves_the_keyboard_with_the_text() {
        mouseClick(findChild(root, "/search_notes"))
        compare(bench.text, "/search_notes ")
        bench.advance(0)
        keyClick("a")
        compare(bench.text, "/search_notes a")
    }

    function test_text_takes_the_colours_of_a_flash() {
        run("Call Ada")
        compare(root.colors, Theme.onFlash)
        compare(findChild(root, "editor").colors, Theme.onFlash)
        compare(findChild(root, "shortcutsRow").colors, Theme.onFlash)
        bench.advance(300)
        compare(root.colors, Theme)
    }

    function test_toast_takes_no_click() {
        bench.showSuccess("Done")
        const container = findChild(root, "toastContainer")
        tryCompare(container, "progress", 1)
        mouseClick(card, 200, card.height - 10)
        compare(bench.toasts.isShown, true)
        compare(container.width, card.width)
        compare(container.height, card.height)
    }

    function test_focus_step() {
        const area = findChild(root, "textArea")
        area.focus = false
        bench.appear()
        compare(area.activeFocus, false)
        bench.advance(100)
        compare(area.activeFocus, true)
    }
}
