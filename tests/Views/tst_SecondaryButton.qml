import QtQuick
import QtTest
import Jotwell

// The buttons with a title: the gray one and the one in the accent colour.
TestCase {
    id: testCase

    name: "SecondaryButton"
    when: windowShown
    width: 400
    height: 200
    visible: true

    Component {
        id: secondaryComponent
        SecondaryButton {
            x: 80
            y: 80
            title: "Browse"
        }
    }

    Component {
        id: accentComponent
        CustomAccentButton {
            x: 80
            y: 80
            title: "Continue"
        }
    }

    SignalSpy {
        id: actions
        signalName: "action"
    }

    function init() {
        mouseMove(testCase, 5, 5)
    }

    function made(component, properties) {
        const button = createTemporaryObject(component, testCase, properties)
        actions.target = button
        actions.clear()
        return button
    }

    function test_measures_data() {
        return [
            { tag: "small", component: secondaryComponent, size: ButtonSize.Small,
              fontSize: 12, horizontal: 8, vertical: 4, radius: 4 },
            { tag: "regular", component: secondaryComponent, size: ButtonSize.Regular,
              fontSize: 14, horizontal: 20, vertical: 10, radius: 8 },
            { tag: "small accent", component: accentComponent, size: ButtonSize.Small,
              fontSize: 12, horizontal: 8, vertical: 4, radius: 4 },
            { tag: "regular accent", component: accentComponent, size: ButtonSize.Regular,
              fontSize: 14, horizontal: 20, vertical: 10, radius: 8 }
        ]
    }

    function test_measures(data) {
        const button = made(data.component, { size: data.size })
        const text = findChild(button, "text")
        compare(text.text, button.title)
        compare(text.font.pixelSize, data.fontSize)
        compare(text.font.weight, Font.Normal)
        compare(button.width, text.implicitWidth + 2 * data.horizontal)
        compare(button.height, text.implicitHeight + 2 * data.vertical)
        compare(findChild(button, "buttonBackground").radius, data.radius)
    }

    function test_scales_data() {
        return [{ tag: "secondary", component: secondaryComponent },
                { tag: "accent", component: accentComponent }]
    }

    function test_scales(data) {
        const button = made(data.component)
        compare(button.scale, 1)
        mouseMove(button, 10, 10)
        compare(button.scaleDuration, 150)
        tryCompare(button, "scale", 1.05)
        mousePress(button)
        compare(button.scaleDuration, 100)
        tryCompare(button, "scale", 0.95)
        mouseRelease(button)
        compare(actions.count, 1)
    }

    function test_secondary_colours() {
        const button = made(secondaryComponent)
        verify(Qt.colorEqual(findChild(button, "text").color, Theme.text))
        verify(Qt.colorEqual(findChild(button, "buttonBackground").color, Theme.buttonBackground))
        verify(Qt.colorEqual(findChild(button, "buttonBackground").border.color, Theme.controlStroke))
    }

    function test_disabled_is_gray_and_does_nothing() {
        const button = made(secondaryComponent, { isDisabled: true })
        verify(Qt.colorEqual(findChild(button, "text").color, Theme.grayText))
        mouseMove(button, 10, 10)
        verify(!button.isHovered)
        mouseClick(button)
        button.forceActiveFocus(Qt.TabFocusReason)
        keyClick(Qt.Key_Space)
        keyClick(Qt.Key_Return)
        button.Accessible.pressAction()
        compare(actions.count, 0)
        button.isDisabled = false
        mouseClick(button)
        compare(actions.count, 1)
    }

    function expect(button, first, second) {
        verify(Qt.colorEqual(button.gradientColors[0], first), button.gradientColors[0])
        verify(Qt.colorEqual(button.gradientColors[1], second), button.gradientColors[1])
        const stops = findChild(button, "buttonBackground").gradient.stops
        verify(Qt.colorEqual(stops[0].color, first))
        verify(Qt.colorEqual(stops[1].color, second))
    }

    function test_gradient_by_state() {
        const button = made(accentComponent)
        verify(Qt.colorEqual(findChild(button, "text").color, "white"))
        expect(button, Theme.accent, Qt.alpha(Theme.accent, 0.8))
        mouseMove(button, 10, 10)
        expect(button, Qt.alpha(Theme.accent, 0.9), Qt.alpha(Theme.accent, 0.75))
        mousePress(button)
        verify(button.isHovered)
        expect(button, Qt.alpha(Theme.accent, 0.8), Qt.alpha(Theme.accent, 0.7))
        mouseRelease(button)
        button.isDisabled = true
        expect(button, Theme.gray, Theme.gray)
    }

    function test_full_width() {
        const button = made(secondaryComponent)
        verify(!button.fillsWidth)
        button.fullWidth = true
        button.width = 300
        compare(findChild(button, "buttonBackground").width, 300)
        const text = findChild(button, "text")
        fuzzyCompare(text.mapToItem(button, text.width / 2, 0).x, 150, 1)
    }

    function test_long_title_stays_inside() {
        const button = made(secondaryComponent, { title: "word ".repeat(100), width: 120 })
        const text = findChild(button, "text")
        verify(text.truncated)
        verify(text.mapToItem(button, text.width, 0).x <= 100)
    }

    function test_accessible() {
        const button = made(secondaryComponent)
        compare(button.Accessible.role, Accessible.Button)
        compare(button.Accessible.name, "Browse")
        button.Accessible.pressAction()
        compare(actions.count, 1)
    }
}
