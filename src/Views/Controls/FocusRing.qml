import QtQuick
import Jotwell

// The line around what has the keyboard.
Rectangle {
    required property real cornerRadius

    readonly property int distance: 2

    objectName: "focusRing"
    anchors.fill: parent
    anchors.margins: -distance - border.width
    radius: cornerRadius + distance + border.width
    color: "transparent"
    border.width: 2
    border.color: Theme.focusStroke
}
