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
            { tag: "showSuccess", icon: "checkmark.circle.fill", color: Theme.greenFill },
            { tag: "showWarning", icon: "exclamationmark.triangle.fill", color: Theme.redFill },
            { tag: "showError", icon: "xmark.circle.fill", color: Theme.redFill }
        ]
    }

    function test_colour_and_icon_by_type(data) {
        bench[data.tag]("Message")
        compare(toast().message, "Message")
        compare(toast().icon, data.icon)
        compare(toast().color, data.color)
        compare(toast().iconColor, Theme.white)
        compare(toast().Accessible.role, Accessible.Notification)
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

    function test_measures() {
        showSettled("Done")
        const icon = findChild(toast(), "icon")
        const message = findChild(toast(), "message")
        const button = findChild(toast(), "dismissButton")
        compare(icon.mapToItem(toast(), 0, 0).x, 16)
        compare(icon.fontSize, 16)
        compare(message.mapToItem(toast(), 0, 0).x, 16 + icon.width + 12)
        compare(message.font.pixelSize, 13)
        compare(message.font.weight, Font.Normal)
        verify(Qt.colorEqual(message.color, "white"))
        compare(button.mapToItem(toast(), button.width, 0).x, 800 - 16)
        compare(button.x - (message.x + message.width), 12)
        compare(button.icon, "xmark")
        compare(button.iconSize, 12)
        verify(Qt.colorEqual(button.foregroundColor, Qt.rgba(1, 1, 1, 0.8)))
        verify(Qt.colorEqual(button.hoverColor, "white"))
        compare(toast().height, button.height + 2 * 12)
        compare(toast().cornerRadius, 12)
    }

    function test_message_is_shown_as_it_stands() {
        showSettled("<h1>a</h1> &amp; <b>b</b>")
        const message = findChild(toast(), "message")
        compare(message.textFormat, Text.PlainText)
        compare(message.lineCount, 1)
    }

    function test_moves_by_this_animation() {
        const movement = findChild(container, "movement")
        compare(movement.duration, 300)
        compare(movement.easing.type, Easing.InOutQuad)
    }

    function test_lower_corners_alone_are_round() {
        container.clip = true
        showSettled("Done")
        const image = grabImage(toast())
        const height = image.height
        const fill = Theme.greenFill
        verify(Qt.colorEqual(image.pixel(1, 1), fill))
        verify(Qt.colorEqual(image.pixel(798, 1), fill))
        verify(!Qt.colorEqual(image.pixel(1, height - 2), fill))
        verify(!Qt.colorEqual(image.pixel(798, height - 2), fill))
        verify(Qt.colorEqual(image.pixel(13, height - 2), fill))
    }

    function test_long_message_stays_inside_data() {
        return [{ tag: "words", message: "word ".repeat(400) },
                { tag: "one word", message: "w".repeat(2000) },
                { tag: "lines", message: "line\n".repeat(400) },
                { tag: "right to left", message: "שלום ".repeat(400) },
                { tag: "emoji", message: "🎉".repeat(1000) }]
    }

    function test_long_message_stays_inside(data) {
        showSettled(data.message)
        verify(toast().height < container.height)
        verify(toast().y >= 0)
        const message = findChild(toast(), "message")
        const button = findChild(toast(), "dismissButton")
        verify(message.x + message.width <= button.x)
        verify(message.contentHeight <= toast().height)
        for (const part of [findChild(toast(), "icon"), message, button])
            fuzzyCompare(part.mapToItem(toast(), 0, part.height / 2).y, toast().height / 2, 0.51)
    }

    function test_toasts_in_quick_succession_leave_nothing_behind() {
        const before = container.children.length
        for (let i = 0; i < 100; ++i) {
            bench.showError("Toast " + i)
            wait(10)
            compare(container.children.length, before + 1)
            compare(toast().message, "Toast " + i)
        }
        tryCompare(container, "progress", 1)
        bench.toasts.dismiss()
        tryVerify(() => toast() === null)
        compare(container.children.length, before)
    }
}
