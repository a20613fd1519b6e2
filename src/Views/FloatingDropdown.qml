pragma ComponentBehavior: Bound

import QtQuick
import Jotwell

// The completion list over the text field.
Item {
    id: dropdown

    required property DropdownModel rows

    readonly property int padding: 4
    readonly property int maximumHeight: 300
    readonly property int radius: 8
    readonly property int shadowBlur: 12
    readonly property font titleFont: SystemFonts.monospacedFont(Theme.rowTitleFontSize, Font.Medium)
    readonly property font detailFont: Qt.font({ family: Qt.application.font.family, pixelSize: Theme.rowDetailFontSize })
    readonly property int contentHeight: list.count * (rowHeight + list.spacing) - list.spacing
    // The same for all, whatever other fonts their letters are taken from.
    readonly property int rowHeight: titleMetrics.height + 2 + detailMetrics.height + 16

    implicitHeight: Math.min(Math.max(contentHeight, 0) + 2 * padding, maximumHeight)

    // Where the pointer has rested since before the list came.
    property point restingPlace
    property bool isResting: false

    // A row that opens under it isn't what the user points at.
    function hover(index: int, scenePosition: point) {
        isResting = isResting && scenePosition === restingPlace
        if (!isResting)
            rows.hover(index, true)
    }

    HoverHandler {
        id: pointer
        parent: dropdown.parent
    }

    FontMetrics {
        id: titleMetrics
        font: dropdown.titleFont
    }
    FontMetrics {
        id: detailMetrics
        font: dropdown.detailFont
    }

    CardShadow {
        radius: dropdown.radius
        blur: dropdown.shadowBlur
        opacity: Theme.dropdownShadowOpacity
    }

    Rectangle {
        objectName: "dropdownBackground"
        anchors.fill: parent
        radius: dropdown.radius
        color: Theme.controlBackground
    }

    // What lies beneath feels nothing of what the pointer does here.
    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        hoverEnabled: true
        onWheel: wheel => wheel.accepted = true
    }
    HoverHandler { cursorShape: Qt.ArrowCursor }

    RowList {
        id: list

        objectName: "dropdownList"
        anchors.fill: parent
        anchors.leftMargin: dropdown.padding
        anchors.rightMargin: dropdown.padding
        topMargin: dropdown.padding
        bottomMargin: dropdown.padding
        model: dropdown.rows
        Accessible.name: "Completions"

        delegate: FloatingDropdownRow {
            width: list.width
            height: dropdown.rowHeight
            hasSymbols: dropdown.rows.hasSymbols
            animates: dropdown.rows.isShown
            titleFont: dropdown.titleFont
            titleHeight: titleMetrics.height
            detailFont: dropdown.detailFont
            detailHeight: detailMetrics.height
            onTap: dropdown.rows.choose(index)
            onHover: scenePosition => dropdown.hover(index, scenePosition)
            onLeave: dropdown.rows.hover(index, false)
        }
    }

    Rectangle {
        objectName: "dropdownStroke"
        anchors.fill: parent
        radius: dropdown.radius
        color: "transparent"
        border.width: 1
        border.color: Theme.separator
    }

    Connections {
        target: dropdown.rows

        function onIsShownChanged() {
            if (!dropdown.rows.isShown) {
                list.leave()
                return
            }
            dropdown.restingPlace = pointer.point.scenePosition
            dropdown.isResting = pointer.hovered
            list.rest()
            list.positionViewAtBeginning()
        }
        function onRowsReplaced() {
            list.rest()
            list.positionViewAtIndex(dropdown.rows.selectedIndex, ListView.Contain)
        }
        function onScrollRequested(index: int, anchor: int) {
            list.scrollTo(index, anchor)
        }
    }
}
