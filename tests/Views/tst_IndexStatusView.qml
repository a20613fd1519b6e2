import QtQuick
import QtTest
import Jotwell
import JotwellTest

TestCase {
    id: testCase

    name: "IndexStatusView"
    when: windowShown
    width: 776
    height: 200
    visible: true

    Component {
        id: benchComponent
        IndexBench {}
    }

    Component {
        id: viewComponent
        IndexStatusView {
            y: 60
            width: 776
        }
    }

    Component {
        id: windowComponent
        Window {
            property alias content: content
            width: 776
            height: 100
            Item { id: content }
        }
    }

    property var bench
    property var view

    function init() {
        bench = benchComponent.createObject(testCase)
        makeView(testCase)
    }

    function cleanup() {
        view.destroy()
        bench.destroy()
    }

    function makeView(parent) {
        if (view)
            view.destroy()
        view = viewComponent.createObject(parent, { indexStatus: bench.indexStatus })
    }

    function strip() {
        return findChild(view, "strip")
    }

    function part(name) {
        return findChild(view, name)
    }

    function startBuild(noteCount) {
        bench.startBuild(noteCount)
        bench.advance(16)
    }

    function showSettled(noteCount) {
        startBuild(noteCount)
        tryCompare(view, "progress", 1)
    }

    function finish() {
        bench.finish()
        bench.advance(16)
    }

    function verifyColor(actual, expected) {
        verify(Qt.colorEqual(actual, expected), actual + " isn't " + expected)
    }

    function test_nothing_without_a_build() {
        compare(strip(), null)
        compare(view.height, 0)
    }

    function test_measures() {
        showSettled(700)
        const spinner = part("spinner")
        const title = part("title")
        const count = part("fileCount")
        const bar = part("progressBar")
        compare(spinner.x, 12)
        compare(spinner.scale, 0.8)
        compare(spinner.transformOrigin, Item.Center)
        compare(title.text, "Indexing vault...")
        compare(title.font.pixelSize, 11)
        compare(title.font.weight, Font.Medium)
        verifyColor(title.color, Theme.text)
        compare(count.text, "0 of 0 files")
        compare(count.font.pixelSize, 9)
        compare(count.font.weight, Font.Normal)
        verifyColor(count.color, Theme.secondaryText)
        compare(title.mapToItem(view, 0, 0).x, 12 + spinner.width + 8)
        compare(count.mapToItem(view, 0, 0).x, title.mapToItem(view, 0, 0).x)
        compare(count.y, title.y + title.height + 2)
        compare(bar.width, 100)
        compare(bar.height, 4)
        compare(bar.x + bar.width, 776 - 12)
        compare(strip().height, Math.max(spinner.height, count.y + count.height) + 16)
        compare(view.height, strip().height)
        for (const each of [spinner, title.parent, bar])
            verify(Math.abs(each.y + each.height / 2 - strip().height / 2) <= 0.5)
    }

    function test_looks() {
        showSettled(700)
        compare(part("stripBackground").radius, 8)
        verifyColor(part("stripBackground").color, Theme.controlBackground)
        compare(part("stripOutline").radius, 8)
        compare(part("stripOutline").border.width, 1)
        verifyColor(part("stripOutline").border.color, Qt.alpha(Theme.gray, 0.2))
        compare(part("track").radius, 2)
        compare(part("track").width, 100)
        compare(part("track").height, 4)
        verifyColor(part("track").color, Qt.alpha(Theme.gray, 0.2))
        compare(part("filled").radius, 2)
        compare(part("filled").height, 4)
        verifyColor(part("filled").color, Theme.accent)
    }

    function test_empty_vault_leaves_the_bar_empty() {
        showSettled(0)
        compare(part("fileCount").text, "0 of 0 files")
        compare(part("filled").width, 0)
        wait(250)
        compare(part("filled").width, 0)
    }

    function test_bar_follows_gradually() {
        showSettled(700)
        bench.list()
        bench.advance(16)
        compare(part("fileCount").text, "0 of 700 files")
        bench.read()
        bench.advance(16)
        compare(part("fileCount").text, "650 of 700 files")
        const filled = part("filled")
        compare(filled.width, 0)
        tryVerify(() => filled.width > 1 && filled.width < 90)
        tryVerify(() => Math.abs(filled.width - 100 * 650 / 700) < 0.01, 400)
    }

    function test_full_bar_stays_until_the_strip_leaves() {
        showSettled(3)
        bench.list()
        bench.read()
        bench.advance(16)
        tryVerify(() => part("filled").width === 100)
        wait(50)
        verify(strip() !== null)
        finish()
        tryVerify(() => view.progress > 0 && view.progress < 1)
        compare(part("filled").width, 100)
        tryVerify(() => strip() === null)
        compare(view.height, 0)
    }

    function test_comes_and_goes_at_the_top_edge() {
        startBuild(3)
        const it = strip()
        tryVerify(() => view.progress > 0 && view.progress < 1)
        verify(it.y < 0 && it.y > -it.height)
        compare(it.opacity, view.progress)
        tryCompare(view, "progress", 1)
        compare(it.y, 0)
        compare(it.opacity, 1)
        finish()
        tryVerify(() => view.progress > 0 && view.progress < 1)
        verify(it.y < 0)
        verify(it.opacity < 1)
        tryCompare(view, "progress", 0)
    }

    function test_next_build_begins_with_an_empty_bar() {
        showSettled(3)
        finish()
        tryVerify(() => strip() === null)
        startBuild(3)
        compare(part("filled").width, 0)
    }

    function test_is_there_at_once_in_a_view_made_during_a_build() {
        startBuild(3)
        makeView(testCase)
        compare(view.progress, 1)
        verify(strip() !== null)
    }

    function test_spinner_turns_while_the_window_is_shown() {
        const window = createTemporaryObject(windowComponent, null)
        makeView(window.content)
        startBuild(3)
        const spinner = part("spinner")
        verify(!spinner.running)
        compare(view.progress, 1)
        const before = spinner.step
        wait(250)
        compare(spinner.step, before)
        window.show()
        verify(spinner.running)
        tryVerify(() => spinner.step !== before)
        compare(spinner.rotation, spinner.step * 45)
        window.hide()
        verify(!spinner.running)
        const after = spinner.step
        wait(250)
        compare(spinner.step, after)
        window.show()
        finish()
        tryVerify(() => strip() === null)
    }

    function test_hidden_strip_moves_at_once() {
        const window = createTemporaryObject(windowComponent, null)
        makeView(window.content)
        startBuild(3)
        compare(view.progress, 1)
        bench.list()
        bench.read()
        bench.advance(16)
        compare(part("filled").width, 100)
        finish()
        compare(view.progress, 0)
        compare(strip(), null)
    }

    function test_screen_reader_hears_of_it_while_it_is_there() {
        showSettled(700)
        bench.list()
        bench.read()
        bench.advance(16)
        const it = strip()
        compare(it.Accessible.role, Accessible.ProgressBar)
        compare(it.Accessible.name, "Indexing vault...")
        compare(it.Accessible.description, "650 of 700 files")
        verify(!it.Accessible.ignored)
        finish()
        verify(it.Accessible.ignored)
    }

    function test_narrow_texts_are_cut_short() {
        view.width = 200
        showSettled(3)
        const title = part("title")
        verify(title.truncated)
        verify(title.mapToItem(view, title.width, 0).x <= part("progressBar").x)
    }
}
