pragma ComponentBehavior: Bound

import QtQuick
import Jotwell

// A row of tabs, one of which may be selected. It can be moved sideways where it is too long, and
// no more tabs are made than are seen.
Item {
    id: view

    // TabItems in their order, in an array or a model of theirs, and the id of one of them, or an
    // empty text.
    property var tabs: []
    property string selectedTabId
    readonly property int count: list.count
    readonly property real contentWidth: list.contentWidth
    property alias contentX: list.contentX
    property alias contentItem: list.contentItem

    readonly property int selectedIndex: rowOf(selectedTabId, revision)
    property int revision: 0

    // The user has selected that tab.
    signal select(id: string)

    implicitWidth: 360
    implicitHeight: prototype.implicitHeight
    onSelectedIndexChanged: showSelected()
    onTabsChanged: showSelected()
    onWidthChanged: showCurrent()
    Component.onCompleted: Qt.callLater(showSelected)

    // Told by what holds the list: a list with the keyboard in it would count as having it itself.
    Accessible.role: Accessible.PageTabList

    Keys.onLeftPressed: selectAt(Math.max(0, selectedIndex - 1))
    Keys.onRightPressed: selectAt(Math.min(count - 1, selectedIndex + 1))
    Keys.onPressed: event => {
        if (event.key !== Qt.Key_Home && event.key !== Qt.Key_End)
            return
        event.accepted = true
        selectAt(event.key === Qt.Key_Home ? 0 : count - 1)
    }

    function rowOf(id: string, _revision: int): int {
        return Array.isArray(tabs) ? tabs.findIndex(tab => tab.id === id) : tabs.rowOfId(id)
    }

    function selectAt(row: int): void {
        if (row < 0 || row >= count)
            return
        choose(Array.isArray(tabs) ? tabs[row].id : tabs.idOfRow(row))
        takeFocus()
    }

    function choose(id: string): void {
        selectedTabId = id
        select(id)
    }

    function takeFocus(): void {
        if (list.currentItem)
            list.currentItem.forceActiveFocus(Qt.TabFocusReason)
    }

    // The current tab exists also while it isn't seen, so that the keyboard isn't lost with it.
    function showSelected(): void {
        const hasKeyboard = list.activeFocus
        list.forceLayout()
        list.currentIndex = Math.min(count - 1, Math.max(0, selectedIndex))
        showCurrent()
        if (hasKeyboard)
            takeFocus()
    }

    // The tabs on the way there are as wide as was thought only once they have been seen.
    function showCurrent(): void {
        list.positionViewAtIndex(list.currentIndex, ListView.Contain)
        const current = list.currentItem
        if (current)
            contentX = Math.max(Math.min(contentX, current.x), current.x + current.width - width,
                                list.originX)
    }

    TabButton {
        id: prototype

        visible: false
        tab: ({ title: "" })
        Accessible.ignored: true
    }

    Connections {
        target: Array.isArray(view.tabs) ? null : view.tabs

        function onRowsInserted() {
            ++view.revision
            view.showSelected()
        }
        function onRowsRemoved() {
            ++view.revision
            view.showSelected()
        }
    }

    ListView {
        id: list

        anchors.fill: parent
        orientation: ListView.Horizontal
        model: view.tabs
        interactive: contentWidth > width
        clip: interactive
        boundsBehavior: Flickable.StopAtBounds
        keyNavigationEnabled: false
        highlightFollowsCurrentItem: false

        delegate: TabButton {
            required property int index
            required property var modelData

            objectName: "tab" + index
            tab: modelData
            isSelected: index === view.selectedIndex
            // The keyboard stops once at the row and goes on inside by arrows.
            activeFocusOnTab: activeFocus || index === Math.max(0, view.selectedIndex)
            onAction: view.choose(modelData.id)
        }
    }
}
