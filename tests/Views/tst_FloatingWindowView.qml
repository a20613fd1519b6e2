import QtQuick
import QtTest
import Jotwell
import JotwellTest

TestCase {
    id: testCase

    name: "FloatingWindowView"
    when: windowShown
    width: 860
    height: 600
    visible: true

    Component {
        id: benchComponent
        ViewBench {}
    }

    Component {
        id: viewComponent
        FloatingWindowView { anchors.fill: parent }
    }

    property var bench
    property var root
    property var card
    property var background
    property var border

    function init() {
        bench = benchComponent.createObject(testCase)
        root = viewComponent.createObject(testCase, { view: bench.view })
        card = findChild(root, "card")
        background = findChild(root, "background")
        border = findChild(root, "border")
        findChild(root, "textArea").forceActiveFocus()
    }

    function cleanup() {
        root.destroy()
        bench.destroy()
    }

    function run(text) {
        bench.text = text
        keyClick(Qt.Key_Return, Qt.ControlModifier)
    }

    function test_card_stands_in_the_middle() {
        compare(card.width, 800)
        compare(card.height, 164)
        compare(card.x, 30)
        compare(card.y, (600 - 164) / 2)
        compare(background.radius, 12)
        compare(border.border.width, 2)
    }

    function test_colours_at_rest() {
        verify(Qt.colorEqual(background.color, Theme.windowBackground))
        compare(border.border.color.a, 0)
    }

    function test_success_flash() {
        run("Call Ada /new_note")
        tryVerify(() => Qt.colorEqual(border.border.color, Theme.accent))
        tryVerify(() => Qt.colorEqual(background.color, Theme.successFlash))
        bench.advance(300)
        tryVerify(() => border.border.color.a === 0)
        tryVerify(() => Qt.colorEqual(background.color, Theme.windowBackground))
    }

    function test_failure_flash() {
        run("Call Ada")
        tryVerify(() => Qt.colorEqual(border.border.color, Theme.red))
        tryVerify(() => Qt.colorEqual(background.color, Theme.errorFlash))
        bench.advance(300)
        tryVerify(() => border.border.color.a === 0)
    }

    function test_spring_overshoots_and_settles() {
        run("Call Ada")
        tryVerify(() => card.scale > 1.05)
        bench.advance(100)
        tryVerify(() => card.scale < 1)
        tryCompare(card, "scale", 1)
    }

    function test_toast_takes_no_click() {
        bench.showSuccess("Done")
        const container = findChild(root, "toastContainer")
        tryCompare(container, "progress", 1)
        mouseClick(card, 200, card.height - 10)
        compare(bench.toasts.isShown, true)
        compare(container.width, card.width)
        compare(container.height, card.height)
    }

    function test_focus_step() {
        const area = findChild(root, "textArea")
        area.focus = false
        bench.appear()
        compare(area.activeFocus, false)
        bench.advance(100)
        compare(area.activeFocus, true)
    }
}
