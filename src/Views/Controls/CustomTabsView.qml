pragma ComponentBehavior: Bound

import QtQuick
import Jotwell

// A row of tabs, one of which may be selected. It can be moved sideways where it is too long.
Flickable {
    id: view

    // TabItems in their order, and the id of one of them, or an empty text.
    property var tabs: []
    property string selectedTabId

    readonly property int selectedIndex: Array.from(tabs).findIndex(tab => tab.id === selectedTabId)

    implicitWidth: row.width
    implicitHeight: row.height
    contentWidth: row.width
    contentHeight: row.height
    interactive: contentWidth > width
    clip: interactive
    boundsBehavior: Flickable.StopAtBounds

    Accessible.role: Accessible.PageTabList

    Keys.onLeftPressed: selectAt(Math.max(0, selectedIndex - 1))
    Keys.onRightPressed: selectAt(Math.min(tabs.length - 1, selectedIndex + 1))
    Keys.onPressed: event => {
        if (event.key !== Qt.Key_Home && event.key !== Qt.Key_End)
            return
        event.accepted = true
        selectAt(event.key === Qt.Key_Home ? 0 : tabs.length - 1)
    }

    function selectAt(index: int): void {
        const button = buttons.itemAt(index)
        if (!button)
            return
        button.forceActiveFocus(Qt.TabFocusReason)
        selectedTabId = tabs[index].id
        show(button)
    }

    function show(button: Item): void {
        contentX = Math.max(Math.min(contentX, button.x), button.x + button.width - width, 0)
    }

    Row {
        id: row

        Repeater {
            id: buttons

            model: view.tabs

            TabButton {
                required property int index
                required property var modelData

                objectName: "tab" + index
                tab: modelData
                isSelected: index === view.selectedIndex
                // The keyboard stops once at the row and goes on inside by arrows.
                activeFocusOnTab: activeFocus || index === Math.max(0, view.selectedIndex)
                onAction: view.selectedTabId = modelData.id
            }
        }
    }
}
