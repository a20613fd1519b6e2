import QtQuick
import QtQuick.Window

// A symbol in the size that goes with text of `fontSize`.
Image {
    id: symbol

    required property string name
    required property color color
    required property int fontSize

    width: Math.round(fontSize * 1.25)
    height: width
    sourceSize.width: Math.ceil(width * Screen.devicePixelRatio)
    sourceSize.height: Math.ceil(height * Screen.devicePixelRatio)
    source: "image://symbol/" + name + "/" + encodeURIComponent(color)
    fillMode: Image.PreserveAspectFit
    Accessible.ignored: true
}
