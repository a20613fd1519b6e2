import QtQuick
import QtTest
import Jotwell
import JotwellTest

// The templates' screen, within the settings.
TestCase {
    id: testCase

    name: "SimpleObsidianSettingsView"
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

    readonly property int newNoteRow: 4

    property var bench
    property var settings
    property var screen

    function init() {
        bench = benchComponent.createObject(testCase)
        screen = bench.view.newNote
    }

    function cleanup() {
        settings.destroy()
        wait(0)
        bench.destroy()
        wait(0)
    }

    function open() {
        bench.view.select(newNoteRow)
        settings = settingsComponent.createObject(testCase, { view: bench.view })
        mouseMove(testCase, 450, 595)
        tryVerify(() => part("tabs") !== null)
        wait(0)
    }

    function part(name) {
        return findChild(settings, name)
    }

    function field(name) {
        return findChild(part(name), "input")
    }

    function tab(index) {
        return findChild(part("tabs"), "tab" + index)
    }

    function texts() {
        const found = []
        const search = item => {
            if (item.visible && item instanceof Text)
                found.push(item.text)
            Array.from(item.children).forEach(search)
        }
        search(part("detail").item)
        return found
    }

    function type(text) {
        for (const character of text)
            keyClick(character)
    }

    function test_what_is_shown() {
        open()
        const shown = texts()
        for (const text of ["Sync templates from a folder with Jotwell",
                            "Path to a templates folder (optional)", "Browse", "Default", "Meeting",
                            "Daily Note", "Template Name", "Enable", "Template",
                            "Available placeholders: {{title}}, {{content}}, {{date}}"])
            verify(shown.includes(text), text)
        verify(!part("noTemplates").visible)
        compare(field("nameField").text, "Default")
        compare(field("contentField").text, "# {{title}}\n\n{{content}}\n\n---\nCreated: {{date}}")
        compare(field("contentField").placeholderText, "Enter template content...")
    }

    function test_tabs_select() {
        open()
        mouseClick(tab(1))
        compare(field("nameField").text, "Meeting")
        verify(tab(1).isSelected)
        tab(1).forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_Right)
        compare(field("nameField").text, "Daily Note")
        keyClick(Qt.Key_Home)
        compare(field("nameField").text, "Default")
    }

    function test_typing_is_stored() {
        open()
        mouseClick(field("nameField"))
        keyClick(Qt.Key_End)
        type("s")
        compare(tab(0).tab.title, "Defaults")
        tryVerify(() => bench.storedTemplates()[0] === "Defaults")
        compare(bench.storedTemplates(), ["Defaults", "Meeting", "Daily Note"])
    }

    function test_no_undo_into_another_template() {
        open()
        mouseClick(field("nameField"))
        type("x")
        field("contentField").forceActiveFocus()
        type("y")
        mouseClick(tab(1))
        for (const name of ["nameField", "contentField"]) {
            field(name).forceActiveFocus()
            keyClick(Qt.Key_Z, Qt.ControlModifier)
        }
        compare(screen.editingTemplateName, "Meeting")
        verify(screen.editingTemplateContent.startsWith("# Meeting"))
    }

    function test_no_undo_into_a_template_of_the_same_name() {
        open()
        screen.addTemplate("Daily Notex", "")
        mouseClick(tab(2))
        mouseClick(field("nameField"))
        keyClick(Qt.Key_End)
        type("x")
        mouseClick(tab(3))
        compare(screen.editingTemplateName, "Daily Notex")
        field("nameField").forceActiveFocus()
        keyClick(Qt.Key_Z, Qt.ControlModifier)
        compare(screen.editingTemplateName, "Daily Notex")
    }

    function test_long_text_is_shown_from_its_beginning() {
        open()
        const content = "line\n".repeat(100)
        screen.addTemplate("Long", content)
        screen.selectTab(screen.tabs.idOfRow(0))
        mouseClick(tab(3))
        tryCompare(field("contentField"), "text", content)
        wait(50)
        compare(field("contentField").cursorPosition, 0)
        compare(findChild(part("contentField"), "flickable").contentY, 0)
    }

    function test_deletion_by_key() {
        open()
        const trash = findChild(part("nameField"), "button")
        trash.forceActiveFocus(Qt.TabFocusReason)
        compare(trash.Accessible.name, "Delete Template")
        keyClick(Qt.Key_Space)
        compare(field("nameField").text, "Meeting")
        verify(trash.activeFocus)
        keyClick(Qt.Key_Space)
        keyClick(Qt.Key_Space)
        verify(!part("fields").visible)
        verify(texts().includes("No templates available. Click above to create one."))
        verify(part("plusCircle").activeFocus)
    }

    function test_enable() {
        open()
        const box = findChild(part("nameField"), "checkbox")
        verify(box.isChecked)
        mouseClick(box)
        verify(!screen.showInDropdown)
        verify(!box.isChecked)
        mouseClick(tab(1))
        verify(box.isChecked)
        mouseClick(tab(0))
        verify(!box.isChecked)
    }

    function test_synced_template() {
        bench.putTemplate("Errand", "a\r\nb")
        open()
        compare(findChild(tab(3), "secondaryIcon").name, "arrow.triangle.2.circlepath")
        mouseClick(tab(3))
        verify(!field("nameField").enabled)
        verify(findChild(part("nameField"), "button").isDisabled)
        verify(!findChild(part("nameField"), "checkbox").isDisabled)
        const area = field("contentField")
        compare(area.text, "a\nb")
        area.forceActiveFocus()
        keyClick(Qt.Key_End, Qt.ControlModifier)
        type("c")
        tryVerify(() => bench.templateText("Errand") === "a\r\nbc")
        compare(area.cursorPosition, 4)
        verify(!part("notice").visible)
    }

    function test_conflict_is_told() {
        bench.putTemplate("Errand", "known")
        open()
        mouseClick(tab(3))
        wait(20)
        bench.putTemplateUnseen("Errand", "theirs")
        field("contentField").forceActiveFocus()
        type("x")
        tryVerify(() => part("notice").visible)
        compare(part("notice").text,
                "Another program has changed this file. Its version is kept as “Errand (conflict).md”.")
    }

    function test_deletion_before_a_synced_one_keeps_the_keyboard() {
        bench.storeNoTemplates()
        bench.putTemplate("Errand", "x")
        open()
        screen.addTemplate("own", "")
        tryVerify(() => tab(0).tab.title === "own")
        mouseClick(tab(0))
        const trash = findChild(part("nameField"), "button")
        trash.forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_Space)
        compare(field("nameField").text, "Errand")
        verify(tab(0).activeFocus)
    }

    function test_folder() {
        open()
        mouseClick(findChild(part("folderField"), "button"))
        verify(bench.asksForFolder)
        bench.answerPanel("/chosen")
        compare(field("folderField").text, "/chosen")
        mouseClick(field("folderField"))
        keyClick(Qt.Key_End)
        keyClick("x")
        compare(screen.templatesFolderPath, "/chosenx")
    }

    function test_thousands_of_templates() {
        for (let i = 0; i < 5000; ++i)
            bench.putTemplateUnseen("many " + i, "x".repeat(500))
        bench.putTemplate("last", "x")
        settings = settingsComponent.createObject(testCase, { view: bench.view })
        mouseMove(testCase, 450, 595)
        bench.view.select(newNoteRow)
        wait(0)
        compare(part("tabs").count, 5004)
        field("contentField").forceActiveFocus()
        keyClick("y")
        for (const row of [2500, 4000])
            verify(findChild(part("tabs"), "tab" + row) === null, row)
    }

    function test_no_templates() {
        bench.storeNoTemplates()
        open()
        verify(part("noTemplates").visible)
        verify(!part("fields").visible)
        mouseClick(part("plusCircle"))
        verify(screen.showAddTemplate)
    }

    function test_keyboard_goes_round() {
        open()
        const names = []
        part("tabs").takeFocus()
        for (let i = 0; i < 6; ++i) {
            names.push(settings.Window.activeFocusItem.Accessible.name)
            keyClick(Qt.Key_Tab)
        }
        compare(names, ["Default", "Add Template", "Template Name", "Delete Template", "Enable",
                        "Template"])
    }
}
