import QtQuick
import Jotwell

// A key cap.
Item {
    id: cap

    required property string key
    property int size: KeySize.Regular
    property bool isHighlighted: false

    readonly property int cornerRadius: 4
    readonly property color foregroundColor: isHighlighted ? Theme.white : Theme.text
    readonly property color backgroundColor: isHighlighted ? Theme.systemAccent : Theme.controlBackground
    readonly property color strokeColor: isHighlighted ? Theme.systemAccent : Theme.keyStroke
    readonly property KeySize measures: KeySize { value: cap.size }

    implicitWidth: Math.max(label.implicitWidth + 2 * measures.horizontalPadding, implicitHeight)
    implicitHeight: label.implicitHeight + 2 * measures.verticalPadding

    Accessible.role: Accessible.StaticText
    Accessible.name: label.text

    Rectangle {
        objectName: "shadow"
        y: 1
        width: parent.width
        height: parent.height
        radius: cap.cornerRadius
        color: "black"
        opacity: Theme.keyShadowOpacity
    }
    Rectangle {
        objectName: "background"
        anchors.fill: parent
        radius: cap.cornerRadius
        color: cap.backgroundColor
        border.color: cap.strokeColor

        Behavior on color { HighlightAnimation {} }
        Behavior on border.color { HighlightAnimation {} }

        Rectangle {
            objectName: "shade"
            anchors.fill: parent
            radius: cap.cornerRadius
            gradient: Gradient {
                GradientStop { position: 0; color: Qt.alpha(Theme.keyShade, 0) }
                GradientStop { position: 1; color: Theme.keyShade }
            }
        }
    }
    Text {
        id: label

        objectName: "label"
        anchors.centerIn: parent
        text: KeyCaps.text(cap.key)
        textFormat: Text.PlainText
        color: cap.foregroundColor
        font.pixelSize: cap.measures.fontSize
        font.weight: Font.Medium
        Accessible.ignored: true

        Behavior on color { HighlightAnimation {} }
    }

    component HighlightAnimation: ColorAnimation {
        duration: Theme.highlightDuration
        easing.type: Easing.InOutQuad
    }
}
