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
    readonly property int inputPadding: 12
    readonly property color cardColor: Theme.windowBackground

    // What lies on the card's ground: during a flash that ground is a light one in the dark, too.
    readonly property bool isFlashing: view.showAccentBackground || view.showErrorBackground
    readonly property ThemeColors colors: isFlashing ? Theme.onFlash : Theme

    component FlashAnimation: ColorAnimation {
        duration: Theme.flashDuration
        easing.type: Easing.InOutQuad
    }

    MouseArea {
        objectName: "backdrop"
        anchors.fill: parent
        enabled: root.view.showDropdown
        onClicked: root.view.closeDropdowns()
    }

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

            Behavior on color { FlashAnimation {} }
        }

        // Once for each press: a move ends with a release that looks like a further drag.
        DragHandler {
            id: drag

            property bool isAsked: false

            target: null
            onActiveChanged: {
                if (!active || isAsked)
                    return
                isAsked = true
                root.Window.window.startSystemMove()
            }
        }
        PointHandler {
            onActiveChanged: if (active) drag.isAsked = false
        }

        Item {
            id: inputBox

            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: parent.top
            anchors.bottom: shortcutsRow.top

            CustomTextEditor {
                id: textEditor

                objectName: "editor"
                anchors.fill: parent
                anchors.margins: root.inputPadding
                editor: root.view.editor
                colors: root.colors
            }
        }

        CommandShortcutsRow {
            id: shortcutsRow

            objectName: "shortcutsRow"
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: resultsPanel.top
            shortcuts: root.view.shortcuts
            colors: root.colors
        }

        Loader {
            id: resultsPanel

            objectName: "resultsPanel"
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: indexStrip.top
            height: item ? (item as Item).implicitHeight : 0
            active: root.view.showSearchResults
            sourceComponent: SearchResultsView { results: root.view.results }
        }

        // The strip comes in over the card's lower edge and leaves the same way.
        Item {
            id: indexStrip

            property real progress: root.view.indexStatus.isIndexing ? 1 : 0

            objectName: "indexStrip"
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            height: strip.item ? ((strip.item as Item).implicitHeight + 12) * progress : 0
            opacity: progress
            clip: true

            Behavior on progress {
                NumberAnimation {
                    duration: Theme.panelDuration
                    easing.type: Easing.InOutQuad
                }
            }

            Loader {
                id: strip

                anchors.left: parent.left
                anchors.right: parent.right
                anchors.leftMargin: 12
                anchors.rightMargin: 12
                active: indexStrip.progress > 0
                sourceComponent: IndexStatusView { indexStatus: root.view.indexStatus }
            }
        }

        // Sees each tap on what lies below it, and leaves it to that. The card becomes another one
        // behind the tap: what was tapped is to be where it was until then.
        Item {
            objectName: "content"
            anchors.fill: parent

            PointHandler {
                readonly property vector2d way: Qt.vector2d(point.position.x - point.pressPosition.x,
                                                            point.position.y - point.pressPosition.y)
                property bool isTap: false

                onWayChanged: isTap = isTap && way.length() < Qt.styleHints.startDragDistance
                onActiveChanged: {
                    if (active)
                        root.view.pressContent()
                    else if (isTap)
                        Qt.callLater(root.view.tapContent)
                    isTap = active
                }
            }
        }

        FloatingDropdown {
            objectName: "dropdown"
            visible: root.view.showDropdown
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.leftMargin: root.inputPadding + 12
            anchors.rightMargin: root.inputPadding + 12
            y: root.inputPadding + 35
            height: Math.min(implicitHeight, card.height - y - root.inputPadding)
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
            border.color: root.view.showErrorBorder ? Theme.systemRed
                                                    : root.view.showAccentBorder ? Theme.accentMark
                                                                                 : "transparent"

            Behavior on border.color { FlashAnimation {} }
        }

        ToastContainerView {
            objectName: "toastContainer"
            anchors.fill: parent
            toasts: root.view.toasts
            takesClicks: false
        }
    }
}
