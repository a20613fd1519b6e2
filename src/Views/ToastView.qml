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
    readonly property int spacing: 12
    readonly property int horizontalPadding: 16
    readonly property int verticalPadding: 12

    signal dismiss()

    implicitHeight: row.height + 2 * verticalPadding

    Accessible.role: Accessible.Notification
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

    PressEventModifier {
        enabled: toast.takesClicks
        onClicked: toast.dismiss()
    }

    Item {
        id: row

        x: toast.horizontalPadding
        y: toast.verticalPadding
        width: parent.width - 2 * x
        height: Math.max(symbol.height, label.height, closeButton.height)

        Symbol {
            id: symbol

            objectName: "icon"
            anchors.verticalCenter: parent.verticalCenter
            name: toast.icon
            color: toast.iconColor
            fontSize: 16
        }

        Text {
            id: label

            objectName: "message"
            anchors {
                verticalCenter: parent.verticalCenter
                left: symbol.right
                leftMargin: toast.spacing
                right: closeButton.left
                rightMargin: toast.spacing
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
            foregroundColor: Theme.fadedWhite
            hoverColor: Theme.white
            takesClicks: toast.takesClicks
            onAction: toast.dismiss()
        }
    }
}
