import QtQuick
import QtTest
import Jotwell
import JotwellTest

TestCase {
    id: testCase

    name: "SearchResultsView"
    when: windowShown
    width: 800
    height: 400
    visible: true

    Component {
        id: benchComponent
        ListsBench {}
    }

    Component {
        id: panelComponent
        SearchResultsView {
            width: 800
            height: implicitHeight
        }
    }

    property var bench
    property var panel
    property var list
    property var results

    function init() {
        bench = benchComponent.createObject(testCase)
        results = bench.view.results
        mouseMove(testCase, 790, 390)
    }

    function cleanup() {
        panel.destroy()
        bench.destroy()
    }

    function show(paths, snippets) {
        bench.showNotes(paths, snippets ?? [])
        panel = panelComponent.createObject(testCase, { results: results })
        list = findChild(panel, "resultsList")
        waitForRendering(panel)
    }

    function showMany(count) {
        show(Array.from({ length: count }, (_, index) => "/vault/note" + index + ".md"))
    }

    function row(index) {
        return list.itemAtIndex(index)
    }

    function part(index, name) {
        return findChild(row(index), name)
    }

    function topOf(index) {
        return row(index) ? row(index).y - list.contentY : undefined
    }

    function select(index, direction) {
        bench.selectNote(index)
        bench.scrollToNote(direction)
    }

    function settle() {
        tryVerify(() => !list.isScrolling)
    }

    function isColor(color, name) {
        return Qt.colorEqual(color, Theme.named(name))
    }

    function test_measures() {
        show(["/v/one.md", "/v/two.md"])
        const card = findChild(panel, "panelCard")
        compare(card.x, 12)
        compare(card.y, 8)
        compare(card.width, 776)
        compare(panel.height, card.height + 20)
        compare(findChild(panel, "panelBackground").radius, 8)
        verify(Qt.colorEqual(findChild(panel, "panelBackground").color, Theme.controlBackground))
        compare(findChild(panel, "panelStroke").border.width, 1)
        compare(row(1).y, row(0).height + 1)
        const background = part(0, "rowBackground")
        compare(background.x, 4)
        compare(background.width, 776 - 8)
        compare(background.height, row(0).height)
        compare(background.radius, 6)
        const title = part(0, "title")
        compare(title.mapToItem(background, 0, 0).x, 12 + 20 + 12)
        compare(title.mapToItem(background, 0, 0).y, 8)
        compare(title.font.pixelSize, 13)
        compare(title.font.weight, Font.Medium)
        compare(part(0, "path").font.pixelSize, 11)
        compare(part(0, "noteIcon").fontSize, 14)
        compare(part(0, "openIcon").fontSize, 12)
        const header = list.mapToItem(card, 0, 0).y
        compare(card.height, header + 2 * row(0).height + 1 + 4)
    }

    function test_shadow_and_line() {
        show(["/v/one.md"])
        const card = findChild(panel, "panelCard")
        const shadow = findChild(card, "cardShadow")
        compare(shadow.source, "image://shadow/8/8")
        fuzzyCompare(shadow.opacity, 0.1, 0.001)
        compare(shadow.mapToItem(card, 0, 0), Qt.point(-8, 2 - 8))
        verify(Qt.colorEqual(findChild(panel, "panelStroke").border.color, Qt.alpha(Theme.gray, 0.2)))
    }

    function test_first_line() {
        show(["/v/one.md"])
        const card = findChild(panel, "panelCard")
        const count = findChild(panel, "count")
        const hints = findChild(panel, "hints")
        const parts = Array.from(hints.children)
        compare(parts.map(part => part.key ?? part.text),
                ["Use", "Tab", "to switch to notes,", "↑↓", "to navigate,", "Enter", "to open"])
        for (const part of parts) {
            if (part.key !== undefined) {
                compare(part.size, KeySize.Small)
                continue
            }
            compare(part.font.pixelSize, 11)
            verify(Qt.colorEqual(part.color, Theme.secondaryText))
        }
        compare(parts[0].mapToItem(card, 0, 0).x, 16)
        compare(parts[1].x, parts[0].width + 4)
        compare(count.mapToItem(card, count.width, 0).x, card.width - 16)
        compare(hints.mapToItem(card, 0, 0).y, 8)
        compare(list.mapToItem(card, 0, 0).y, 8 + hints.height + 8)
    }

    function test_the_pointer_is_a_hand_over_a_row() {
        show(["/v/one.md"])
        mouseMove(row(0), 100, 20)
        compare(bench.cursorShapeOver(panel), Qt.PointingHandCursor)
        mouseMove(panel, 100, 20)
        compare(bench.cursorShapeOver(panel), Qt.ArrowCursor)
    }

    function test_names_are_shown_as_they_stand() {
        show(["/v/<h1>one<br>two.md"])
        compare(part(0, "title").textFormat, Text.PlainText)
        compare(part(0, "title").text, "<h1>one<br>two")
        compare(part(0, "path").textFormat, Text.PlainText)
    }

    function test_takes_only_what_it_needs() {
        show(["/v/one.md"], ["a <mark>hit</mark> ".repeat(100)])
        const one = panel.height
        verify(one < 130)
        bench.showNotes(["/v/one.md", "/v/two.md"], ["", "word ".repeat(200)])
        tryVerify(() => panel.height > one)
        tryCompare(list, "contentHeight", row(0).height + 1 + row(1).height)
        compare(list.height, list.contentHeight + 4)
        bench.showNotes(Array(50).fill("/v/one.md"), [])
        tryCompare(panel, "height", 320)
    }

    function test_rows_that_are_not_seen_do_not_exist() {
        showMany(50)
        compare(list.count, 50)
        const rows = Array.from(list.contentItem.children).filter(child => child.fileName !== undefined)
        verify(rows.length > 4 && rows.length < 9)
    }

    function test_count_text() {
        show(["/v/one.md"])
        compare(findChild(panel, "count").text, "1 note")
        bench.showNotes(["/v/one.md", "/v/two.md"])
        compare(findChild(panel, "count").text, "2 notes")
        compare(findChild(panel, "count").font.pixelSize, 11)
        verify(Qt.colorEqual(findChild(panel, "count").color, Theme.secondaryText))
    }

    function test_snippet_or_path() {
        show(["/v/a/b/one.md", "/v/two.md", "/v/three.md"], ["an <mark>apple</mark>", "", "  "])
        compare(part(0, "snippet").snippet, "an <mark>apple</mark>")
        compare(part(0, "path"), null)
        compare(part(1, "path").text, "/v/two.md")
        compare(part(1, "snippet"), null)
        compare(part(2, "snippet").snippet, "  ")
    }

    function test_selected_row() {
        showMany(3)
        verify(isColor(part(1, "rowBackground").color, "clear"))
        verify(isColor(part(1, "noteIcon").color, "accent"))
        compare(part(1, "openIcon").visible, false)
        select(1, "down")
        verify(isColor(part(1, "rowBackground").color, "gray0.2"))
        verify(isColor(part(1, "noteIcon").color, "primary"))
        verify(isColor(part(1, "openIcon").color, "primary"))
        compare(part(1, "openIcon").visible, true)
        compare(part(0, "openIcon").visible, false)
    }

    function test_marks_in_the_snippet_take_the_colour_of_the_row() {
        show(["/v/one.md"], ["an <mark>apple</mark>"])
        verify(isColor(part(0, "snippet").highlightColor, "systemAccent"))
        select(0, "")
        verify(isColor(part(0, "snippet").highlightColor, "orange"))
        verify(Qt.colorEqual(part(0, "snippet").color, Theme.secondaryText))
    }

    // Pixels of the left part that are more red than blue.
    function hotPixels(item) {
        const image = grabImage(testCase)
        const place = item.mapToItem(testCase, 0, 0)
        let found = 0
        for (let y = 0; y < item.height; ++y) {
            for (let x = 0; x < item.width / 4; ++x)
                found += image.red(place.x + x, place.y + y) > image.blue(place.x + x, place.y + y) + 20 ? 1 : 0
        }
        return found
    }

    function test_marks_are_drawn_in_the_colour_of_the_moment() {
        show(["/v/one.md"], ["<mark>apple apple apple</mark>"])
        const snippet = part(0, "snippet")
        compare(hotPixels(snippet), 0)
        select(0, "")
        verify(hotPixels(snippet) > 10)
        bench.setDark(true)
        verify(hotPixels(snippet) > 10)
        bench.selectNote(-1)
        compare(hotPixels(snippet), 0)
        bench.selectNote(0)
        verify(isColor(snippet.highlightColor, "orange"))
        verify(Qt.colorEqual(snippet.color, Theme.secondaryText))
    }

    function test_hovered_row() {
        showMany(3)
        select(0, "")
        mouseMove(row(1), 100, 20)
        tryVerify(() => isColor(part(1, "rowBackground").color, "gray0.1"))
        compare(part(1, "openIcon").visible, true)
        verify(isColor(part(1, "openIcon").color, "accent"))
        compare(results.selectedIndex, 0)
        mouseMove(row(2), 100, 20)
        tryVerify(() => isColor(part(1, "rowBackground").color, "clear"))
        mouseMove(testCase, 790, 390)
        tryVerify(() => isColor(part(2, "rowBackground").color, "clear"))
    }

    function test_hovering_moves_nothing() {
        show(["/v/one.md"], ["word ".repeat(100)])
        const height = row(0).height
        const width = part(0, "title").width
        mouseMove(row(0), 100, 20)
        tryCompare(part(0, "openIcon"), "visible", true)
        compare(row(0).height, height)
        compare(part(0, "title").width, width)
    }

    SignalSpy {
        id: tapped
        signalName: "resultTapped"
    }

    function test_a_click_anywhere_on_a_row_reports_it() {
        showMany(3)
        tapped.target = results
        tapped.clear()
        mouseClick(row(1), 1, 1)
        mouseClick(row(2), row(2).width - 2, row(2).height - 2)
        compare(tapped.count, 2)
        compare(tapped.signalArguments[0][0], 1)
        compare(tapped.signalArguments[1][0], 2)
        tapped.target = null
    }

    function test_arrows_bring_the_row_to_the_far_edge() {
        showMany(50)
        for (let index = 0; index <= 9; ++index) {
            select(index, "down")
            settle()
            compare(topOf(index), 0)
        }
        for (let index = 8; index >= 6; --index) {
            select(index, "up")
            settle()
            compare(topOf(index) + row(index).height, list.height)
        }
    }

    function test_rows_of_different_heights_come_to_the_edge_too() {
        const paths = Array.from({ length: 50 }, (_, index) => "/vault/note" + index + ".md")
        show(paths, paths.map((_, index) => index % 3 === 0 ? "" : "word ".repeat(index % 2 ? 5 : 90)))
        for (let index = 0; index <= 20; ++index) {
            select(index, "down")
            settle()
            compare(topOf(index), 0)
        }
        select(40, "")
        settle()
        compare(Math.abs(topOf(40) + row(40).height / 2 - list.height / 2) <= 1, true)
        select(39, "up")
        settle()
        compare(topOf(39) + row(39).height, list.height)
    }

    function test_without_a_selected_row_nothing_scrolls() {
        showMany(50)
        select(20, "down")
        settle()
        const at = list.contentY
        select(-1, "down")
        wait(150)
        compare(list.contentY, at)
    }

    function test_other_notes_are_seen_from_their_start_also_while_the_list_scrolls() {
        showMany(50)
        select(40, "down")
        verify(list.isScrolling)
        bench.selectNote(-1)
        bench.showNotes(Array(8).fill("/v/one.md"))
        wait(Theme.scrollDuration + 50)
        compare(list.count, 8)
        compare(topOf(0), 0)
    }

    function test_starts_out_with_the_selected_row_in_the_middle() {
        bench.selectNote(25)
        showMany(50)
        settle()
        compare(Math.abs(topOf(25) + row(25).height / 2 - list.height / 2) <= 1, true)
        list.contentY = 0
        panel.visible = false
        panel.visible = true
        settle()
        compare(Math.abs(topOf(25) + row(25).height / 2 - list.height / 2) <= 1, true)
    }

    function test_key_caps_light_up_data() {
        return [
            { tag: "Tab", key: Qt.Key_Tab, cap: "key Tab" },
            { tag: "Down", key: Qt.Key_Down, cap: "key ↑↓" },
            { tag: "Up", key: Qt.Key_Up, cap: "key ↑↓" },
            { tag: "Return", key: Qt.Key_Return, cap: "key Enter" }
        ]
    }

    function test_key_caps_light_up(data) {
        showMany(1)
        bench.watchKeys(true)
        const caps = ["key Tab", "key ↑↓", "key Enter"].map(name => findChild(panel, name))
        const lit = () => caps.filter(cap => cap.isHighlighted).map(cap => cap.objectName)
        compare(lit(), [])
        keyPress(data.key)
        bench.advance(0)
        compare(lit(), [data.cap])
        keyRelease(data.key)
        bench.advance(0)
        compare(lit(), [])
        bench.watchKeys(false)
    }

    function test_other_keys_light_nothing() {
        showMany(1)
        bench.watchKeys(true)
        keyPress(Qt.Key_A)
        keyPress(Qt.Key_Left)
        bench.advance(0)
        for (const name of ["key Tab", "key ↑↓", "key Enter"])
            compare(findChild(panel, name).isHighlighted, false)
        keyRelease(Qt.Key_Left)
        keyRelease(Qt.Key_A)
        bench.watchKeys(false)
    }

    function test_hostile_notes_stay_in_their_rows() {
        const snippets = ["<mark>".repeat(50) + "word ".repeat(400), "</mark>א".repeat(200),
                          "<b>bold</b>\n".repeat(90), "👩‍👩‍👧".repeat(300), "e" + "\u0301".repeat(500)]
        const paths = ["/v/" + "n".repeat(250) + ".md", "/v/שלום עולם.md", "/v/👍🏽.md", "/v/a.md", "/v/a.md"]
        paths.push("/" + ("d".repeat(200) + "/").repeat(20) + "end.md")
        show(paths, snippets)
        for (let index = 0; index < 4; ++index) {
            const background = part(index, "rowBackground")
            const title = part(index, "title")
            const snippet = part(index, "snippet")
            verify(title.contentWidth <= title.width)
            compare(title.lineCount, 1)
            verify(snippet.mapToItem(background, 0, snippet.height).y <= background.height - 8)
            verify(snippet.mapToItem(background, snippet.width, 0).x <= part(index, "openIcon").x)
            verify(row(index).height < 70)
            compare(row(index + 1).y, row(index).y + row(index).height + 1)
        }
        select(5, "")
        settle()
        const path = part(5, "path")
        verify(path.truncated && path.contentWidth <= path.width)
    }

    function test_is_told_to_screen_readers() {
        show(["/v/one.md", "/v/two.md"], ["an <mark>apple</mark>"])
        compare(list.Accessible.role, Accessible.List)
        compare(row(0).Accessible.role, Accessible.ListItem)
        compare(row(0).Accessible.name, "one")
        compare(row(0).Accessible.description, "an apple")
        compare(row(1).Accessible.description, "/v/two.md")
        select(1, "down")
        compare(row(1).Accessible.selected, true)
        compare(row(1).Accessible.focused, true)
        compare(row(0).Accessible.selected, false)
        tapped.target = results
        tapped.clear()
        row(1).Accessible.pressAction()
        compare(tapped.signalArguments[0][0], 1)
        tapped.target = null
    }
}
