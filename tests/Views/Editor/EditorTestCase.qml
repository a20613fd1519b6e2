import QtQuick
import QtTest
import Jotwell
import JotwellTest

// A field over real services and a scratch vault, and ways to type and to click in it.
TestCase {
    id: testCase

    when: windowShown
    width: 800
    height: 164
    visible: true

    Component {
        id: benchComponent
        ViewBench {}
    }

    Component {
        id: editorComponent
        CustomTextEditor {
            anchors.fill: parent
        }
    }

    Component {
        id: dragComponent
        TextDrag {}
    }

    property var bench
    property var editor
    property var area

    function init() {
        bench = benchComponent.createObject(testCase)
        editor = editorComponent.createObject(testCase, { editor: bench.editor })
        area = findChild(editor, "textArea")
        area.forceActiveFocus()
        verify(area.activeFocus)
    }

    function cleanup() {
        editor.destroy()
        bench.destroy()
    }

    function type(text) {
        for (const character of text)
            keyClick(character)
    }

    // What drags the field's text; gone at the end of the test.
    function makeDrag() {
        return createTemporaryObject(dragComponent, testCase, { editor: bench.editor })
    }

    // The middle of a piece of the text.
    function middleOf(piece) {
        const start = area.text.indexOf(piece)
        verify(start >= 0, piece)
        const first = area.positionToRectangle(start)
        const last = area.positionToRectangle(start + piece.length)
        return Qt.point((first.x + last.x) / 2, first.y + first.height / 2)
    }

    function click(piece) {
        const place = middleOf(piece)
        mouseClick(area, place.x, place.y)
    }

    function chipMouse() {
        for (let i = 0; i < area.children.length; ++i) {
            if (area.children[i].cursorShape !== undefined && area.children[i].hoverEnabled)
                return area.children[i]
        }
        return null
    }

    function colorAt(image, point) {
        const place = area.mapToItem(testCase, point.x, point.y)
        return image.pixel(place.x, place.y)
    }

    // Beside the text of the chip, where nothing but the fill is.
    function fillOf(image, piece) {
        const start = area.positionToRectangle(area.text.indexOf(piece))
        return colorAt(image, Qt.point(start.x + 2, start.y))
    }
}
