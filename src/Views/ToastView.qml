import QtQuick
import Jotwell

// A coloured banner with a message, rounded like the lower edge of what it lies on.
Item {
    id: toast

    required property string message
    required property string icon
    required property color iconColor
    required property color color
    property bool takesClicks: true

    readonly property int cornerRadius: 12

    signal dismiss()

    implicitHeight: row.height + 24

    Accessible.role: Accessible.AlertMessage
    Accessible.name: message

    // One rounded rectangle with its upper corners cut off: two that overlap would show while the
    // toast is half transparent.
    Item {
        anchors.fill: parent
        clip: true

        Rectangle {
            y: -toast.cornerRadius
            width: parent.width
            height: parent.height + toast.cornerRadius
            radius: toast.cornerRadius
            color: toast.color
        }
    }

    MouseArea {
        anchors.fill: parent
        enabled: toast.takesClicks
        hoverEnabled: true
        cursorShape: Qt.PointingHandCursor
        onClicked: toast.dismiss()
    }

    Item {
        id: row

        x: 16
        y: 12
        width: parent.width - 32
        height: Math.max(symbol.height, label.height, closeButton.height)

        Symbol {
            id: symbol

            anchors.verticalCenter: parent.verticalCenter
            name: toast.icon
            color: toast.iconColor
            fontSize: 16
        }

        Text {
            id: label

            anchors {
                verticalCenter: parent.verticalCenter
                left: symbol.right
                leftMargin: 12
                right: closeButton.left
                rightMargin: 12
            }
            text: toast.message
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            maximumLineCount: 3
            elide: Text.ElideRight
            color: Theme.white
            font.pixelSize: Theme.toastFontSize
            Accessible.ignored: true
        }

        SingleButton {
            id: closeButton

            objectName: "dismissButton"
            anchors.verticalCenter: parent.verticalCenter
            anchors.right: parent.right
            icon: "xmark"
            iconSize: 12
            accessibleName: "Dismiss"
            foregroundColor: Qt.rgba(1, 1, 1, 0.8)
            hoverColor: Theme.white
            takesClicks: toast.takesClicks
            onAction: toast.dismiss()
        }
    }
}
