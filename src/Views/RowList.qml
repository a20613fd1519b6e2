import QtQuick
import QtQuick.Controls.Basic
import Jotwell

// Rows below one another, of which only those that are seen exist. Scrolls to where it is told.
ListView {
    id: list

    readonly property alias isScrolling: scrolling.running

    clip: true
    spacing: 1
    cacheBuffer: 0
    reuseItems: true
    currentIndex: -1
    highlightFollowsCurrentItem: false
    keyNavigationEnabled: false
    boundsBehavior: Flickable.StopAtBounds
    Accessible.role: Accessible.List
    Accessible.ignored: !visible

    ScrollBar.vertical: ScrollBar {
        id: indicator

        objectName: "indicator"
        visible: size < 1
        minimumSize: 0.1
        Accessible.ignored: true
        contentItem: Rectangle {
            implicitWidth: 4
            radius: width / 2
            color: indicator.pressed || indicator.hovered ? Theme.hoveredControlStroke : Theme.inactiveMark
        }
    }

    // `anchor` as in `positionViewAtIndex`. The list moves there from where it is, and then goes there
    // once more: what lay in between may have turned out higher than was thought.
    function scrollTo(row: int, anchor: int) {
        scrolling.stop()
        scrolling.from = contentY
        scrolling.to = itemAtIndex(row) === null ? targetBeyond(row, anchor) : target(itemAtIndex(row), anchor)
        scrolling.row = row
        scrolling.anchor = anchor
        scrolling.isToBeTold = true
        scrolling.start()
    }

    // Where it was moving to is no place among other rows.
    function rest() {
        scrolling.stop()
        returnToBounds()
    }

    // The user is no longer at a row, though the list may still be moving.
    function leave() {
        scrolling.isToBeTold = false
        AccessibleFocus.moveBackFrom(list)
    }

    function target(item: Item, anchor: int): real {
        const room = height - item.height
        const wanted = item.y - (anchor === ListView.End ? room : anchor === ListView.Center ? room / 2 : 0)
        const least = originY - topMargin
        return Math.max(least, Math.min(wanted, originY + contentHeight + bottomMargin - height))
    }

    // Of a row that doesn't exist yet: the rows are laid out there once.
    function targetBeyond(row: int, anchor: int): real {
        const start = contentY
        positionViewAtIndex(row, anchor)
        const there = contentY
        contentY = start
        return there
    }

    onMovementStarted: scrolling.stop()

    // A view that loses all the rows in it would find no others.
    Connections {
        target: list.model
        ignoreUnknownSignals: true

        function onRowsAboutToBeRemoved(parent: var, first: int, last: int) {
            list.rest()
            list.positionViewAtIndex(first - 1, ListView.Contain)
        }
    }

    NumberAnimation {
        id: scrolling

        objectName: "scrolling"
        property int row
        property int anchor
        property bool isToBeTold: false

        target: list
        property: "contentY"
        duration: Theme.scrollDuration
        easing.type: Easing.OutQuad
        onFinished: {
            list.positionViewAtIndex(row, anchor)
            if (isToBeTold)
                AccessibleFocus.moveTo(list.itemAtIndex(row))
        }
    }
}
