import QtQuick
import QtQuick.Controls.Basic
import Jotwell

// A titled field for many lines, as high as its text between two bounds.
TitledField {
    id: field

    property alias text: area.text
    property string placeholder
    property real minHeight: 80
    property real maxHeight: 200
    property alias textEditorFocused: area.focus

    input: area

    Flickable {
        id: flickable

        objectName: "flickable"
        width: parent.width
        height: Math.max(field.minHeight, Math.min(area.implicitHeight, field.maxHeight))
        boundsBehavior: Flickable.StopAtBounds
        flickableDirection: Flickable.VerticalFlick
        clip: true
        // The cursor was followed before it had its place.
        Component.onCompleted: {
            contentX = 0
            contentY = 0
        }

        ScrollBar.vertical: ScrollBar { Accessible.ignored: true }

        TextArea.flickable: TextArea {
            id: area

            objectName: "input"
            textFormat: TextEdit.PlainText
            wrapMode: TextEdit.Wrap
            selectByMouse: true
            background: null
            leftPadding: 12
            rightPadding: 12
            topPadding: 10
            bottomPadding: 10
            color: Theme.text
            selectionColor: Theme.selectedTextBackground
            selectedTextColor: Theme.text
            font.pixelSize: Theme.fieldFontSize
            placeholderText: field.placeholder
            placeholderTextColor: Theme.placeholderText

            Accessible.name: field.title
            Accessible.description: field.placeholder

            // The way out for whoever has no mouse.
            Keys.priority: Keys.BeforeItem
            Keys.onTabPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
            Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
        }
    }
}
