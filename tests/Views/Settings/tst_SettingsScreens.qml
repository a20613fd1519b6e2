import QtQuick
import QtTest
import Jotwell
import JotwellTest

// The screens of the settings.
TestCase {
    id: testCase

    name: "SettingsScreens"
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

    function test_status_follows_the_permission() {
        compare(part("statusText").text, "Requires the accessability permission")
        verifyColor(part("statusDot").color, Qt.rgba(0.545, 0.424, 0.933, 1))
        verify(part("openSettings").visible)
        verify(part("instructions").visible)
        verifyColor(part("instructions").color, Qt.alpha(Theme.accent, 0.1))
        mouseClick(part("openSettings"))
        compare(bench.prompts, 1)
        bench.isTrusted = true
        bench.advance(2000)
        compare(part("statusText").text, "Active")
        verifyColor(part("statusDot").color, Theme.systemGreen)
        verify(!part("openSettings").visible)
        verify(!part("instructions").visible)
    }

    function test_instructions() {
        const shown = texts()
        for (const text of ["To enable the global hotkey:",
                            "1. Open the system settings using the button above",
                            "2. In the Accessability Settings  grant the app permissions with a toggle",
                            "3. Restart the app."])
            verify(shown.includes(text), text)
    }

    function test_updates_at_rest() {
        show(updatesRow)
        verify(!part("news").visible)
        verify(!part("hint").visible)
        verify(part("checksAutomatically").isChecked)
        verify(part("downloadsAutomatically").isChecked)
        verify(!part("checkNow").isDisabled)
        mouseClick(part("checkNow"))
        compare(bench.backgroundChecks, 1)
        bench.setCanCheckForUpdates(false)
        verify(part("checkNow").isDisabled)
        mouseClick(part("checkNow"))
        compare(bench.backgroundChecks, 1)
    }

    function test_found_update_is_told() {
        show(updatesRow)
        bench.findUpdate("2.1")
        verify(part("news").visible)
        verify(part("hint").visible)
        const shown = texts()
        for (const text of ["Update Available", "(v2.1)",
                            "A new version is available! Click 'Download Update' to get the latest version."])
            verify(shown.includes(text), text)
        const news = part("news")
        compare(news.mapToItem(part("card"), 0, 0).x + news.width, part("card").width - 24)
        compare(part("newsDot").width, 8)
        bench.findUpdate("2.1-" + "x".repeat(500))
        verify(news.mapToItem(part("card"), 0, 0).x > 24)
    }

    function test_downloads_wait_for_checks() {
        show(updatesRow)
        mouseClick(part("checksAutomatically"))
        verify(!part("checksAutomatically").isChecked)
        verify(part("downloadsAutomatically").isDisabled)
        verify(part("downloadsAutomatically").isChecked)
        mouseClick(part("downloadsAutomatically"))
        verify(part("downloadsAutomatically").isChecked)
        mouseClick(part("checksAutomatically"))
        verify(!part("downloadsAutomatically").isDisabled)
        mouseClick(part("downloadsAutomatically"))
        verify(!part("downloadsAutomatically").isChecked)
    }

    function test_launch_at_login() {
        show(otherRow)
        const box = part("launchAtLogin")
        compare(box.label, "Launch at Login")
        verify(texts().includes("Start Jotwell automatically when you log in to your Mac."))
        verify(!box.isChecked)
        mouseClick(box)
        verify(bench.startsAtLogin)
        verify(box.isChecked)
        bench.advance(500)
        verify(box.isChecked)
        mouseClick(box)
        verify(!bench.startsAtLogin)
        verify(!box.isChecked)
    }

    function test_refused_launch_at_login_jumps_back() {
        show(otherRow)
        const box = part("launchAtLogin")
        bench.refuseLoginItem()
        mouseClick(box)
        bench.advance(0)
        verify(!box.isChecked)
        verify(!bench.startsAtLogin)
    }
}
