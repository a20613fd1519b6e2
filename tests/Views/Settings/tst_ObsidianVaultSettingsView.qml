import QtQuick
import QtTest
import Jotwell
import JotwellTest

// The screen of the vault, worked by keys and pointer.
TestCase {
    id: testCase

    name: "ObsidianVaultSettingsView"
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

    readonly property int vaultRow: 1
    property var bench
    property var settings
    property string oldVault
    property string newVault

    function init() {
        bench = benchComponent.createObject(testCase)
        oldVault = bench.makeVault("old", 1)
        newVault = bench.makeVault("new", 2)
        bench.vaultPath = oldVault
        settings = settingsComponent.createObject(testCase, { view: bench.view })
        mouseMove(testCase, 450, 590)
        mouseClick(row(vaultRow))
    }

    function cleanup() {
        bench.finishBuilds()
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
        return findChild(part("vaultPath"), "input")
    }

    function browse() {
        return findChild(part("vaultPath"), "button")
    }

    function type(text) {
        for (const character of text)
            keyClick(character)
    }

    function typePath(path) {
        field().forceActiveFocus(Qt.TabFocusReason)
        field().selectAll()
        type(path)
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

    function test_shows_the_path() {
        const shown = texts()
        for (const text of ["Vault Path", "Browse", "Search Index", "Rebuild Index", "Index not built",
                            "Select the folder where your Obsidian vault is located. New notes will be created in this folder.",
                            "Index not built. Build the index to enable fast search."])
            verify(shown.includes(text), text)
        compare(field().text, oldVault)
        compare(part("rebuild").icon, "arrow.clockwise")
        const badge = part("badge")
        compare(badge.mapToItem(part("card"), 0, 0).x + badge.width, part("card").width - 24)
    }

    function test_typed_path_is_taken_by_return() {
        bench.holdBuilds()
        typePath(newVault)
        compare(bench.vaultPath, oldVault)
        compare(bench.builds, 0)
        keyClick(Qt.Key_Return)
        compare(bench.vaultPath, newVault)
        compare(bench.builds, 1)
        keyClick(Qt.Key_Return)
        compare(bench.builds, 1)
        verify(field().activeFocus)
    }

    function test_typed_path_is_taken_when_the_keyboard_goes_on() {
        typePath(newVault)
        keyClick(Qt.Key_Tab)
        verify(browse().activeFocus)
        compare(bench.vaultPath, newVault)
        compare(bench.builds, 1)
        keyClick(Qt.Key_Tab, Qt.ShiftModifier)
        keyClick(Qt.Key_Tab)
        compare(bench.builds, 1)
    }

    function test_typed_path_is_taken_when_another_screen_is_chosen() {
        typePath(newVault)
        mouseClick(row(0))
        compare(bench.vaultPath, newVault)
        compare(bench.builds, 1)
        mouseClick(row(vaultRow))
        compare(field().text, newVault)
    }

    function test_typed_path_waits_while_the_window_is_away() {
        typePath(newVault)
        const other = createTemporaryQmlObject("import QtQuick; Window { visible: true }", testCase)
        other.requestActivate()
        tryVerify(() => other.active)
        compare(bench.vaultPath, oldVault)
        other.close()
        testCase.Window.window.requestActivate()
        tryVerify(() => testCase.Window.window.active)
        compare(field().text, newVault)
        verify(field().activeFocus)
        keyClick(Qt.Key_Return)
        compare(bench.vaultPath, newVault)
    }

    function test_emptied_path() {
        typePath("")
        keyClick(Qt.Key_Delete)
        keyClick(Qt.Key_Return)
        compare(bench.vaultPath, "")
        compare(bench.builds, 0)
        verify(part("rebuild").isDisabled)
    }

    function test_folder_is_chosen_in_the_panel() {
        mouseClick(browse())
        verify(bench.asksForFolder)
        bench.answerPanel(newVault)
        compare(field().text, newVault)
        compare(bench.vaultPath, newVault)
        compare(bench.builds, 1)
        mouseClick(row(0))
        compare(bench.vaultPath, newVault)
        compare(bench.builds, 1)
    }

    function test_choice_takes_the_place_of_what_is_being_typed() {
        typePath("/elsewhere")
        mouseClick(browse())
        verify(bench.asksForFolder)
        bench.answerPanel(newVault)
        compare(field().text, newVault)
        compare(bench.builds, 1)
        keyClick(Qt.Key_Return)
        compare(bench.vaultPath, newVault)
        compare(bench.builds, 1)
    }

    function test_panel_closes_with_the_screen() {
        mouseClick(browse())
        mouseClick(row(0))
        verify(!bench.asksForFolder)
    }

    function test_progress_stands_in_the_place_of_the_button() {
        bench.holdBuilds()
        part("rebuild").forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_Return)
        compare(bench.builds, 1)
        bench.advance(16)
        verify(!part("rebuild").visible)
        compare(part("indexStatus").text, "Indexing 0 of 0 files..")
        keyClick(Qt.Key_Return)
        compare(bench.builds, 1)
        bench.finishBuilds()
        bench.advance(16)
        verify(part("rebuild").visible)
        compare(part("indexStatus").text, "Index last updated 0s ago")
        verify(part("rebuild").activeFocus)
        keyClick(Qt.Key_Space)
        compare(bench.builds, 2)
    }

    function test_long_error_stays_in_the_card() {
        typePath("/" + "missing/".repeat(60))
        keyClick(Qt.Key_Return)
        bench.finishBuilds()
        bench.advance(16)
        verify(part("indexStatus").text.startsWith("Error: "))
        const card = part("card")
        for (const name of ["indexStatus", "badge", "vaultPath", "rebuild"]) {
            const place = part(name).mapToItem(card, 0, 0)
            verify(place.x >= 24 && place.x + part(name).width <= card.width - 24, name)
        }
        const heading = part("indexHeading")
        settings.anchors.fill = undefined
        settings.width = 540
        tryVerify(() => part("badge").height > heading.height)
        tryVerify(() => part("badge").x >= heading.width + 16)
    }

    function test_keyboard_goes_through_the_screen() {
        row(vaultRow).forceActiveFocus(Qt.TabFocusReason)
        const stops = [field(), browse(), part("rebuild"), row(vaultRow)]
        for (const stop of stops) {
            keyClick(Qt.Key_Tab)
            verify(stop.activeFocus, stop)
        }
    }

    function test_accessible() {
        compare(field().Accessible.name, "Vault Path")
        compare(part("indexStatus").Accessible.name, part("indexStatus").text)
        compare(part("rebuild").Accessible.name, "Rebuild Index")
        compare(browse().Accessible.name, "Browse")
    }
}
