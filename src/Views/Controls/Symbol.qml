import QtQuick
import QtQuick.Window

// A symbol in the size that goes with text of `fontSize`.
Image {
    id: symbol

    required property string name
    required property color color
    required property int fontSize

    // Whole pixels of the screen, so that nothing is scaled once it is drawn.
    readonly property int pixels: Math.round(fontSize * 1.25 * Screen.devicePixelRatio)

    width: pixels / Screen.devicePixelRatio
    height: width
    sourceSize.width: pixels
    sourceSize.height: pixels
    source: "image://symbol/" + name + "/" + encodeURIComponent(color)
    fillMode: Image.PreserveAspectFit
    Accessible.ignored: true
}
