import QtQuick
import QtTest
import Jotwell
import JotwellTest

TestCase {
    id: testCase

    name: "FloatingDropdown"
    when: windowShown
    width: 800
    height: 400
    visible: true

    Component {
        id: benchComponent
        ListsBench {}
    }

    Component {
        id: dropdownComponent
        FloatingDropdown {
            x: 12
            y: 12
            width: 700
            height: implicitHeight
            visible: rows.isShown
        }
    }

    Component {
        id: beneathComponent
        Flickable {
            anchors.fill: parent
            z: -1
            contentHeight: 2000
            contentY: 500

            MouseArea {
                property int clicks: 0

                objectName: "mouse"
                anchors.fill: parent
                hoverEnabled: true
                acceptedButtons: Qt.AllButtons
                cursorShape: Qt.IBeamCursor
                onPressed: clicks += 1
            }
        }
    }

    property var bench
    property var dropdown
    property var list

    function init() {
        bench = benchComponent.createObject(testCase)
        dropdown = dropdownComponent.createObject(testCase, { rows: bench.view.dropdown })
        list = findChild(dropdown, "dropdownList")
        mouseMove(testCase, 790, 390)
    }

    function cleanup() {
        dropdown.destroy()
        bench.destroy()
    }

    function open(text) {
        bench.write(text)
        bench.advance(0)
        waitForRendering(dropdown)
    }

    function openFolders(count) {
        bench.makeFolders(count)
        open("/recent $")
    }

    function press(direction) {
        bench.arrow(direction)
        bench.advance(0)
    }

    function row(index) {
        return list.itemAtIndex(index)
    }

    function settle() {
        tryVerify(() => !list.isScrolling)
    }

    function instantiatedRows() {
        return Array.from(list.contentItem.children).filter(child => child.displayName !== undefined).length
    }

    // Its upper edge within the list.
    function topOf(index) {
        return row(index) ? row(index).y - list.contentY : undefined
    }

    function isColor(item, name) {
        return Qt.colorEqual(item.color, Theme.named(name))
    }

    function test_measures() {
        open("/")
        compare(list.count, 3)
        compare(dropdown.height, 3 * row(0).height + 2 + 8)
        compare(row(0).mapToItem(dropdown, 0, 0).x, 4)
        compare(row(0).width, 692)
        compare(row(0).radius, 6)
        compare(topOf(0), 4)
        compare(topOf(1), 4 + row(0).height + 1)
        compare(findChild(dropdown, "dropdownBackground").radius, 8)
        verify(Qt.colorEqual(findChild(dropdown, "dropdownBackground").color, Theme.controlBackground))
        compare(findChild(dropdown, "dropdownStroke").border.width, 1)
        const title = findChild(row(0), "title")
        const detail = findChild(row(0), "detail")
        compare(title.x, 12 + 18 + 10)
        compare(title.y, 8)
        compare(title.font.pixelSize, 13)
        compare(title.font.weight, Font.Medium)
        compare(title.font.family, SystemFonts.monospacedFont(13, Font.Medium).family)
        compare(detail.y, title.y + title.height + 2)
        compare(detail.font.pixelSize, 11)
        verify(Qt.colorEqual(detail.color, Theme.secondaryText))
        compare(row(0).height, detail.y + detail.height + 8)
    }

    function test_shadow_and_line() {
        const shadow = findChild(dropdown, "cardShadow")
        compare(shadow.source, "image://shadow/8/12")
        fuzzyCompare(shadow.opacity, 0.15, 0.001)
        compare(shadow.mapToItem(dropdown, 0, 0), Qt.point(-12, 2 - 12))
        compare(shadow.width, dropdown.width + 24)
        compare(shadow.height, dropdown.height + 24)
        verify(Qt.colorEqual(findChild(dropdown, "dropdownStroke").border.color, Qt.alpha(Theme.gray, 0.2)))
    }

    function test_scrolls_in_this_time() {
        const scrolling = findChild(list, "scrolling")
        compare(scrolling.duration, 100)
        compare(scrolling.easing.type, Easing.OutQuad)
    }

    function test_names_are_shown_as_they_stand() {
        open("/")
        for (const text of ["title", "detail", "iconText"])
            compare(findChild(row(0), text).textFormat, Text.PlainText)
    }

    function test_commands_have_emoji_and_others_symbols() {
        open("/")
        const emoji = findChild(row(0), "iconText")
        verify(emoji.visible)
        verify(emoji.text.length > 0)
        compare(emoji.font.pixelSize, 13)
        compare(findChild(row(0), "iconSymbol"), null)
        open("/new_note $")
        const symbol = findChild(row(0), "iconSymbol")
        compare(symbol.name, "doc.text")
        compare(symbol.fontSize, 14)
        compare(findChild(row(0), "iconText").visible, false)
    }

    function test_the_selected_row_is_marked_and_fades() {
        open("/")
        verify(isColor(row(0), "gray0.2"))
        verify(Qt.colorEqual(row(0).tint, Theme.text))
        verify(isColor(row(1), "clear"))
        verify(Qt.colorEqual(row(1).tint, Theme.accentMark))
        press("down")
        verify(!isColor(row(1), "gray0.2"))
        tryVerify(() => isColor(row(1), "gray0.2") && isColor(row(0), "clear"))
        verify(Qt.colorEqual(row(1).tint, Theme.text))
    }

    function test_hovering_marks_without_selecting() {
        open("/")
        mouseMove(row(1), 100, 20)
        tryVerify(() => isColor(row(1), "gray0.1"))
        verify(isColor(row(0), "gray0.2"))
        mouseMove(row(0), 100, 20)
        tryVerify(() => isColor(row(1), "clear"))
        verify(isColor(row(0), "gray0.2"))
        compare(bench.view.dropdown.selectedIndex, 0)
        mouseMove(testCase, 790, 390)
        verify(isColor(row(0), "gray0.2"))
    }

    function test_a_template_is_tinted_by_the_pointer() {
        bench.addTemplates(2)
        open("/new_note $")
        verify(list.count > 1)
        mouseMove(row(1), 100, 20)
        tryVerify(() => isColor(row(1), "gray0.1"))
    }

    function test_a_folder_is_not_tinted_by_the_pointer() {
        openFolders(3)
        mouseMove(row(1), 100, 20)
        wait(200)
        verify(isColor(row(1), "clear"))
    }

    function test_a_row_under_a_resting_pointer_is_not_hovered() {
        open("/")
        const y = row(1).mapToItem(testCase, 0, 20).y
        bench.close()
        mouseMove(testCase, 300, y)
        open("/")
        wait(50)
        verify(isColor(row(1), "clear"))
        mouseMove(testCase, 302, y)
        tryVerify(() => isColor(row(1), "gray0.1"))
    }

    function test_a_click_chooses() {
        open("/")
        const recent = row(2)
        compare(recent.displayName, "/recent")
        mouseClick(recent, 200, 20)
        verify(bench.text.startsWith("/recent"))
        bench.advance(0)
        compare(bench.view.showDropdown, false)
    }

    function test_the_first_row_of_an_opened_list_is_selected_and_seen() {
        openFolders(40)
        settle()
        compare(bench.view.dropdown.selectedIndex, 0)
        compare(topOf(0), 4)
    }

    function test_does_not_grow_beyond_its_maximum() {
        openFolders(40)
        compare(dropdown.height, 300)
        verify(list.contentHeight > 300)
        verify(instantiatedRows() < 12)
    }

    function test_arrow_down_brings_the_row_to_the_upper_edge() {
        openFolders(40)
        for (let index = 1; index <= 8; ++index) {
            press("down")
            verify(list.isScrolling)
            settle()
            compare(topOf(index), 0)
        }
    }

    function test_arrow_up_brings_the_row_to_the_lower_edge() {
        openFolders(40)
        for (let index = 1; index <= 20; ++index)
            press("down")
        settle()
        for (let index = 19; index >= 15; --index) {
            press("up")
            settle()
            compare(topOf(index) + row(index).height, 300)
        }
    }

    function test_arrows_quicker_than_the_scrolling() {
        openFolders(40)
        for (let index = 1; index <= 20; ++index) {
            press("down")
            wait(10)
        }
        settle()
        compare(topOf(20), 0)
        tryVerify(() => isColor(row(20), "gray0.2"))
        tryVerify(() => isColor(row(21), "clear") && isColor(row(22), "clear"))
    }

    function test_the_ends_of_the_list_stop_the_scrolling() {
        openFolders(10)
        for (let index = 1; index < list.count; ++index)
            press("down")
        settle()
        const last = list.count - 1
        compare(topOf(last) + row(last).height, 300 - 4)
        for (let index = last; index > 0; --index)
            press("up")
        settle()
        compare(topOf(0), 4)
    }

    function test_a_short_list_does_not_scroll() {
        open("/")
        press("down")
        press("down")
        settle()
        compare(topOf(0), 4)
        press("up")
        settle()
        compare(topOf(0), 4)
    }

    function test_a_list_lower_than_its_content_scrolls() {
        open("/")
        dropdown.height = 70
        press("down")
        settle()
        compare(topOf(1), 0)
    }

    function test_opens_at_its_beginning_again() {
        openFolders(40)
        for (let index = 1; index <= 20; ++index)
            press("down")
        settle()
        bench.close()
        open("/recent $")
        settle()
        compare(topOf(0), 4)
        verify(isColor(row(0), "gray0.2"))
    }

    function test_a_narrowed_list_shows_its_selected_row() {
        openFolders(40)
        for (let index = 1; index <= 30; ++index)
            press("down")
        settle()
        open("/recent $f00")
        const selected = bench.view.dropdown.selectedIndex
        verify(topOf(selected) >= 0 && topOf(selected) < 300)
    }

    function showsItsSelectedRow() {
        const selected = bench.view.dropdown.selectedIndex
        return topOf(selected) >= 0 && topOf(selected) + row(selected).height <= 300
    }

    function test_a_list_of_another_kind_shows_its_selected_row() {
        bench.addTemplates(60)
        openFolders(40)
        for (let index = 1; index <= 30; ++index)
            press("down")
        settle()
        open("/new_note $")
        verify(list.count >= 60)
        verify(showsItsSelectedRow())
    }

    function test_a_list_narrowed_while_it_scrolls_is_seen() {
        openFolders(40)
        for (let index = 1; index <= 30; ++index)
            press("down")
        tryVerify(() => list.contentY > 200)
        verify(list.isScrolling)
        open("/recent $f00")
        wait(Theme.scrollDuration + 50)
        compare(list.count, 10)
        verify(showsItsSelectedRow())
        verify(instantiatedRows() > 5)
    }

    function test_a_short_list_after_a_scrolled_one_is_seen_data() {
        return [{ tag: "at once", pause: 0, closes: false },
                { tag: "while it scrolls", pause: 30, closes: false },
                { tag: "at rest", pause: 200, closes: false },
                { tag: "opened at once", pause: 0, closes: true },
                { tag: "opened while it scrolls", pause: 30, closes: true },
                { tag: "opened at rest", pause: 200, closes: true }]
    }

    function test_a_short_list_after_a_scrolled_one_is_seen(data) {
        openFolders(40)
        for (let index = 1; index <= 30; ++index)
            press("down")
        wait(data.pause)
        if (data.closes)
            bench.close()
        open("/")
        wait(Theme.scrollDuration + 50)
        compare(list.count, 3)
        compare(topOf(0), 4)
        compare(row(2).displayName, "/recent")
    }

    function test_a_list_emptied_and_filled_again_is_seen() {
        openFolders(40)
        for (let index = 1; index <= 30; ++index)
            press("down")
        settle()
        open("/recent $zzz")
        compare(list.count, 0)
        open("/recent $")
        compare(list.count, 41)
        compare(topOf(0), 4)
    }

    function test_rows_are_kept_when_others_take_their_places() {
        open("/")
        const first = row(0)
        open("/re")
        compare(row(0), first)
        compare(first.displayName, "/recent")
        open("/")
        compare(row(0), first)
    }

    function test_an_empty_list_is_only_a_frame() {
        openFolders(3)
        open("/recent $zzz")
        compare(bench.view.showDropdown, true)
        compare(list.count, 0)
        compare(dropdown.implicitHeight, 8)
    }

    function test_long_names_stay_in_their_rows() {
        bench.addTemplates(200, 500)
        open("/new_note $")
        const title = findChild(row(4), "title")
        compare(title.text.length, 500)
        verify(title.truncated)
        verify(title.x + title.width <= row(4).width - 12)
        compare(row(4).height, row(0).height)
    }

    function test_wheel_scrolls() {
        openFolders(40)
        settle()
        mouseWheel(list, 100, 100, 0, -120)
        tryVerify(() => list.contentY > 0)
    }

    function test_what_lies_beneath_feels_nothing() {
        const beneath = createTemporaryObject(beneathComponent, testCase)
        const mouse = findChild(beneath, "mouse")
        open("/")
        mouseMove(row(1), 100, 20)
        tryVerify(() => isColor(row(1), "gray0.1"))
        compare(mouse.containsMouse, false)
        compare(bench.cursorShapeOver(dropdown), Qt.ArrowCursor)
        for (const step of [120, -120, -120, -120]) {
            mouseWheel(row(1), 100, 20, 0, step)
            wait(20)
        }
        compare(beneath.contentY, 500)
        mouseClick(row(1), 100, 20, Qt.RightButton)
        mouseClick(dropdown, 2, 20)
        mouseMove(dropdown, 2, 22)
        compare(mouse.clicks, 0)
        compare(mouse.containsMouse, false)
        mouseMove(testCase, 790, 390)
        tryCompare(mouse, "containsMouse", true)
        compare(bench.cursorShapeOver(dropdown), Qt.IBeamCursor)
    }

    function test_is_told_to_screen_readers() {
        open("/")
        compare(list.Accessible.role, Accessible.List)
        compare(row(1).Accessible.role, Accessible.ListItem)
        compare(row(1).Accessible.name, row(1).displayName)
        compare(row(1).Accessible.description, row(1).description)
        compare(row(0).Accessible.selected, true)
        compare(row(0).Accessible.focused, true)
        compare(row(1).Accessible.focused, false)
        compare(row(1).Accessible.selected, false)
        row(2).Accessible.pressAction()
        verify(bench.text.startsWith("/recent"))
    }
}
