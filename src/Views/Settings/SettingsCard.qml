import QtQuick
import Jotwell

// The ground of a screen: its content in one card, which scrolls where the window is too low.
Flickable {
    id: page

    default property alias content: column.data
    property alias spacing: column.spacing

    readonly property int horizontalMargin: 16
    readonly property int topPadding: 8
    readonly property int bottomPadding: 16
    readonly property int padding: 24

    contentWidth: width
    contentHeight: card.height + topPadding + bottomPadding
    interactive: contentHeight > height
    boundsBehavior: Flickable.StopAtBounds
    clip: interactive

    // What has the keyboard is to be seen.
    readonly property Item focused: Window.activeFocusItem
    onFocusedChanged: show(focused)

    function show(item: Item): void {
        if (item === null || !isAncestorOf(item))
            return
        const top = item.mapToItem(contentItem, 0, 0).y - padding
        const bottom = top + item.height + 2 * padding
        contentY = Math.max(0, Math.min(Math.max(contentY, bottom - height), top))
    }

    function isAncestorOf(item: Item): bool {
        for (let each = item; each !== null; each = each.parent) {
            if (each === contentItem)
                return true
        }
        return false
    }

    Rectangle {
        id: card

        objectName: "card"
        x: page.horizontalMargin
        y: page.topPadding
        width: page.width - 2 * page.horizontalMargin
        height: column.height + 2 * page.padding
        radius: 12
        color: Theme.controlBackground
    }
    Column {
        id: column

        x: card.x + page.padding
        y: card.y + page.padding
        width: card.width - 2 * page.padding
        spacing: 16
    }
}
