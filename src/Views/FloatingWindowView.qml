import QtQuick
import QtQuick.Window
import Jotwell

// The capture window's content: a rounded card in the middle of a transparent window.
Item {
    id: root

    required property FloatingWindowState view

    readonly property int padding: 30
    readonly property int cardWidth: 800
    readonly property int radius: 12
    readonly property int borderWidth: 2
    readonly property color cardColor: Theme.windowBackground

    Item {
        id: card

        objectName: "card"
        anchors.centerIn: parent
        width: root.cardWidth
        height: root.view.dynamicHeight
        scale: root.view.springScale

        // Response 0.3 s and damping 0.6 in the terms of this animation, whose step is 16 ms.
        Behavior on scale {
            SpringAnimation {
                spring: 7.02
                damping: 0.402
                epsilon: 0.0005
            }
        }

        BorderImage {
            readonly property int blur: 24

            anchors.fill: parent
            anchors.margins: -blur
            anchors.topMargin: 6 - blur
            anchors.bottomMargin: -6 - blur
            opacity: Theme.shadowOpacity
            source: "image://shadow/" + root.radius + "/" + blur
            border {
                left: root.radius + blur
                top: root.radius + blur
                right: root.radius + blur
                bottom: root.radius + blur
            }
        }

        Rectangle {
            objectName: "background"
            anchors.fill: parent
            radius: root.radius
            color: root.view.showErrorBackground ? Theme.errorFlash
                                                 : root.view.showAccentBackground ? Theme.successFlash
                                                                                  : Theme.windowBackground

            Behavior on color {
                ColorAnimation {
                    duration: Theme.flashDuration
                    easing.type: Easing.InOutQuad
                }
            }
        }

        DragHandler {
            target: null
            onActiveChanged: if (active) root.Window.window.startSystemMove()
        }

        MouseArea {
            anchors.fill: parent
            enabled: root.view.showDropdown
            onClicked: root.view.closeDropdowns()
        }

        CustomTextEditor {
            id: textEditor

            anchors.fill: parent
            anchors.margins: 12
            editor: root.view.editor
        }

        FloatingDropdown {
            objectName: "dropdown"
            visible: root.view.showDropdown
            anchors.top: textEditor.top
            anchors.topMargin: 35
            anchors.left: textEditor.left
            anchors.right: textEditor.right
            anchors.leftMargin: 12
            anchors.rightMargin: 12
            height: Math.min(implicitHeight, card.height - y - 12)
            rows: root.view.dropdown
        }

        // The line lies on the card's edge, half of it outside.
        Rectangle {
            objectName: "border"
            anchors.fill: parent
            anchors.margins: -root.borderWidth / 2
            radius: root.radius + root.borderWidth / 2
            color: "transparent"
            border.width: root.borderWidth
            border.color: root.view.showErrorBorder ? Theme.red
                                                    : root.view.showAccentBorder ? Theme.accent
                                                                                 : "transparent"

            Behavior on border.color {
                ColorAnimation {
                    duration: Theme.flashDuration
                    easing.type: Easing.InOutQuad
                }
            }
        }

        ToastContainerView {
            objectName: "toastContainer"
            anchors.fill: parent
            toasts: root.view.toasts
            takesClicks: false
        }
    }
}
