import QtQuick
import Jotwell

// A note that was found: its name, and the found text or else its path.
Item {
    id: row

    required property int index
    required property string fileName
    required property string snippet
    required property string path
    required property string detail
    required property bool isSelected
    required property bool isHovered
    required property string iconColor
    required property string backgroundColor
    required property string highlightColor

    required property font titleFont
    required property int titleHeight
    required property font detailFont
    required property int detailHeight

    readonly property int outerPadding: 4
    readonly property int horizontalPadding: 12
    readonly property int verticalPadding: 8
    readonly property int spacing: 12
    readonly property int iconWidth: 20
    readonly property int iconFontSize: 14
    readonly property int openIconFontSize: 12
    readonly property color iconTint: Theme.named(iconColor)
    readonly property bool hasSnippet: snippet !== ""

    signal tap()
    signal hover(bool isHovered)

    implicitHeight: background.height
    Accessible.role: Accessible.ListItem
    Accessible.name: fileName
    Accessible.description: detail
    Accessible.ignored: !visible
    Accessible.selectable: true
    Accessible.selected: isSelected
    Accessible.focusable: true
    Accessible.focused: isSelected
    Accessible.onPressAction: tap()

    Rectangle {
        id: background

        objectName: "rowBackground"
        x: row.outerPadding
        width: row.width - 2 * row.outerPadding
        height: texts.height + 2 * row.verticalPadding
        radius: 6
        color: Theme.named(row.backgroundColor)
        clip: true

        Item {
            id: iconFrame

            x: row.horizontalPadding
            width: row.iconWidth
            anchors.verticalCenter: parent.verticalCenter

            Symbol {
                objectName: "noteIcon"
                anchors.centerIn: parent
                name: "doc.text"
                color: row.iconTint
                fontSize: row.iconFontSize
            }
        }

        Item {
            id: texts

            anchors.left: iconFrame.right
            anchors.leftMargin: row.spacing
            // The mark's room stays free without it: nothing moves when the pointer comes by.
            anchors.right: openIcon.left
            anchors.rightMargin: row.spacing
            y: row.verticalPadding
            height: detailText.y + detailText.height

            RowText {
                objectName: "title"
                height: row.titleHeight
                text: row.fileName
                color: Theme.text
                font: row.titleFont
            }
            Loader {
                id: detailText

                y: row.titleHeight + 2
                width: parent.width
                height: row.hasSnippet && item ? item.implicitHeight : row.detailHeight
                sourceComponent: row.hasSnippet ? snippetComponent : pathComponent
            }
        }

        Symbol {
            id: openIcon

            objectName: "openIcon"
            anchors.right: parent.right
            anchors.rightMargin: row.horizontalPadding
            anchors.verticalCenter: parent.verticalCenter
            visible: row.isSelected || row.isHovered
            name: "arrow.up.forward.square"
            color: row.iconTint
            fontSize: row.openIconFontSize
        }
    }

    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        cursorShape: Qt.PointingHandCursor
        onEntered: row.hover(true)
        onExited: row.hover(false)
        onClicked: row.tap()
    }

    Component {
        id: snippetComponent

        HighlightedSnippetView {
            objectName: "snippet"
            snippet: row.snippet
            font: row.detailFont
            color: Theme.secondaryText
            highlightColor: Theme.named(row.highlightColor)
            Accessible.ignored: true
        }
    }

    Component {
        id: pathComponent

        RowText {
            objectName: "path"
            text: row.path
            color: Theme.secondaryText
            font: row.detailFont
        }
    }

    component RowText: Text {
        width: parent?.width ?? 0
        verticalAlignment: Text.AlignVCenter
        horizontalAlignment: Text.AlignLeft
        elide: Text.ElideRight
        maximumLineCount: 1
        textFormat: Text.PlainText
        Accessible.ignored: true
    }
}
