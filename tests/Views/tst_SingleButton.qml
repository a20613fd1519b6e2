import QtQuick
import QtTest
import Jotwell

TestCase {
    id: testCase

    name: "SingleButton"
    when: windowShown
    width: 200
    height: 200
    visible: true

    Component {
        id: buttonComponent
        SingleButton {
            x: 80
            y: 80
            icon: "xmark"
            accessibleName: "Dismiss"
            foregroundColor: "#80000000"
            hoverColor: "#ff0000"
        }
    }

    SignalSpy {
        id: actions
        signalName: "action"
    }

    property var button

    function init() {
        mouseMove(testCase, 5, 5)
        button = createTemporaryObject(buttonComponent, testCase)
        actions.target = button
        actions.clear()
    }

    function test_sizes_data() {
        return [
            { tag: "small", size: SingleButton.Small, edge: 24, radius: 4 },
            { tag: "regular", size: SingleButton.Regular, edge: 32, radius: 6 },
            { tag: "large", size: SingleButton.Large, edge: 48, radius: 8 }
        ]
    }

    function test_sizes(data) {
        button.size = data.size
        compare(button.width, data.edge)
        compare(button.height, data.edge)
        compare(button.cornerRadius, data.radius)
    }

    function test_hover_and_press() {
        verify(Qt.colorEqual(button.currentColor, "#80000000"))
        mouseMove(button, 10, 10)
        verify(Qt.colorEqual(button.currentColor, "#ff0000"))
        tryCompare(button, "scale", 1.05)
        mousePress(button)
        verify(Qt.colorEqual(button.currentColor, "#ccff0000"))
        tryCompare(button, "scale", 0.95)
        mouseRelease(button)
        compare(actions.count, 1)
    }

    function test_accessible_press() {
        compare(button.Accessible.role, Accessible.Button)
        compare(button.Accessible.name, "Dismiss")
        button.Accessible.pressAction()
        compare(actions.count, 1)
    }
}
