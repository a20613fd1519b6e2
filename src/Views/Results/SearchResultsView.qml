pragma ComponentBehavior: Bound

import QtQuick
import Jotwell

// The notes found, below the text field: hints about the keys, how many there are, and the rows.
Item {
    id: panel

    required property SearchResultsState results

    readonly property int horizontalMargin: 12
    readonly property int topMargin: 8
    readonly property int bottomMargin: 12
    readonly property int maximumHeight: 300
    readonly property int radius: 8
    readonly property int shadowBlur: 8
    readonly property int listPadding: 4
    readonly property font titleFont: Qt.font({ family: Qt.application.font.family, pixelSize: Theme.rowTitleFontSize, weight: Font.Medium })
    readonly property font detailFont: Qt.font({ family: Qt.application.font.family, pixelSize: Theme.rowDetailFontSize })

    implicitHeight: Math.min(header.height + list.contentHeight + listPadding, maximumHeight)
                    + topMargin + bottomMargin

    Component.onCompleted: appear()
    onVisibleChanged: appear()

    function appear() {
        if (visible)
            results.appear()
    }

    FontMetrics {
        id: titleMetrics
        font: panel.titleFont
    }
    FontMetrics {
        id: detailMetrics
        font: panel.detailFont
    }

    Item {
        id: card

        objectName: "panelCard"
        anchors.fill: parent
        anchors.leftMargin: panel.horizontalMargin
        anchors.rightMargin: panel.horizontalMargin
        anchors.topMargin: panel.topMargin
        anchors.bottomMargin: panel.bottomMargin

        CardShadow {
            radius: panel.radius
            blur: panel.shadowBlur
            opacity: Theme.panelShadowOpacity
        }

        Rectangle {
            objectName: "panelBackground"
            anchors.fill: parent
            radius: panel.radius
            color: Theme.controlBackground
        }

        SearchResultsHeader {
            id: header

            width: parent.width
            countText: panel.results.countText
            pressedKeys: panel.results.pressedKeys
        }

        RowList {
            id: list

            objectName: "resultsList"
            anchors.fill: parent
            anchors.topMargin: header.height
            bottomMargin: panel.listPadding
            model: panel.results
            Accessible.name: "Notes"

            delegate: SearchResultRow {
                width: list.width
                titleFont: panel.titleFont
                titleHeight: titleMetrics.height
                detailFont: panel.detailFont
                detailHeight: detailMetrics.height
                onTap: panel.results.tap(index)
                onHover: isHovered => panel.results.hover(index, isHovered)
            }
        }

        Rectangle {
            objectName: "panelStroke"
            anchors.fill: parent
            radius: panel.radius
            color: "transparent"
            border.width: 1
            border.color: Theme.separator
        }
    }

    Connections {
        target: panel.results

        function onScrollRequested(index: int, anchor: int) {
            list.scrollTo(index, anchor)
        }
        function onModelReset() {
            list.rest()
        }
        function onSelectedIndexChanged() {
            if (panel.results.selectedIndex < 0)
                list.leave()
        }
    }
}
