import QtQuick
import QtQuick.Controls.Basic
import Jotwell

// The completion list below the text field.
Item {
    id: dropdown

    required property DropdownModel rows

    readonly property int padding: 4
    readonly property int rowHeight: 46
    readonly property int maximumHeight: 300

    implicitHeight: Math.min(list.contentHeight + 2 * padding, maximumHeight)

    Rectangle {
        anchors.fill: parent
        radius: 8
        color: Theme.controlBackground
        border.width: 1
        border.color: Theme.separator
    }

    ListView {
        id: list

        objectName: "dropdownList"
        anchors.fill: parent
        anchors.margins: dropdown.padding
        clip: true
        spacing: 1
        boundsBehavior: Flickable.StopAtBounds
        model: dropdown.rows
        currentIndex: dropdown.rows.selectedIndex
        highlightFollowsCurrentItem: false
        onCurrentIndexChanged: positionViewAtIndex(currentIndex, ListView.Contain)
        Accessible.role: Accessible.List
        Accessible.name: "Completions"

        ScrollBar.vertical: ScrollBar { Accessible.ignored: true }

        delegate: Rectangle {
            id: row

            required property int index
            required property string displayName
            required property string icon
            required property string description
            readonly property bool isSelected: ListView.isCurrentItem

            width: ListView.view.width
            height: dropdown.rowHeight
            radius: 6
            color: isSelected ? Theme.selectedRow : mouse.containsMouse ? Theme.hoveredRow : "transparent"
            Accessible.role: Accessible.ListItem
            Accessible.name: displayName
            Accessible.description: description
            Accessible.selected: isSelected
            Accessible.onPressAction: dropdown.rows.choose(index)

            Text {
                x: 12
                width: 18
                anchors.verticalCenter: parent.verticalCenter
                visible: !dropdown.rows.hasSymbols
                text: row.icon
                font: SystemFonts.emojiFont(13)
            }

            Column {
                anchors.verticalCenter: parent.verticalCenter
                x: dropdown.rows.hasSymbols ? 12 : 40
                width: parent.width - x - 12
                spacing: 2

                Text {
                    width: parent.width
                    elide: Text.ElideRight
                    maximumLineCount: 1
                    textFormat: Text.PlainText
                    text: row.displayName
                    color: Theme.text
                    font: SystemFonts.monospacedFont(13, Font.Medium)
                }
                Text {
                    width: parent.width
                    elide: Text.ElideRight
                    maximumLineCount: 1
                    textFormat: Text.PlainText
                    text: row.description
                    color: Theme.secondaryText
                    font.pixelSize: 11
                }
            }

            MouseArea {
                id: mouse
                anchors.fill: parent
                hoverEnabled: true
                onClicked: dropdown.rows.choose(row.index)
            }
        }
    }
}
