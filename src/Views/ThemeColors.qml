import QtQuick

// The colours of one appearance by what they are for. What carries text or is text stands out at
// least 4.5:1 from every ground that it is drawn on; an accent under white is as it is wanted.
QtObject {
    id: colors

    property bool dark: false
    property bool highContrast: false

    // The system's named colours as published: for fills and lines that carry nothing to be read.
    readonly property color systemBlue: shade("#007aff", "#0a84ff", "#0040dd", "#409cff")
    readonly property color systemGreen: shade("#28cd41", "#32d74b", "#007018", "#31de4b")
    readonly property color systemOrange: shade("#ff9500", "#ff9f0a", "#c45300", "#ffb340")
    readonly property color systemRed: shade("#ff3b30", "#ff453a", "#c20618", "#ff4136")
    readonly property color gray: shade("#8e8e93", "#98989d", "#69696e", "#98989d")
    readonly property color white: "#ffffff"

    // The same as text and symbols on any ground of ours, rows with a tint included.
    readonly property color blue: shade("#0040dd", "#78b9ff", "#0032b4", "#96c8ff")
    readonly property color green: shade("#006816", "#32d74b", "#005410", "#6eeb82")
    readonly property color orange: shade("#9e4200", "#ff9f0a", "#823400", "#ffbe5a")
    readonly property color red: shade("#b80617", "#ff9e97", "#960012", "#ffb4ae")
    readonly property color grayText: shade("#5a5a5f", "#bababf", "#46464b", "#d7d7dc")

    // The same as fills under white text.
    readonly property color blueFill: shade("#006ee6", "#006ee6", "#0040dd", "#0040dd")
    readonly property color greenFill: shade("#008020", "#008020", "#005c14", "#005c14")
    readonly property color redFill: shade("#d70015", "#d70015", "#a80012", "#a80012")

    // The program's accent: as a fill under white, as text, and as lines, dots and symbols.
    readonly property color accent: highContrast ? "#5838b8" : Qt.rgba(0.545, 0.424, 0.933, 1)
    readonly property color accentText: shade("#5c3ebe", "#beacff", "#5034aa", "#cdbeff")
    readonly property color accentMark: highContrast ? accentText : accent
    readonly property color accentHovered: Qt.alpha(accent, 0.9)
    readonly property color accentPressed: Qt.alpha(accent, 0.8)
    readonly property color accentTint: Qt.alpha(accentMark, 0.1)
    readonly property color accentTintStroke: highContrast ? accentMark : Qt.alpha(accentMark, 0.3)

    // The system's accent: as a fill under white, and as text.
    readonly property color systemAccent: blueFill
    readonly property color systemAccentText: blue

    readonly property color text: dark ? "#ffffff" : "#000000"
    readonly property color secondaryText: label(0.6, 0.66, 0.85)
    readonly property color tertiaryText: label(0.57, 0.62, 0.8)
    readonly property color placeholderText: secondaryText
    readonly property color selectedTextBackground: dark ? "#38597d" : "#b3d7ff"

    readonly property color windowBackground: dark ? "#323232" : "#ececec"
    readonly property color controlBackground: dark ? "#1e1e1e" : "#ffffff"
    readonly property color textBackground: controlBackground
    readonly property color successFlash: Qt.rgba(0.9, 0.92, 0.98, 1)
    readonly property color errorFlash: Qt.rgba(0.98, 0.92, 0.92, 1)

    // The editor's tokens: the tint of a chip lies under its text and once more over it.
    readonly property color commandToken: shade("#002ea8", "#b2d9ff", "#00248c", "#d2e8ff")
    readonly property color commandChip: dark ? "#0a84ff" : "#007aff"
    readonly property color parameterToken: shade("#004e10", "#b4fac0", "#00380b", "#d2ffda")
    readonly property color parameterChip: dark ? "#32d74b" : "#28cd41"

    // Tints of gray.
    readonly property color hoveredRow: Qt.alpha(gray, 0.1)
    readonly property color selectedRow: Qt.alpha(gray, 0.2)
    readonly property color buttonBackground: Qt.alpha(gray, 0.1)
    readonly property color hoveredButtonBackground: Qt.alpha(gray, 0.2)
    readonly property color badgeBackground: Qt.alpha(gray, 0.1)
    readonly property color track: Qt.alpha(gray, 0.2)
    readonly property color inactiveMark: stroke(0.3)

    // Lines of gray, from weak to strong.
    readonly property color faintStroke: stroke(0.1)
    readonly property color separator: stroke(0.2)
    readonly property color controlStroke: stroke(0.2)
    readonly property color keyStroke: stroke(0.3)
    readonly property color hoveredControlStroke: stroke(0.4)
    readonly property color focusStroke: accentMark

    // On a fill of colour.
    readonly property color whiteTint: Qt.alpha(white, 0.2)
    readonly property color fadedWhite: highContrast ? white : Qt.alpha(white, 0.8)

    readonly property color sheetShade: Qt.rgba(0, 0, 0, dark ? 0.5 : 0.3)
    readonly property color keyShade: Qt.rgba(0, 0, 0, 0.06)
    readonly property real shadowOpacity: dark ? 0.55 : 0.35
    readonly property real dropdownShadowOpacity: 0.15
    readonly property real panelShadowOpacity: 0.1
    readonly property real keyShadowOpacity: 0.1

    // The colour of text, a symbol or a row's tint by its name in a table.
    function named(name: string): color {
        switch (name) {
        case "accent": return accentMark
        case "blue": return blue
        case "clear": return Qt.rgba(0, 0, 0, 0)
        case "gray": return grayText
        case "gray0.1": return hoveredRow
        case "gray0.2": return selectedRow
        case "green": return green
        case "orange": return orange
        case "red": return red
        case "secondary": return secondaryText
        case "systemAccent": return systemAccentText
        case "white": return white
        default: return text
        }
    }

    // The colour of a fill under white text, such as a toast, by its name in a table.
    function fillNamed(name: string): color {
        switch (name) {
        case "blue": return blueFill
        case "green": return greenFill
        case "red": return redFill
        default: return accent
        }
    }

    function shade(light: color, dark: color, lightHigh: color, darkHigh: color): color {
        if (colors.highContrast)
            return colors.dark ? darkHigh : lightHigh
        return colors.dark ? dark : light
    }

    function label(light: real, dark: real, high: real): color {
        return Qt.alpha(text, highContrast ? high : colors.dark ? dark : light)
    }

    function stroke(opacity: real): color {
        return highContrast ? gray : Qt.alpha(gray, opacity)
    }
}
