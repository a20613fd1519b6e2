pragma ComponentBehavior: Bound

import QtQuick
import Jotwell

// Every symbol by its name, in the size of a row and in that of a heading.
GallerySection {
    id: section

    readonly property list<string> names: [
        "arrow.clockwise", "arrow.down.circle.fill", "arrow.triangle.2.circlepath",
        "arrow.up.forward.square", "checkmark", "checkmark.circle.fill", "command",
        "command.circle.fill", "doc.on.doc.fill", "doc.text", "exclamationmark.triangle.fill",
        "folder", "folder.circle.fill", "folder.fill.badge.plus", "gearshape.circle.fill",
        "keyboard", "magnifyingglass", "magnifyingglass.circle", "number", "o.circle.fill", "plus",
        "plus.circle", "power.circle.fill", "trash", "xmark", "xmark.circle.fill"
    ]

    title: "Symbols"

    Grid {
        columns: 2
        columnSpacing: 24
        rowSpacing: 6

        Repeater {
            model: section.names

            Row {
                id: line

                required property string modelData

                width: 210
                spacing: 8

                Symbol {
                    anchors.verticalCenter: parent.verticalCenter
                    name: line.modelData
                    color: Theme.text
                    fontSize: 10
                }
                Symbol {
                    anchors.verticalCenter: parent.verticalCenter
                    name: line.modelData
                    color: Theme.accentMark
                    fontSize: 14
                }
                Symbol {
                    anchors.verticalCenter: parent.verticalCenter
                    name: line.modelData
                    color: Theme.text
                    fontSize: 18
                }
                Text {
                    anchors.verticalCenter: parent.verticalCenter
                    text: line.modelData
                    color: Theme.text
                    font.pixelSize: Theme.captionFontSize
                }
            }
        }
    }
}
