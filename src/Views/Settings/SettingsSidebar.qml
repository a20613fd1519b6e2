pragma ComponentBehavior: Bound

import QtQuick
import Jotwell

// The entries of the settings in groups, which scroll where the window is too low. The keyboard
// stops once at the list and goes on inside by arrows.
Flickable {
    id: sidebar

    required property SettingsState view

    contentWidth: width
    contentHeight: column.height
    interactive: contentHeight > height
    boundsBehavior: Flickable.StopAtBounds
    clip: interactive
    onHeightChanged: showSelected()

    Accessible.role: Accessible.List
    Accessible.name: "Settings"

    Keys.onUpPressed: selectAt(Math.max(0, view.selectedRow - 1))
    Keys.onDownPressed: selectAt(Math.min(rows.count - 1, view.selectedRow + 1))
    Keys.onPressed: event => {
        if (event.key !== Qt.Key_Home && event.key !== Qt.Key_End)
            return
        event.accepted = true
        selectAt(event.key === Qt.Key_Home ? 0 : rows.count - 1)
    }

    function selectAt(index: int): void {
        view.select(index)
        takeFocus()
    }

    // A click leaves the keyboard where it is, but takes it along within the list.
    function choose(index: int): void {
        const hadFocus = rows.itemAt(view.selectedRow).hasFocus
        Qt.inputMethod.commit() // what it has at hand belongs to the screen before
        view.select(index)
        if (hadFocus)
            takeFocus()
    }

    function takeFocus(): void {
        rows.itemAt(view.selectedRow).takeFocus()
    }

    // With the heading over it, if there is one.
    function showSelected(): void {
        const entry = rows.itemAt(view.selectedRow)
        if (entry !== null)
            contentY = Math.max(0, Math.min(Math.max(contentY, entry.y + entry.height - height), entry.y))
    }

    Connections {
        target: sidebar.view

        function onSelectedItemChanged(): void {
            sidebar.showSelected()
        }
    }

    component SidebarEntry: Column {
        id: entry

        required property int index
        required property string heading
        required property string symbol
        required property string title
        required property string description
        readonly property bool hasFocus: row.activeFocus

        width: sidebar.width

        function takeFocus(): void {
            row.forceActiveFocus(Qt.TabFocusReason)
        }

        Text {
            objectName: "heading"
            visible: entry.heading !== ""
            leftPadding: 16
            rightPadding: 16
            topPadding: 20
            bottomPadding: 4
            text: entry.heading
            color: Theme.secondaryText
            font.pixelSize: Theme.captionFontSize
            font.weight: Font.Medium
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        SettingsSidebarRow {
            id: row

            objectName: "row" + entry.index
            width: parent.width
            symbol: entry.symbol
            title: entry.title
            description: entry.description
            isSelected: entry.index === sidebar.view.selectedRow
            activeFocusOnTab: activeFocus || isSelected
            onAction: sidebar.choose(entry.index)
        }
    }

    Column {
        id: column

        width: parent.width

        Repeater {
            id: rows

            model: sidebar.view.sidebar
            delegate: SidebarEntry {}
        }
    }
}
