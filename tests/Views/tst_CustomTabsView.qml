import QtQuick
import QtTest
import Jotwell

TestCase {
    id: testCase

    name: "CustomTabsView"
    when: windowShown
    width: 500
    height: 200
    visible: true

    Component {
        id: tabsComponent
        CustomTabsView {
            x: 20
            y: 20
            width: 460
            selectedTabId: "two"
            tabs: [{ id: "one", title: "Daily" },
                   { id: "two", title: "Meeting", icon: "doc.text" },
                   { id: "three", title: "Synced", secondaryIcon: "arrow.triangle.2.circlepath" }]
        }
    }

    Component {
        id: otherComponent
        FocusScope {
            width: 10
            height: 10
            activeFocusOnTab: true
        }
    }

    property var tabs

    function init() {
        mouseMove(testCase, 5, 5)
        tabs = createTemporaryObject(tabsComponent, testCase)
    }

    function tab(index) {
        return findChild(tabs, "tab" + index)
    }

    function test_order_and_measures() {
        compare(tab(0).tab.title, "Daily")
        compare(tab(1).tab.title, "Meeting")
        compare(tab(2).tab.title, "Synced")
        verify(tab(0).x < tab(1).x && tab(1).x < tab(2).x)
        const text = findChild(tab(0), "text")
        compare(text.font.pixelSize, 13)
        compare(text.font.weight, Font.Normal)
        compare(text.mapToItem(tab(0), 0, 0), Qt.point(16, 8))
        compare(tab(0).width, text.implicitWidth + 32)
        compare(tab(0).height, tab(2).height)
    }

    function test_icons() {
        const icon = findChild(tab(1), "icon")
        compare(icon.name, "doc.text")
        compare(icon.fontSize, 12)
        compare(findChild(tab(1), "text").x, icon.width + 6)
        verify(!findChild(tab(0), "icon").visible)
        const second = findChild(tab(2), "secondaryIcon")
        compare(second.name, "arrow.triangle.2.circlepath")
        compare(second.fontSize, 10)
        compare(second.x, findChild(tab(2), "title").width + 6)
        verify(!findChild(tab(0), "secondaryIcon").visible)
    }

    function expect(button, background, foreground) {
        verify(Qt.colorEqual(findChild(button, "buttonBackground").color, background))
        verify(Qt.colorEqual(findChild(button, "text").color, foreground))
    }

    function test_colours() {
        expect(tab(1), Theme.accent, "white")
        expect(tab(0), "transparent", Theme.secondaryText)
        mouseMove(tab(0), 10, 10)
        expect(tab(0), Qt.alpha(Theme.gray, 0.1), Theme.text)
        mouseMove(tab(1), 10, 10)
        expect(tab(1), Theme.accent, "white")
    }

    function test_tap_selects() {
        mouseClick(tab(2))
        compare(tabs.selectedTabId, "three")
        verify(tab(2).isSelected)
        verify(!tab(1).isSelected)
        compare(tab(2).scale, 1)
    }

    function test_nothing_selected() {
        tabs.selectedTabId = ""
        for (let i = 0; i < 3; ++i)
            verify(!tab(i).isSelected)
        const other = createTemporaryObject(otherComponent, testCase)
        other.forceActiveFocus()
        keyClick(Qt.Key_Tab)
        verify(tab(0).activeFocus)
        keyClick(Qt.Key_Space)
        compare(tabs.selectedTabId, "one")
    }

    function test_keys() {
        const other = createTemporaryObject(otherComponent, testCase)
        other.forceActiveFocus()
        keyClick(Qt.Key_Tab)
        verify(tab(1).activeFocus)
        verify(findChild(tab(1), "focusRing").visible)
        keyClick(Qt.Key_Right)
        compare(tabs.selectedTabId, "three")
        verify(tab(2).activeFocus)
        keyClick(Qt.Key_Right)
        compare(tabs.selectedTabId, "three")
        keyClick(Qt.Key_Home)
        compare(tabs.selectedTabId, "one")
        keyClick(Qt.Key_Left)
        compare(tabs.selectedTabId, "one")
        keyClick(Qt.Key_End)
        compare(tabs.selectedTabId, "three")
        keyClick(Qt.Key_Left)
        compare(tabs.selectedTabId, "two")
        keyClick(Qt.Key_Tab)
        verify(other.activeFocus)
    }

    function manyTabs(count) {
        const many = []
        for (let i = 0; i < count; ++i)
            many.push({ id: "id" + i, title: "Template " + i })
        return many
    }

    function test_long_row_follows_the_selection() {
        tabs.width = 300
        tabs.tabs = manyTabs(200)
        tabs.selectedTabId = "id0"
        tab(0).forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_End)
        compare(tabs.selectedTabId, "id199")
        verify(tab(199).activeFocus)
        verifySeen(tab(199))
        compare(tab(0), null)
        keyClick(Qt.Key_Home)
        compare(tabs.selectedTabId, "id0")
        verify(tab(0).activeFocus)
        verifySeen(tab(0))
        tabs.selectedTabId = "id100"
        verify(tab(100).activeFocus)
        verifySeen(tab(100))
    }

    function verifySeen(button) {
        const x = button.mapToItem(tabs, 0, 0).x
        verify(x >= 0 && x + button.width <= tabs.width, x + " and " + button.width + " in " + tabs.width)
    }

    function test_only_what_is_seen_is_made() {
        tabs.width = 300
        tabs.tabs = manyTabs(5000)
        tabs.selectedTabId = "id4000"
        wait(0)
        let made = 0
        for (const item of Array.from(tabs.contentItem.children))
            made += item.objectName.startsWith("tab") ? 1 : 0
        verify(made > 2 && made < 30, made)
    }

    function test_keyboard_stays_in_a_tab_that_is_out_of_sight() {
        tabs.width = 300
        tabs.tabs = manyTabs(200)
        tabs.selectedTabId = "id0"
        tab(0).forceActiveFocus(Qt.TabFocusReason)
        tabs.contentX = 5000
        wait(0)
        verify(tab(0).activeFocus)
        keyClick(Qt.Key_Right)
        compare(tabs.selectedTabId, "id1")
        verifySeen(tab(1))
    }

    function test_long_title_is_cut() {
        tabs.width = 500
        tabs.tabs = [{ id: "one", title: "x".repeat(500) }, { id: "two", title: "" }]
        tryVerify(() => tab(1) !== null)
        compare(tab(0).width, 240 + 32)
        compare(tab(0).Accessible.name, "x".repeat(500))
        compare(findChild(tab(1), "text").text, "Untitled")
    }

    function test_accessible() {
        compare(tabs.Accessible.role, Accessible.PageTabList)
        compare(tab(0).Accessible.role, Accessible.PageTab)
        compare(tab(0).Accessible.name, "Daily")
        verify(tab(1).Accessible.selected)
        tab(0).Accessible.pressAction()
        compare(tabs.selectedTabId, "one")
        verify(tab(0).Accessible.selected)
        verify(!tab(1).Accessible.selected)
    }

    function test_no_tabs() {
        tabs.tabs = []
        tryCompare(tabs, "contentWidth", 0)
        keyClick(Qt.Key_Right)
        compare(tabs.selectedTabId, "two")
    }
}
