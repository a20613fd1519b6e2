pragma ComponentBehavior: Bound

import QtQuick
import Jotwell

// How far the user has come: a circle for each step, and lines between them.
Column {
    id: indicator

    required property int currentStep
    required property int totalSteps

    readonly property int circleSize: 8
    readonly property real lineWidth: (line.width - totalSteps * circleSize) / (totalSteps - 1)

    leftPadding: 52
    rightPadding: 52
    spacing: 12

    component Mark: Rectangle {
        property bool isReached: false

        color: isReached ? Theme.accentMark : Theme.inactiveMark

        Behavior on color {
            ColorAnimation { duration: Theme.panelDuration }
        }
    }

    Item {
        id: line

        width: indicator.width - indicator.leftPadding - indicator.rightPadding
        height: indicator.circleSize

        Repeater {
            model: indicator.totalSteps - 1

            Mark {
                required property int index

                objectName: "line" + (index + 1)
                x: indicator.circleSize + index * (indicator.circleSize + indicator.lineWidth)
                anchors.verticalCenter: parent.verticalCenter
                width: indicator.lineWidth
                height: 2
                isReached: indicator.currentStep > index + 1
            }
        }
        Repeater {
            model: indicator.totalSteps

            Mark {
                required property int index
                // Drawn at its size: an item that is scaled loses its smooth edge.
                property real magnification: indicator.currentStep === index + 1 ? 1.5 : 1

                objectName: "circle" + (index + 1)
                x: index * (indicator.circleSize + indicator.lineWidth)
                   + (indicator.circleSize - width) / 2
                anchors.verticalCenter: parent.verticalCenter
                width: indicator.circleSize * magnification
                height: width
                radius: width / 2
                isReached: indicator.currentStep >= index + 1

                // Response 0.3 s and damping 0.8 in the terms of this animation.
                Behavior on magnification {
                    SpringAnimation {
                        spring: 7.02
                        damping: 0.536
                        epsilon: 0.005
                    }
                }
            }
        }
    }
    StepText {
        objectName: "stepText"
        width: line.width
        text: "Step " + indicator.currentStep + " of " + indicator.totalSteps
        color: Theme.secondaryText
        font.pixelSize: Theme.captionFontSize
    }
}
