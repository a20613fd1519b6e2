pragma Singleton

import QtQuick

// Every colour, measure of type and duration by what it is for.
QtObject {
    id: theme

    readonly property SystemPalette systemPalette: SystemPalette {}
    readonly property bool dark: systemPalette.window.hslLightness < 0.5

    readonly property color accent: Qt.rgba(0.545, 0.424, 0.933, 1)
    readonly property color windowBackground: dark ? "#323232" : "#ececec"
    readonly property color text: dark ? "#ffffff" : "#000000"
    readonly property color secondaryText: dark ? "#8cffffff" : "#80000000"
    readonly property color selectedTextBackground: dark ? "#3f638b" : "#b3d7ff"
    readonly property color controlBackground: dark ? "#1e1e1e" : "#ffffff"
    readonly property color separator: Qt.alpha(gray, 0.2)
    readonly property color selectedRow: Qt.alpha(gray, 0.2)
    readonly property color hoveredRow: Qt.alpha(gray, 0.1)
    readonly property color successFlash: Qt.rgba(0.9, 0.92, 0.98, 1)
    readonly property color errorFlash: Qt.rgba(0.98, 0.92, 0.92, 1)
    readonly property color red: dark ? "#ff453a" : "#ff3b30"
    readonly property color green: dark ? "#32d74b" : "#28cd41"
    readonly property color systemBlue: dark ? "#0a84ff" : "#007aff"
    readonly property color systemGreen: green
    readonly property color gray: dark ? "#98989d" : "#8e8e93"
    readonly property color white: "#ffffff"

    readonly property real shadowOpacity: dark ? 0.55 : 0.35

    readonly property int editorFontSize: 14
    readonly property int toastFontSize: 13

    readonly property int pressDuration: 100
    readonly property int hoverDuration: 200
    readonly property int flashDuration: 100
    readonly property int toastDuration: 300

    // A system colour by its name.
    function named(name: string): color {
        switch (name) {
        case "green": return green
        case "red": return red
        case "white": return white
        default: return text
        }
    }
}
