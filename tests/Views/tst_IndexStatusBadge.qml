import QtQuick
import QtTest
import Jotwell
import JotwellTest

TestCase {
    id: testCase

    name: "IndexStatusBadge"
    when: windowShown
    width: 400
    height: 300
    visible: true

    Component {
        id: benchComponent
        IndexBench {}
    }

    Component {
        id: badgeComponent
        IndexStatusBadge {}
    }

    property var bench
    property var badge

    function init() {
        bench = benchComponent.createObject(testCase)
        badge = badgeComponent.createObject(testCase, { status: bench.badge })
    }

    function cleanup() {
        badge.destroy()
        bench.destroy()
    }

    function dot() {
        return findChild(badge, "dot")
    }

    function label() {
        return findChild(badge, "statusText")
    }

    function verifyColor(actual, expected) {
        verify(Qt.colorEqual(actual, expected), actual + " isn't " + expected)
    }

    function test_measures() {
        compare(dot().width, 6)
        compare(dot().height, 6)
        compare(dot().radius, 3)
        compare(dot().mapToItem(badge, 0, 0).x, 8)
        compare(label().x, dot().x + 6 + 4)
        compare(label().font.pixelSize, 10)
        compare(label().font.weight, Font.Normal)
        verifyColor(label().color, Theme.secondaryText)
        compare(badge.width, 8 + 6 + 4 + label().width + 8)
        compare(badge.height, label().height + 8)
        compare(badge.radius, badge.height / 2)
        verifyColor(badge.color, Qt.alpha(Theme.gray, 0.1))
    }

    function test_follows_the_index() {
        compare(label().text, "Index not built")
        verifyColor(dot().color, Theme.named("gray"))
        bench.startBuild(1)
        compare(label().text, "Building index...")
        verifyColor(dot().color, Theme.named("orange"))
        bench.finish()
        compare(label().text, "Indexed 0 seconds ago")
        verifyColor(dot().color, Theme.named("green"))
        compare(badge.Accessible.role, Accessible.StaticText)
        compare(badge.Accessible.name, "Indexed 0 seconds ago")
    }

    function test_failure_is_red() {
        bench.buildMissingVault()
        verify(label().text.startsWith("Error: "))
        verifyColor(dot().color, Theme.named("red"))
    }

    function test_text_of_any_length_stands_on_one_pill() {
        bench.buildMissingVault()
        const height = badge.height
        verify(!label().truncated)
        compare(label().lineCount, 1)
        badge.maximumWidth = 90
        verify(label().lineCount > 1)
        verify(!label().truncated)
        tryVerify(() => badge.width <= 90 && badge.height > height)
        compare(badge.height, label().height + 8)
        verify(label().contentWidth <= label().width)
    }
}
