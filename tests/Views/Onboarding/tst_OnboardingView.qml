import QtQuick
import QtTest
import Jotwell
import JotwellTest

TestCase {
    id: testCase

    name: "OnboardingView"
    when: windowShown
    width: 600
    height: 600
    visible: true

    property var bench
    property var root

    Component {
        id: benchComponent
        OnboardingBench {}
    }
    Component {
        id: viewComponent
        OnboardingView {
            width: 600
            height: 600
        }
    }

    function init() {
        bench = createTemporaryObject(benchComponent, testCase)
        root = viewComponent.createObject(testCase, { view: bench.view })
        mouseMove(testCase, 1, 1)
    }

    // What shows the state goes first.
    function cleanup() {
        root.destroy()
        wait(0)
    }

    function item(name) {
        return findChild(root, name)
    }

    function click(name) {
        const target = item(name)
        mouseClick(target, target.width / 2, target.height / 2)
    }

    function goTo(step) {
        for (let at = bench.view.currentStep; at < step; ++at) {
            if (at === 2 && bench.view.obsidianVaultPath === "") {
                bench.view.selectVaultFolder(null)
                bench.answer("/vault")
            }
            bench.view.goForward()
        }
        compare(bench.view.currentStep, step)
        waitForRendering(root)
    }

    function test_steps_data() {
        return [
            { tag: "1", step: 1, symbol: "o.circle.fill", size: 80, title: "Jotwell", titleSize: 26, subtitle: "Your companion for Obsidian note-taking", subtitleSize: 15 },
            { tag: "2", step: 2, symbol: "folder.fill.badge.plus", size: 60, title: "Select Your Obsidian Vault", titleSize: 22, subtitle: "Choose the folder where your Obsidian notes are stored", subtitleSize: 13 },
            { tag: "3", step: 3, symbol: "doc.on.doc.fill", size: 60, title: "Templates Folder (Optional)", titleSize: 22, subtitle: "Sync your Obsidian templates", subtitleSize: 13 },
            { tag: "4", step: 4, symbol: "power.circle.fill", size: 60, title: "Always ready when you need it", titleSize: 22, subtitle: "Start Jotwell automatically when you log in", subtitleSize: 13 },
            { tag: "5", step: 5, symbol: "command.circle.fill", size: 60, title: "Quick Commands", titleSize: 22, subtitle: "Use these commands to supercharge your workflow", subtitleSize: 13 },
        ]
    }

    function test_steps(row) {
        goTo(row.step)
        compare(item("symbol").name, row.symbol)
        compare(item("symbol").fontSize, row.size)
        compare(item("title").text, row.title)
        compare(item("title").font.pixelSize, row.titleSize)
        compare(item("title").font.weight, Font.Bold)
        compare(item("subtitle").text, row.subtitle)
        compare(item("subtitle").font.pixelSize, row.subtitleSize)
        compare(item("stepText").text, "Step " + row.step + " of 5")
        compare(item("back").visible, row.step > 1)
        compare(item("skip").opacity, row.step < 5 ? 1 : 0)
        compare(item("forward").title, row.step < 5 ? "Continue" : "Get Started")
        const loader = item("step")
        verify(loader.y + loader.height <= item("back").parent.y, "fits above the buttons")
    }

    function test_indicator() {
        goTo(3)
        for (let step = 1; step <= 5; ++step) {
            const circle = item("circle" + step)
            tryCompare(circle, "width", step === 3 ? 12 : 8)
            compare(circle.height, circle.width)
            compare(circle.mapToItem(root, circle.width / 2, 0).x, 56 + (step - 1) * 122)
            compare(circle.scale, 1)
            tryVerify(() => Qt.colorEqual(circle.color, step <= 3 ? Theme.accentMark : Theme.inactiveMark))
        }
        for (let gap = 1; gap <= 4; ++gap) {
            const line = item("line" + gap)
            compare(line.height, 2)
            tryVerify(() => Qt.colorEqual(line.color, gap <= 2 ? Theme.accentMark : Theme.inactiveMark))
        }
        compare(item("circle1").mapToItem(root, 0, 0).x, 52)
        compare(item("circle5").mapToItem(root, 8, 0).x, 600 - 52)
    }

    function test_buttons_go_on_and_back_by_the_mouse() {
        click("forward")
        compare(bench.view.currentStep, 2)
        verify(item("forward").isDisabled)
        click("forward")
        compare(bench.view.currentStep, 2)
        click("back")
        compare(bench.view.currentStep, 1)
    }

    function test_folder_is_chosen_and_shown() {
        goTo(2)
        const row = item("vaultFolder")
        compare(findChild(row, "path").text, "No folder selected")
        tryCompare(item("step"), "animationOffset", 0)
        click("choose")
        compare(bench.question, "Select your Obsidian vault folder")
        bench.answer("/home/you/Notes")
        compare(findChild(row, "path").text, "/home/you/Notes")
        verify(!item("forward").isDisabled)
    }

    function test_templates_step_goes_on_without_a_folder() {
        goTo(3)
        verify(!item("forward").isDisabled)
        compare(findChild(item("templatesFolder"), "path").text, "No folder selected")
    }

    function test_templates_folder_is_chosen_and_shown() {
        goTo(3)
        tryCompare(item("step"), "animationOffset", 0)
        click("choose")
        compare(bench.question, "Select your templates folder")
        bench.answer("/home/you/Templates")
        compare(findChild(item("templatesFolder"), "path").text, "/home/you/Templates")
        compare(bench.view.templatesFolderPath, "/home/you/Templates")
        compare(bench.view.obsidianVaultPath, "/vault")
    }

    function test_small_window_scrolls_its_step() {
        goTo(5)
        verify(!item("area").interactive)
        root.height = 360
        const area = item("area")
        const step = item("step")
        verify(area.interactive && area.clip)
        verify(area.y + area.height <= item("forward").parent.y)
        tryCompare(step, "animationOffset", 0)
        mouseWheel(area, 10, 10, 0, -2400)
        tryVerify(() => area.atYEnd)
        verify(step.mapToItem(root, 0, step.height).y <= item("forward").parent.y + 1)
        bench.view.goBack()
        compare(area.contentY, 0)
    }

    function test_long_path_stays_in_its_row() {
        goTo(3)
        bench.view.selectTemplatesFolder(null)
        bench.answer("/" + "long ".repeat(800))
        const path = findChild(item("templatesFolder"), "path")
        verify(path.width < 400)
        compare(path.lineCount, 1)
    }

    function test_switch_acts_at_once() {
        goTo(4)
        const box = item("launchAtLogin")
        verify(Qt.colorEqual(item("switchPanel").color, Theme.controlBackground))
        tryCompare(item("step"), "animationOffset", 0)
        mouseClick(box, 9, box.height / 2)
        verify(bench.view.launchAtLogin)
        verify(box.isChecked)
        verify(Qt.colorEqual(item("switchPanel").color, Theme.accentTint))
        verify(Qt.colorEqual(item("switchPanel").border.color, Theme.accentTintStroke))
    }

    function test_skip_says_what_is_missing() {
        goTo(2)
        click("skip")
        tryVerify(() => item("toast") !== null)
        compare(item("toast").message, "Please select your Obsidian vault folder")
        verify(!bench.isCompleted)
    }

    function test_whole_welcome_by_keys() {
        verify(item("forward").activeFocus)
        keyClick(Qt.Key_Return)
        compare(bench.view.currentStep, 2)
        for (let presses = 0; !findChild(item("vaultFolder"), "choose").activeFocus; ++presses) {
            verify(presses < 10)
            keyClick(Qt.Key_Tab)
        }
        keyClick(Qt.Key_Space)
        bench.answer("/vault")
        for (let presses = 0; !item("forward").activeFocus; ++presses) {
            verify(presses < 10)
            keyClick(Qt.Key_Tab)
        }
        for (let step = 3; step <= 5; ++step) {
            keyClick(Qt.Key_Return)
            compare(bench.view.currentStep, step)
        }
        keyClick(Qt.Key_Return)
        verify(bench.isCompleted)
    }
}
