import QtQuick
import Jotwell

// A row of the completion list.
Rectangle {
    id: row

    required property int index
    required property string displayName
    required property string icon
    required property string description
    required property bool isSelected
    required property string iconColor
    required property string backgroundColor

    required property bool hasSymbols
    required property bool animates
    required property font titleFont
    required property int titleHeight
    required property font detailFont
    required property int detailHeight

    readonly property int horizontalPadding: 12
    readonly property int verticalPadding: 8
    readonly property int iconWidth: 18
    readonly property int iconSpacing: 10
    readonly property int symbolFontSize: 14
    readonly property int textX: horizontalPadding + iconWidth + iconSpacing
    property color tint: Theme.named(iconColor)
    property bool isReused: false

    signal tap()
    signal hover(point scenePosition)
    signal leave()

    implicitHeight: titleHeight + 2 + detailHeight + 2 * verticalPadding
    radius: 6
    clip: true
    color: Theme.named(backgroundColor)
    Accessible.role: Accessible.ListItem
    Accessible.name: displayName
    Accessible.description: description
    Accessible.ignored: !visible
    Accessible.selectable: true
    Accessible.selected: isSelected
    Accessible.focusable: true
    Accessible.focused: isSelected
    Accessible.onPressAction: tap()

    // What it was for before isn't to be seen fading.
    ListView.onPooled: isReused = true
    ListView.onReused: isReused = false

    Behavior on color {
        enabled: row.animates && !row.isReused
        RowTransition {}
    }
    Behavior on tint {
        enabled: row.animates && !row.isReused
        RowTransition {}
    }

    Item {
        x: row.horizontalPadding
        width: row.iconWidth
        height: 16
        anchors.verticalCenter: parent.verticalCenter

        Text {
            objectName: "iconText"
            anchors.centerIn: parent
            visible: !row.hasSymbols
            text: row.hasSymbols ? "" : row.icon
            textFormat: Text.PlainText
            color: row.tint
            font: SystemFonts.emojiFont(Theme.rowTitleFontSize)
            Accessible.ignored: true
        }
        Loader {
            anchors.centerIn: parent
            active: row.hasSymbols
            sourceComponent: Symbol {
                objectName: "iconSymbol"
                name: row.icon
                color: row.tint
                fontSize: row.symbolFontSize
            }
        }
    }

    RowText {
        objectName: "title"
        y: row.verticalPadding
        height: row.titleHeight
        text: row.displayName
        color: Theme.text
        font: row.titleFont
    }
    RowText {
        objectName: "detail"
        y: row.verticalPadding + row.titleHeight + 2
        height: row.detailHeight
        text: row.description
        color: Theme.secondaryText
        font: row.detailFont
    }

    MouseArea {
        id: mouse

        anchors.fill: parent
        hoverEnabled: true
        onEntered: row.hover(mapToItem(null, mouseX, mouseY))
        onPositionChanged: row.hover(mapToItem(null, mouseX, mouseY))
        onExited: row.leave()
        onClicked: row.tap()
    }

    component RowText: Text {
        x: row.textX
        width: row.width - x - row.horizontalPadding
        verticalAlignment: Text.AlignVCenter
        horizontalAlignment: Text.AlignLeft
        elide: Text.ElideRight
        maximumLineCount: 1
        textFormat: Text.PlainText
        Accessible.ignored: true
    }

    component RowTransition: ColorAnimation {
        duration: Theme.hoverDuration
        easing.type: Easing.InOutQuad
    }
}
