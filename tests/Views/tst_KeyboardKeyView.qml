import QtQuick
import QtTest
import Jotwell

// Key caps, one by one and in a row.
TestCase {
    id: testCase

    name: "KeyboardKeyView"
    when: windowShown
    width: 300
    height: 200
    visible: true

    Component {
        id: keyComponent
        KeyboardKeyView { key: "Enter" }
    }

    Component {
        id: shortcutComponent
        KeyboardShortcutView {}
    }

    function test_measures_data() {
        return [
            { tag: "small", size: KeySize.Small, fontSize: 10, horizontal: 6, vertical: 2 },
            { tag: "regular", size: KeySize.Regular, fontSize: 11, horizontal: 8, vertical: 3 },
            { tag: "large", size: KeySize.Large, fontSize: 13, horizontal: 10, vertical: 4 }
        ]
    }

    function test_measures(data) {
        const cap = createTemporaryObject(keyComponent, testCase, { size: data.size })
        const label = findChild(cap, "label")
        compare(label.text, "Enter")
        compare(label.font.pixelSize, data.fontSize)
        compare(label.font.weight, Font.Medium)
        compare(cap.width, label.implicitWidth + 2 * data.horizontal)
        compare(cap.height, label.implicitHeight + 2 * data.vertical)
        compare(findChild(cap, "background").radius, 4)
    }

    function test_colours_of_a_key_at_rest() {
        const cap = createTemporaryObject(keyComponent, testCase)
        const background = findChild(cap, "background")
        verify(Qt.colorEqual(findChild(cap, "label").color, Theme.text))
        verify(Qt.colorEqual(background.color, Theme.controlBackground))
        verify(Qt.colorEqual(background.border.color, Qt.alpha(Theme.gray, 0.3)))
        const stops = findChild(cap, "shade").gradient.stops
        verify(Qt.colorEqual(stops[0].color, Qt.rgba(0, 0, 0, 0)))
        verify(Qt.colorEqual(stops[1].color, Qt.rgba(0, 0, 0, 0.06)))
        fuzzyCompare(findChild(cap, "shadow").opacity, 0.1, 0.001)
    }

    function test_lights_up_by_and_by() {
        const cap = createTemporaryObject(keyComponent, testCase)
        const background = findChild(cap, "background")
        cap.isHighlighted = true
        verify(!Qt.colorEqual(background.color, Theme.systemAccent))
        tryVerify(() => Qt.colorEqual(background.color, Theme.systemAccent))
        tryVerify(() => Qt.colorEqual(background.border.color, Theme.systemAccent))
        tryVerify(() => Qt.colorEqual(findChild(cap, "label").color, "white"))
        cap.isHighlighted = false
        tryVerify(() => Qt.colorEqual(background.color, Theme.controlBackground))
    }

    function caps(shortcut) {
        return Array.from(shortcut.children).filter(child => child instanceof KeyboardKeyView)
    }

    function test_no_keys_show_nothing() {
        const shortcut = createTemporaryObject(shortcutComponent, testCase, { keys: [] })
        compare(caps(shortcut).length, 0)
        compare(shortcut.width, 0)
        compare(shortcut.height, 0)
    }

    function test_one_cap_for_each_key() {
        const shortcut = createTemporaryObject(shortcutComponent, testCase,
            { keys: ["Tab", "Enter", "B"], size: KeySize.Small, pressedKeys: ["Enter"] })
        const found = caps(shortcut)
        compare(found.map(cap => cap.key), ["Tab", "Enter", "B"])
        compare(found.map(cap => cap.isHighlighted), [false, true, false])
        compare(found.map(cap => cap.size), [KeySize.Small, KeySize.Small, KeySize.Small])
        compare(found[1].x, found[0].width + 4)
        compare(found[1].y + found[1].height / 2, shortcut.height / 2)
        shortcut.pressedKeys = ["Tab", "B"]
        compare(found.map(cap => cap.isHighlighted), [true, false, true])
    }

    function test_accessible() {
        const cap = createTemporaryObject(keyComponent, testCase)
        compare(cap.Accessible.role, Accessible.StaticText)
        compare(cap.Accessible.name, "Enter")
    }
}
