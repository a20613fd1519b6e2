import QtQuick
import QtTest
import Jotwell

// The titled fields for one line and for many.
TestCase {
    id: testCase

    name: "CustomTextField"
    when: windowShown
    width: 500
    height: 400
    visible: true

    Component {
        id: fieldComponent
        CustomTextField {
            x: 20
            y: 20
            width: 300
            title: "Template Name"
            placeholder: "Enter template name"
        }
    }

    Component {
        id: areaComponent
        CustomTextArea {
            x: 20
            y: 20
            width: 300
            title: "Template"
            placeholder: "Enter template content..."
            minHeight: 60
            maxHeight: 120
        }
    }

    Component {
        id: withButtonComponent
        CustomTextFieldWithButton {
            x: 20
            y: 20
            width: 400
            title: "Vault Path"
            buttonTitle: "Browse"
        }
    }

    Component {
        id: withBothComponent
        CustomTextFieldWithCheckboxAndButton {
            x: 20
            y: 20
            width: 400
            title: "Template Name"
            buttonIcon: "trash"
            buttonName: "Delete"
            buttonForegroundColor: "#808080"
            buttonHoverColor: "#ff0000"
            checkboxLabel: "Enable"
        }
    }

    SignalSpy { id: commits; signalName: "commit" }
    SignalSpy { id: buttonActions; signalName: "buttonAction" }
    SignalSpy { id: changes; signalName: "change" }

    function init() {
        mouseMove(testCase, 2, 2)
    }

    function made(component, properties) {
        return createTemporaryObject(component, testCase, properties)
    }

    function offset(field, item) {
        return item.mapToItem(field, 0, 0).y
    }

    function test_both_kinds_look_alike_data() {
        return [{ tag: "line", component: fieldComponent }, { tag: "area", component: areaComponent },
                { tag: "with button", component: withButtonComponent },
                { tag: "with both", component: withBothComponent }]
    }

    function test_both_kinds_look_alike(data) {
        const field = made(data.component)
        const title = findChild(field, "title")
        const text = findChild(title, "text")
        const frame = findChild(field, "frame")
        const input = findChild(field, "input")
        compare(text.text, field.title)
        compare(text.font.pixelSize, 12)
        compare(text.font.weight, Font.Medium)
        verify(Qt.colorEqual(text.color, Theme.secondaryText))
        verify(!findChild(title, "icon").visible)
        field.icon = "folder"
        verify(findChild(title, "icon").visible)
        verify(findChild(title, "icon").x < text.x)
        const line = frame.parent
        tryVerify(() => offset(field, line) === offset(field, title) + title.height + 6)
        compare(frame.radius, 8)
        compare(input.font.pixelSize, 14)
        compare([input.leftPadding, input.rightPadding, input.topPadding, input.bottomPadding],
                [12, 12, 10, 10])
        verify(Qt.colorEqual(frame.color, Theme.textBackground))
        compare(input.Accessible.name, field.title)

        compare(field.outlineWidth, 1)
        verify(Qt.colorEqual(field.outlineColor, Qt.alpha(Theme.gray, 0.2)))
        mouseMove(input, 30, 10)
        tryVerify(() => field.isHovered)
        verify(Qt.colorEqual(frame.border.color, Qt.alpha(Theme.gray, 0.4)))
        mouseClick(input, 30, 10)
        verify(field.isFocused)
        compare(frame.border.width, 2)
        verify(Qt.colorEqual(frame.border.color, Theme.accent))
    }

    function test_typing_and_return() {
        const field = made(fieldComponent)
        commits.target = field
        commits.clear()
        field.textFieldFocused = true
        verify(field.isFocused)
        keyClick("a")
        keyClick("b")
        compare(field.text, "ab")
        compare(commits.count, 0)
        keyClick(Qt.Key_Return)
        compare(commits.count, 1)
        field.textFieldFocused = false
        verify(!field.isFocused)
    }

    function test_secret() {
        const field = made(fieldComponent, { isSecure: true, text: "abc" })
        const input = findChild(field, "input")
        verify(input.displayText !== "abc")
        compare(input.text, "abc")
        verify(input.Accessible.passwordEdit)
        field.isSecure = false
        compare(input.displayText, "abc")
        verify(!input.Accessible.passwordEdit)
    }

    function test_placeholder() {
        const field = made(fieldComponent)
        const input = findChild(field, "input")
        compare(input.placeholderText, "Enter template name")
        verify(Qt.colorEqual(input.placeholderTextColor, Theme.placeholderText))
    }

    function test_area_grows_between_its_bounds() {
        const area = made(areaComponent)
        const frame = findChild(area, "frame")
        compare(frame.height, 60)
        area.text = "one\ntwo\nthree\nfour"
        const input = findChild(area, "input")
        tryCompare(frame, "height", input.implicitHeight)
        verify(frame.height > 60 && frame.height < 120)
        area.text = "line\n".repeat(50)
        tryCompare(frame, "height", 120)
    }

    function test_area_starts_at_its_first_line() {
        const area = made(areaComponent, { text: "one" })
        const first = findChild(area, "input")
        const cursor = first.positionToRectangle(0)
        compare(first.mapToItem(findChild(area, "frame"), cursor.x, cursor.y), Qt.point(12, 10))
    }

    function test_area_takes_lines_and_lets_the_keyboard_out() {
        const area = made(areaComponent)
        area.textEditorFocused = true
        verify(area.isFocused)
        keyClick("a")
        keyClick(Qt.Key_Return)
        keyClick("b")
        compare(area.text, "a\nb")
        const field = made(fieldComponent, { y: 200 })
        keyClick(Qt.Key_Tab)
        compare(area.text, "a\nb")
        verify(field.isFocused)
        keyClick(Qt.Key_Backtab)
        verify(area.isFocused)
    }

    function test_button_stands_behind_the_field() {
        const field = made(withButtonComponent, { buttonIcon: "folder" })
        buttonActions.target = field
        buttonActions.clear()
        const button = findChild(field, "button")
        const frame = findChild(field, "frame")
        compare(button.title, "Browse")
        compare(button.icon, "folder")
        compare(button.mapToItem(field, button.width, 0).x, field.width)
        verify(frame.width < button.mapToItem(field, 0, 0).x)
        fuzzyCompare(offset(field, button) + button.height / 2,
                     offset(field, frame) + frame.height / 2, 0.51)
        mouseClick(button)
        compare(buttonActions.count, 1)
    }

    function test_checkbox_stands_under_the_field() {
        const field = made(withBothComponent)
        buttonActions.target = field
        buttonActions.clear()
        changes.target = field
        changes.clear()
        const button = findChild(field, "button")
        const checkbox = findChild(field, "checkbox")
        const line = findChild(field, "frame").parent
        compare(checkbox.label, "Enable")
        compare(offset(field, checkbox), offset(field, line) + line.height + 6)
        compare(field.height, offset(field, checkbox) + checkbox.height)
        compare(button.icon, "trash")
        compare(button.Accessible.name, "Delete")
        verify(Qt.colorEqual(button.currentColor, "#808080"))
        mouseClick(checkbox)
        compare(field.isChecked, true)
        compare(changes.count, 1)
        mouseClick(button)
        compare(buttonActions.count, 1)
        verify(Qt.colorEqual(button.currentColor, "#ff0000"))
        field.isButtonDisabled = true
        mouseClick(button)
        compare(buttonActions.count, 1)
    }

    function test_disabled_field_takes_no_text() {
        const field = made(withBothComponent, { isTextFieldDisabled: true, text: "Daily" })
        const input = findChild(field, "input")
        mouseClick(input)
        keyClick("a")
        compare(field.text, "Daily")
        verify(!field.isFocused)
        verify(Qt.colorEqual(input.color, Theme.grayText))
    }
}
