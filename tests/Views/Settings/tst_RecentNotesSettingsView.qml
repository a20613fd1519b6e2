import QtQuick
import QtTest
import Jotwell
import JotwellTest

// The screens of the commands that search and list, worked by keys.
TestCase {
    id: testCase

    name: "RecentNotesSettingsView"
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

    readonly property int searchRow: 5
    readonly property int recentRow: 6
    property var bench
    property var settings

    function init() {
        bench = benchComponent.createObject(testCase)
        bench.recentFilesCount = 10
        settings = settingsComponent.createObject(testCase, { view: bench.view })
        mouseMove(testCase, 450, 590)
        mouseClick(row(recentRow))
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

    function field() {
        return findChild(part("recentFilesCount"), "input")
    }

    function type(...keys) {
        field().forceActiveFocus(Qt.TabFocusReason)
        keys.forEach(key => keyClick(key))
    }

    function verifyNumber(shown, stored) {
        compare(field().text, shown)
        compare(bench.recentFilesCount, stored)
    }

    function test_field() {
        compare(part("recentFilesCount").title, "Number of Recent Files to Show")
        compare(part("recentFilesCount").placeholder, "10")
        compare(field().Accessible.name, "Number of Recent Files to Show")
        compare(field().text, "10")
    }

    function test_each_key_is_stored() {
        field().forceActiveFocus(Qt.TabFocusReason)
        field().selectAll()
        type("2")
        verifyNumber("2", 2)
        type("5")
        verifyNumber("25", 25)
        keyClick(Qt.Key_Backspace)
        verifyNumber("2", 2)
    }

    function test_emptied_field_is_put_back_for_the_next_key_to_replace() {
        field().forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_End)
        keyClick(Qt.Key_Backspace)
        verifyNumber("1", 1)
        keyClick(Qt.Key_Backspace)
        verifyNumber("1", 1)
        compare(field().selectedText, "1")
        type("3", "0")
        verifyNumber("30", 30)
    }

    function test_what_is_no_number_is_put_back_data() {
        return [{ tag: "zero", keys: ["0"] }, { tag: "negative", keys: ["-", "3"], end: ["3", 3] },
                { tag: "letter", keys: ["a"] }, { tag: "blank", keys: [" "] }]
    }

    function test_what_is_no_number_is_put_back(data) {
        field().forceActiveFocus(Qt.TabFocusReason)
        field().selectAll()
        type(data.keys[0])
        verifyNumber("10", 10)
        compare(field().selectedText, "10")
        if (data.keys.length > 1) {
            type(data.keys[1])
            verifyNumber(...data.end)
        }
    }

    function test_pasted_text_is_put_back_data() {
        return [{ tag: "0" }, { tag: "-3" }, { tag: "abc" }, { tag: "99999999999999999999" }]
    }

    function test_pasted_text_is_put_back(data) {
        field().forceActiveFocus(Qt.TabFocusReason)
        field().selectAll()
        field().insert(0, data.tag)
        field().remove(data.tag.length, field().length)
        field().selectAll()
        verifyNumber("10", 10)
    }

    function test_undo_leads_to_numbers_only() {
        type("5")
        keyClick(Qt.Key_Z, Qt.ControlModifier)
        verify(/^[1-9][0-9]*$/.test(field().text))
        compare(bench.recentFilesCount, Number(field().text))
    }

    function test_searches_have_no_settings() {
        mouseClick(row(searchRow))
        const shown = part("searchNotes")
        const [symbol, title, text, hint] = Array.from(shown.children)
        compare(symbol.name, "magnifyingglass.circle")
        compare(symbol.fontSize, 48)
        verify(Qt.colorEqual(symbol.color, Theme.secondaryText))
        compare([title.text, title.font.pixelSize, title.font.weight],
                ["Search Notes Settings", Theme.title2FontSize, Font.DemiBold])
        compare([text.text, text.font.pixelSize],
                ["Search for notes in your Obsidian vault by filename.", Theme.bodyFontSize])
        verify(Qt.colorEqual(text.color, Theme.secondaryText))
        compare([hint.text, hint.font.pixelSize],
                ["No additional configuration needed", Theme.captionFontSize])
        verify(Qt.colorEqual(hint.color, Theme.secondaryText))
        const detail = part("detail")
        for (const each of Array.from(shown.children))
            fuzzyCompare(each.mapToItem(detail, each.width / 2, 0).x, detail.width / 2, 1)
        fuzzyCompare(shown.mapToItem(detail, 0, shown.height / 2).y, detail.height / 2, 1)
    }
}
