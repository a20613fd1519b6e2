import QtQuick
import Jotwell

// A step of the welcome: its symbol, its title and what is told or asked below them.
Column {
    id: step

    required property string symbol
    property int symbolSize: 60
    required property string title
    property int titleSize: Theme.titleFontSize
    property string subtitle
    property int subtitleSize: Theme.bodyFontSize

    spacing: 12

    Symbol {
        objectName: "symbol"
        anchors.horizontalCenter: parent.horizontalCenter
        name: step.symbol
        color: Theme.accentMark
        fontSize: step.symbolSize
    }
    StepText {
        objectName: "title"
        text: step.title
        font.pixelSize: step.titleSize
        font.weight: Font.Bold
        Accessible.role: Accessible.Heading
    }
    StepText {
        objectName: "subtitle"
        bottomPadding: 12
        text: step.subtitle
        color: Theme.secondaryText
        font.pixelSize: step.subtitleSize
    }
}
