import QtQuick

// The shadow that a rounded rectangle casts a little downwards; fills what casts it.
BorderImage {
    id: shadow

    required property int radius
    required property int blur
    property int offset: 2

    objectName: "cardShadow"
    anchors.fill: parent
    anchors.margins: -blur
    anchors.topMargin: offset - blur
    anchors.bottomMargin: -offset - blur
    source: "image://shadow/" + radius + "/" + blur
    border {
        left: shadow.radius + shadow.blur
        top: shadow.radius + shadow.blur
        right: shadow.radius + shadow.blur
        bottom: shadow.radius + shadow.blur
    }
}
