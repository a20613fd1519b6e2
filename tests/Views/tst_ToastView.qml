import QtQuick
import QtTest
import Jotwell
import JotwellTest

TestCase {
    id: testCase

    name: "ToastView"
    when: windowShown
    width: 800
    height: 164
    visible: true

    Component {
        id: benchComponent
        ViewBench {}
    }

    Component {
        id: containerComponent
        ToastContainerView { anchors.fill: parent }
    }

    property var bench
    property var container

    function init() {
        bench = benchComponent.createObject(testCase)
        container = containerComponent.createObject(testCase, { toasts: bench.toasts })
    }

    function cleanup() {
        container.destroy()
        bench.destroy()
    }

    function toast() {
        return findChild(container, "toast")
    }

    function showSettled(message) {
        bench.showSuccess(message)
        tryCompare(container, "progress", 1)
    }

    function test_nothing_at_first() {
        compare(toast(), null)
    }

    function test_slides_in_along_the_lower_edge() {
        bench.showSuccess("Done")
        compare(container.progress, 0)
        tryVerify(() => container.progress > 0 && container.progress < 1)
        verify(toast().opacity < 1)
        tryCompare(container, "progress", 1)
        compare(toast().mapToItem(container, 0, toast().height).y, container.height)
        compare(toast().width, 800)
    }

    function test_colour_and_icon_by_type_data() {
        return [
            { tag: "showSuccess", icon: "checkmark.circle.fill", color: Theme.green },
            { tag: "showWarning", icon: "exclamationmark.triangle.fill", color: Theme.red },
            { tag: "showError", icon: "xmark.circle.fill", color: Theme.red }
        ]
    }

    function test_colour_and_icon_by_type(data) {
        bench[data.tag]("Message")
        compare(toast().message, "Message")
        compare(toast().icon, data.icon)
        compare(toast().color, data.color)
        compare(toast().iconColor, Theme.white)
        compare(toast().Accessible.role, Accessible.AlertMessage)
        compare(toast().Accessible.name, "Message")
    }

    function test_click_dismisses() {
        showSettled("Done")
        mouseClick(toast(), 200, toast().height / 2)
        compare(bench.toasts.isShown, false)
        tryVerify(() => toast() === null)
    }

    function test_button_dismisses() {
        showSettled("Done")
        mouseClick(findChild(toast(), "dismissButton"))
        compare(bench.toasts.isShown, false)
    }

    function test_lets_clicks_through_where_it_is_told_to() {
        container.takesClicks = false
        showSettled("Done")
        mouseClick(toast(), 200, toast().height / 2)
        mouseClick(findChild(toast(), "dismissButton"))
        compare(bench.toasts.isShown, true)
    }

    function test_next_toast_replaces_at_once_with_its_own_entry() {
        showSettled("First")
        bench.showError("Second")
        compare(container.progress, 0)
        compare(toast().message, "Second")
        tryCompare(container, "progress", 1)
    }

    function test_leaves_by_itself() {
        showSettled("Done")
        bench.advance(2000)
        tryVerify(() => container.progress < 1 && container.progress > 0)
        compare(toast().message, "Done")
        tryVerify(() => toast() === null)
    }

    function test_long_message_stays_inside() {
        showSettled("word ".repeat(400))
        verify(toast().height < 100)
    }
}
