pragma ComponentBehavior: Bound

import QtQuick
import Jotwell

// Turns, a spoke at a time, for as long as it runs.
Item {
    id: spinner

    property bool running: true
    property color color: Theme.secondaryText

    readonly property int spokeCount: 8
    readonly property int stepDuration: 100
    property int step: 0

    implicitWidth: 20
    implicitHeight: 20
    rotation: step * 360 / spokeCount

    Timer {
        interval: spinner.stepDuration
        repeat: true
        running: spinner.running
        onTriggered: spinner.step = (spinner.step + 1) % spinner.spokeCount
    }

    Repeater {
        model: spinner.spokeCount

        Rectangle {
            id: spoke

            required property int index

            x: (spinner.width - width) / 2
            width: 2.5
            height: 6
            radius: width / 2
            antialiasing: true
            color: spinner.color
            opacity: (spoke.index + 1) / spinner.spokeCount
            transform: Rotation {
                origin.x: spoke.width / 2
                origin.y: spinner.height / 2
                angle: spoke.index * 360 / spinner.spokeCount
            }
        }
    }
}
