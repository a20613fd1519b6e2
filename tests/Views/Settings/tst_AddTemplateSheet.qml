import QtQuick
import QtTest
import Jotwell
import JotwellTest

// The sheet for a new template, over the settings.
TestCase {
    id: testCase

    name: "AddTemplateSheet"
    when: windowShown
    width: 900
    height: 640
    visible: true

    Component {
        id: benchComponent
        SettingsBench {}
    }

    Component {
        id: settingsComponent
        SimpleSettingsView { anchors.fill: parent }
    }

    property var bench
    property var settings
    property var screen

    function init() {
        bench = benchComponent.createObject(testCase)
        screen = bench.view.newNote
        bench.view.select(4)
        settings = settingsComponent.createObject(testCase, { view: bench.view })
        tryVerify(() => findChild(settings, "plus") !== null)
        wait(0)
        mouseClick(findChild(settings, "plus"))
        tryVerify(() => part("newName") !== null && field("newName").activeFocus)
    }

    function cleanup() {
        settings.destroy()
        wait(0)
        bench.destroy()
        wait(0)
    }

    // It lies over all of the window.
    function part(name) {
        let top = settings
        while (top.parent)
            top = top.parent
        return findChild(top, name)
    }

    function field(name) {
        return findChild(part(name), "input")
    }

    function isOpen() {
        return screen.showAddTemplate
    }

    function type(text) {
        for (const character of text)
            keyClick(character)
    }

    function names() {
        return bench.storedTemplates()
    }

    function verifyClosed() {
        tryVerify(() => !isOpen())
        tryVerify(() => findChild(settings, "plus").activeFocus)
    }

    function test_measures_and_texts() {
        const ground = part("sheetBackground")
        compare(ground.width, 500)
        compare(ground.height, 600)
        const content = part("sheetContent")
        compare(content.mapToItem(ground, 0, 0), Qt.point(16, 16))
        compare(content.parent.Accessible.name, "Add New Template")
        compare(content.parent.Accessible.role, Accessible.Dialog)
        compare(field("newName").placeholderText, "Enter template name")
        compare(field("newName").Accessible.name, "Template Name")
        compare(field("newContent").placeholderText, "Enter template content...")
        compare(field("newContent").Accessible.name, "Template Content")
        compare(part("cancel").title, "Cancel")
        compare(part("add").title, "Add Template")
        verifyRoomOverButtons()
    }

    function verifyRoomOverButtons() {
        const bottom = () => part("newContent").y + part("newContent").height
        tryVerify(() => Math.abs(part("add").parent.y - bottom() - 16) < 8)
    }

    function test_whole_way_by_keys() {
        type("New")
        keyClick(Qt.Key_Tab)
        verify(field("newContent").activeFocus)
        type("text")
        keyClick(Qt.Key_Tab)
        verify(part("cancel").activeFocus)
        keyClick(Qt.Key_Tab)
        verify(part("add").activeFocus)
        keyClick(Qt.Key_Return)
        verifyClosed()
        tryVerify(() => names().length === 4)
        compare(names()[3], "New")
        compare(screen.editingTemplateName, "New")
        compare(screen.editingTemplateContent, "text")
    }

    function test_keyboard_stays_inside() {
        const stops = [part("cancel"), part("add"), field("newName"), field("newContent")]
        field("newContent").forceActiveFocus()
        for (let i = 0; i < 12; ++i) {
            keyClick(Qt.Key_Tab)
            verify(stops[i % 4].activeFocus, i)
        }
        for (let i = 10; i >= 0; --i) {
            keyClick(Qt.Key_Backtab, Qt.ShiftModifier)
            verify(stops[i % 4].activeFocus, i)
        }
    }

    function test_escape_cancels() {
        type("New")
        keyClick(Qt.Key_Escape)
        verifyClosed()
        compare(names().length, 3)
    }

    function test_cancel() {
        mouseClick(part("cancel"))
        verifyClosed()
        compare(names().length, 3)
    }

    function test_begins_empty_again() {
        type("New")
        keyClick(Qt.Key_Tab)
        type("text")
        keyClick(Qt.Key_Escape)
        verifyClosed()
        mouseClick(findChild(settings, "plus"))
        tryVerify(() => field("newName").activeFocus)
        compare(field("newName").text, "")
        compare(field("newContent").text, "")
    }

    // A text area tells a no-break blank as another.
    function test_text_as_entered() {
        const entered = "10\u00a0km"
        field("newContent").insert(0, entered)
        mouseClick(part("add"))
        verifyClosed()
        compare(screen.editingTemplateContent, entered)
    }

    function test_no_name() {
        mouseClick(part("add"))
        verifyClosed()
        tryVerify(() => names()[3] === "New Template")
    }

    function test_what_is_below_takes_no_clicks() {
        const selected = screen.selectedTabId
        mouseClick(settings, 40, 60)
        compare(bench.view.selectedItem, "/new_note")
        verify(isOpen())
        compare(screen.selectedTabId, selected)
    }

    function test_long_text_stays_in_its_field() {
        field("newContent").text = "line\n".repeat(500)
        wait(50)
        verifyRoomOverButtons()
    }
}
