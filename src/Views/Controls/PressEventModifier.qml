import QtQuick

// Reports press and release of what it covers: pressed from the press until the release, wherever
// the pointer goes meanwhile. A click ends where it began. Never takes the keyboard.
Item {
    id: modifier

    readonly property bool isHovered: mouse.containsMouse
    readonly property bool isPressed: mouse.pressed

    signal pressed(isPressed: bool)
    signal clicked()

    anchors.fill: parent

    MouseArea {
        id: mouse

        anchors.fill: parent
        hoverEnabled: true
        preventStealing: true // not for the dragging of the window
        cursorShape: Qt.PointingHandCursor
        onPressedChanged: modifier.pressed(pressed)
        onClicked: modifier.clicked()
    }
}
