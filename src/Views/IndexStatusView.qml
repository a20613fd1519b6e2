pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Window
import Jotwell

// A strip that tells how far a build of the index is, and is nothing without one.
Item {
    id: root

    required property IndexStatusState indexStatus

    readonly property bool isOnScreen: Window.visibility !== Window.Hidden

    // How far the strip has come in from the top edge, from 0 (away) to 1 (there).
    property real progress: indexStatus.isIndexing ? 1 : 0

    implicitHeight: strips.count > 0 ? strips.itemAt(0).height : 0

    Behavior on progress {
        enabled: root.isOnScreen

        NumberAnimation {
            duration: Theme.panelDuration
            easing.type: Easing.InOutQuad
        }
    }

    Repeater {
        id: strips

        model: root.indexStatus.isIndexing || root.progress > 0 ? 1 : 0

        Item {
            id: strip

            objectName: "strip"
            readonly property int horizontalPadding: 12
            readonly property int verticalPadding: 8
            readonly property int spacing: 8

            width: root.width
            height: Math.max(spinner.height, texts.height) + 2 * verticalPadding
            y: -height * (1 - root.progress)
            opacity: root.progress

            Accessible.role: Accessible.ProgressBar
            Accessible.name: title.text
            Accessible.description: root.indexStatus.fileCountText
            Accessible.ignored: !root.indexStatus.isIndexing

            Rectangle {
                objectName: "stripBackground"
                anchors.fill: parent
                radius: 8
                color: Theme.controlBackground
            }

            ProgressSpinner {
                id: spinner

                objectName: "spinner"
                anchors.verticalCenter: parent.verticalCenter
                x: strip.horizontalPadding
                scale: 0.8
                running: root.isOnScreen
            }

            Column {
                id: texts

                anchors.verticalCenter: parent.verticalCenter
                anchors.left: spinner.right
                anchors.leftMargin: strip.spacing
                anchors.right: bar.left
                anchors.rightMargin: 2 * strip.spacing
                spacing: 2

                Text {
                    id: title

                    objectName: "title"
                    width: parent.width
                    elide: Text.ElideRight
                    text: "Indexing vault..."
                    color: Theme.text
                    font.pixelSize: Theme.statusFontSize
                    font.weight: Font.Medium
                    Accessible.ignored: true
                }
                Text {
                    objectName: "fileCount"
                    width: parent.width
                    elide: Text.ElideRight
                    text: root.indexStatus.fileCountText
                    color: Theme.secondaryText
                    font.pixelSize: Theme.statusDetailFontSize
                    Accessible.ignored: true
                }
            }

            IndexProgressBar {
                id: bar

                objectName: "progressBar"
                anchors.verticalCenter: parent.verticalCenter
                anchors.right: parent.right
                anchors.rightMargin: strip.horizontalPadding
                progress: root.indexStatus.indexingProgress
                isAnimated: root.isOnScreen
            }

            Rectangle {
                objectName: "stripOutline"
                anchors.fill: parent
                radius: 8
                color: "transparent"
                border.width: 1
                border.color: Theme.separator
            }
        }
    }
}
