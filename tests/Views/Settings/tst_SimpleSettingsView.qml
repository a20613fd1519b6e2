import QtQuick
import QtTest
import Jotwell
import JotwellTest

// The settings window's content: the sidebar and the ground of its screens.
TestCase {
    id: testCase

    name: "SimpleSettingsView"
    when: windowShown
    width: 900
    height: 600
    visible: true

    Component {
        id: benchComponent
        SettingsBench {}
    }

    Component {
        id: settingsComponent
        SimpleSettingsView { anchors.fill: parent }
    }

    readonly property int updatesRow: 2
    readonly property int otherRow: 3
    readonly property int newNoteRow: 4
    property var bench
    property var settings

    function init() {
        bench = benchComponent.createObject(testCase)
        settings = settingsComponent.createObject(testCase, { view: bench.view })
        mouseMove(testCase, 450, 590)
    }

    function cleanup() {
        settings.destroy()
        bench.destroy()
        wait(0)
    }

    function part(name) {
        return findChild(settings, name)
    }

    function row(index) {
        return part("row" + index)
    }

    function detail() {
        return part("detail").item
    }

    function texts() {
        const found = []
        const search = item => {
            if (item.visible && item instanceof Text)
                found.push(item.text)
            Array.from(item.children).forEach(search)
        }
        search(detail())
        return found
    }

    function show(index) {
        mouseClick(row(index))
        verify(row(index).isSelected)
    }

    function verifyColor(actual, expected) {
        verify(Qt.colorEqual(actual, expected), actual + " isn't " + expected)
    }

    function test_sidebar_measures() {
        compare(part("sidebar").width, 250)
        compare(detail().mapToItem(settings, 0, 0).x, 250)
        const heading = part("heading")
        compare(heading.text, "GENERAL")
        compare(heading.font.pixelSize, Theme.captionFontSize)
        compare(heading.font.weight, Font.Medium)
        verifyColor(heading.color, Theme.secondaryText)
        compare([heading.leftPadding, heading.topPadding, heading.bottomPadding], [16, 20, 4])
        compare(row(0).width, 250)
        compare(row(0).contentItem.mapToItem(row(0), 0, 0), Qt.point(16, 8))
        const symbol = findChild(row(0), "symbol")
        const title = findChild(row(0), "title")
        compare(symbol.fontSize, Theme.title2FontSize)
        verifyColor(symbol.color, Theme.grayText)
        compare(title.x, symbol.width + 12)
        compare(title.font.pixelSize, Theme.bodyFontSize)
        verifyColor(title.color, Theme.text)
    }

    function test_command_row_measures() {
        const content = row(newNoteRow).contentItem
        compare(content.mapToItem(row(newNoteRow), 0, 0), Qt.point(10, 10))
        compare(row(newNoteRow).height, content.height + 20)
        compare(findChild(row(newNoteRow), "emoji").text, "📝")
        compare(findChild(row(newNoteRow), "emoji").font.pixelSize, Theme.title3FontSize)
        const title = findChild(row(newNoteRow), "title")
        const description = findChild(row(newNoteRow), "description")
        compare(title.text, "/new_note")
        compare(title.font.pixelSize, Theme.title3FontSize)
        verifyColor(title.color, Theme.text)
        compare(description.text, "Create new note")
        compare(description.font.pixelSize, Theme.captionFontSize)
        verifyColor(description.color, Theme.secondaryText)
        verify(description.mapToItem(title, 0, 0).y >= title.height)
        const above = findChild(row(0), "title")
        verify(Math.abs(title.mapToItem(above, 0, 0).x) < 1, "the titles stand in one column")
    }

    function test_selected_row_is_tinted() {
        const grounds = () => [0, 1, 5].map(index => findChild(row(index), "rowBackground").color)
        verifyColor(grounds()[0], Qt.alpha(Theme.accent, 0.1))
        verifyColor(grounds()[1], "transparent")
        show(5)
        verifyColor(grounds()[0], "transparent")
        verifyColor(grounds()[2], Qt.alpha(Theme.accent, 0.1))
    }

    function test_each_entry_has_its_screen() {
        verify(texts().includes("Global Hotkey"))
        show(updatesRow)
        compare(bench.view.selectedItem, "softwareUpdates")
        verify(texts().includes("Updates"))
        show(otherRow)
        verify(texts().includes("Other Settings"))
        show(0)
        verify(texts().includes("Keyboard Shortcut"))
    }

    function test_arrows_work_the_sidebar() {
        const items = ["globalHotkey", "obsidianVault", "softwareUpdates", "other", "/new_note",
                       "/search_notes", "/recent"]
        verify(row(0).activeFocus)
        for (let index = 1; index < items.length; ++index) {
            keyClick(Qt.Key_Down)
            compare(bench.view.selectedItem, items[index])
            verify(row(index).activeFocus)
            compare(findChild(row(index), "rowBackground").border.width, 2)
        }
        keyClick(Qt.Key_Down)
        compare(bench.view.selectedItem, "/recent")
        keyClick(Qt.Key_Up)
        compare(bench.view.selectedItem, "/search_notes")
        keyClick(Qt.Key_Home)
        compare(bench.view.selectedItem, "globalHotkey")
        keyClick(Qt.Key_Up)
        compare(bench.view.selectedItem, "globalHotkey")
        verify(row(0).activeFocus)
        keyClick(Qt.Key_End)
        compare(bench.view.selectedItem, "/recent")
        verify(row(6).activeFocus)
    }

    function test_low_sidebar_shows_the_selected_row() {
        settings.anchors.fill = undefined
        settings.width = 760
        settings.height = 160
        const sidebar = part("sidebar")
        tryVerify(() => sidebar.interactive)
        const isShown = index => {
            const top = row(index).mapToItem(sidebar, 0, 0).y
            return top >= 0 && top + row(index).height <= sidebar.height
        }
        for (let index = 0; index < 7; ++index) {
            verify(isShown(index), index)
            keyClick(Qt.Key_Down)
        }
        settings.height = 120
        verify(isShown(6), "also if it gets lower")
        keyClick(Qt.Key_Home)
        verify(isShown(0))
        compare(sidebar.contentY, 0)
    }

    function test_click_leaves_the_keyboard_where_it_is() {
        show(updatesRow)
        part("checkNow").forceActiveFocus(Qt.TabFocusReason)
        mouseClick(row(updatesRow))
        verify(part("checkNow").activeFocus)
        show(otherRow)
        verify(!row(otherRow).activeFocus)
    }

    function test_tab_goes_once_through_the_sidebar_and_then_the_screen() {
        show(updatesRow)
        verify(row(updatesRow).activeFocus)
        const stops = ["checksAutomatically", "downloadsAutomatically", "checkNow", "row" + updatesRow]
        for (const name of stops) {
            keyClick(Qt.Key_Tab)
            verify(part(name).activeFocus, name)
        }
        keyClick(Qt.Key_Backtab, Qt.ShiftModifier)
        verify(part("checkNow").activeFocus)
    }

    function test_tab_goes_through_a_recording() {
        part("recordButton").forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_Space)
        bench.key(settings, true, Qt.Key_K, Qt.ControlModifier, 40)
        for (const name of ["cancelButton", "saveButton"]) {
            bench.key(settings, true, Qt.Key_Tab, Qt.NoModifier, 48)
            verify(part(name).activeFocus, name)
        }
        bench.key(settings, true, Qt.Key_Backtab, Qt.ShiftModifier, 48)
        bench.key(settings, true, Qt.Key_Backtab, Qt.ShiftModifier, 48)
        verify(part("display").activeFocus)
    }

    function test_accessible_sidebar() {
        compare(part("sidebar").Accessible.role, Accessible.List)
        const updates = row(updatesRow).Accessible
        compare(updates.role, Accessible.ListItem)
        compare([updates.name, updates.description], ["Updates", ""])
        verify(!updates.selected)
        updates.pressAction()
        verify(updates.selected)
        const newNote = row(newNoteRow).Accessible
        compare([newNote.name, newNote.description], ["/new_note", "Create new note"])
    }

    function test_card() {
        const card = part("card")
        compare(card.radius, 12)
        verifyColor(card.color, Theme.controlBackground)
        compare(card.mapToItem(settings, 0, 0), Qt.point(250 + 16, 8))
        compare(card.width, 900 - 250 - 2 * 16)
    }

    function test_low_window_shows_what_has_the_keyboard() {
        settings.anchors.fill = undefined
        settings.width = 760
        settings.height = 160
        const page = detail()
        tryVerify(() => page.interactive)
        part("openSettings").forceActiveFocus(Qt.TabFocusReason)
        const top = part("openSettings").mapToItem(page, 0, 0).y
        verify(top >= 0 && top + part("openSettings").height <= page.height, top)
        part("recordButton").forceActiveFocus(Qt.TabFocusReason)
        verify(part("recordButton").mapToItem(page, 0, 0).y >= 0)
    }
}
