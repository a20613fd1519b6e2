import QtQuick
import Jotwell

// A short bar that fills from the leading edge.
Item {
    id: bar

    required property double progress
    property bool isAnimated: true
    property double shownProgress: progress

    implicitWidth: 100
    implicitHeight: 4

    // Keeps its speed when the next value comes before it has reached the last.
    Behavior on shownProgress {
        enabled: bar.isAnimated

        SmoothedAnimation {
            duration: Theme.progressDuration
            velocity: -1
        }
    }

    Rectangle {
        objectName: "track"
        width: bar.width
        height: bar.height
        radius: 2
        color: Theme.track
    }
    Rectangle {
        objectName: "filled"
        width: bar.width * bar.shownProgress
        height: bar.height
        radius: 2
        color: Theme.accentMark
    }
}
