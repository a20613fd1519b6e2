import QtQuick
import Jotwell

// One tab: its symbol, its title and a second symbol that says more about it.
PressableControl {
    id: button

    // A TabItem.
    required property var tab
    property bool isSelected: false

    readonly property int widestTitle: 240
    readonly property string title: tab.title || "Untitled"
    readonly property color backgroundColor: isSelected ? Theme.accent
                                                        : isHovered ? Theme.hoveredRow : "transparent"
    readonly property color foregroundColor: isSelected ? Theme.white
                                                        : isHovered ? Theme.text : Theme.secondaryText

    accessibleName: title
    horizontalPadding: 16
    verticalPadding: 8
    cornerRadius: 6
    scale: 1

    Accessible.role: Accessible.PageTab
    Accessible.selectable: true
    Accessible.selected: isSelected

    background: Rectangle {
        objectName: "buttonBackground"
        radius: button.cornerRadius
        color: button.backgroundColor
    }

    contentItem: Row {
        spacing: 6

        IconAndText {
            objectName: "title"
            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, button.widestTitle)
            icon: button.tab.icon ?? ""
            iconSize: Theme.fieldTitleFontSize
            text: button.title
            color: button.foregroundColor
            fontSize: Theme.tabFontSize
        }
        Symbol {
            objectName: "secondaryIcon"
            anchors.verticalCenter: parent.verticalCenter
            visible: name !== ""
            name: button.tab.secondaryIcon ?? ""
            color: button.foregroundColor
            fontSize: Theme.badgeFontSize
        }
    }
}
