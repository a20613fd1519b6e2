import QtQuick
import QtTest
import Jotwell

ContrastTestCase {
    name: "Theme"

    component Scheme: ThemeColors {
        required property string name
    }

    readonly property var schemes: [lightScheme, darkScheme, lightHighScheme, darkHighScheme]

    Scheme {
        id: lightScheme
        name: "light"
    }
    Scheme {
        id: darkScheme
        name: "dark"
        dark: true
    }
    Scheme {
        id: lightHighScheme
        name: "light, high contrast"
        highContrast: true
    }
    Scheme {
        id: darkHighScheme
        name: "dark, high contrast"
        dark: true
        highContrast: true
    }

    // Where text may stand.
    function places(its: Scheme): var {
        const panel = its.controlBackground
        const window = its.windowBackground
        return [
            { name: "the window", grounds: [window] },
            { name: "a panel", grounds: [panel], isPanel: true },
            { name: "a field", grounds: [its.textBackground], isPanel: true },
            { name: "a hovered row", grounds: [panel, its.hoveredRow], isPanel: true },
            { name: "a selected row", grounds: [panel, its.selectedRow], isPanel: true },
            { name: "a selected row of the window", grounds: [window, its.selectedRow] },
            { name: "a button", grounds: [window, its.buttonBackground] },
            { name: "a hovered button", grounds: [window, its.hoveredButtonBackground] },
            { name: "a hint on a button", grounds: [window, its.buttonBackground, its.badgeBackground] },
            { name: "a badge", grounds: [panel, its.badgeBackground], isPanel: true },
            { name: "a key cap", grounds: [panel, its.keyShade], isPanel: true },
            { name: "an accented part of the window", grounds: [window, its.accentTint] },
            { name: "an accented panel", grounds: [panel, its.accentTint] }
        ]
    }

    // The least contrast that is owed to a text.
    readonly property var texts: [
        { name: "text", plain: 4.5, high: 7 },
        { name: "secondaryText", plain: 4.5, high: 7 },
        { name: "placeholderText", plain: 4.5, high: 7 },
        { name: "tertiaryText", plain: 4.5, high: 4.5 },
        { name: "blue", plain: 4.5, high: 4.5 },
        { name: "green", plain: 4.5, high: 4.5 },
        { name: "orange", plain: 4.5, high: 4.5 },
        { name: "red", plain: 4.5, high: 4.5 },
        { name: "grayText", plain: 4.5, high: 4.5 },
        { name: "systemAccentText", plain: 4.5, high: 4.5 },
        { name: "accentText", plain: 4.5, high: 4.5 },
        // Symbols in lists.
        { name: "accentMark", plain: 3, high: 4.5, onPanels: true }
    ]

    function textRows(its: Scheme): var {
        const rows = []
        for (const text of texts) {
            for (const place of places(its).filter(each => each.isPanel || !text.onPanels)) {
                rows.push({ tag: text.name + " on " + place.name, color: its[text.name],
                            grounds: place.grounds, least: its.highContrast ? text.high : text.plain })
            }
        }
        return rows
    }

    function fillRows(its: Scheme): var {
        const fills = ["blueFill", "greenFill", "redFill", "systemAccent"]
        const rows = fills.map(fill => ({ tag: "white on " + fill, color: its.white,
                                          grounds: [its[fill]], least: 4.5 }))
        for (const fill of ["greenFill", "redFill"]) {
            rows.push({ tag: "faded white on " + fill, color: its.fadedWhite, grounds: [its[fill]],
                        least: 3 })
        }
        rows.push({ tag: "white on a lit key cap", color: its.white,
                    grounds: [its.systemAccent, its.keyShade], least: 4.5 })
        return rows
    }

    // The accent itself is given, and its white with it; high contrast takes another.
    function accentRows(its: Scheme): var {
        const least = its.highContrast ? 4.5 : 2.5
        return [
            { tag: "white on the accent", grounds: [its.accent] },
            { tag: "white on the pressed accent", grounds: [its.windowBackground, its.accentPressed] },
            { tag: "white on the hovered accent", grounds: [its.controlBackground, its.accentHovered] },
            { tag: "white on a hint on the accent", grounds: [its.accent, its.whiteTint] }
        ].map(row => Object.assign(row, { color: its.white, least: least }))
    }

    function tokenRows(its: Scheme): var {
        const rows = []
        const selection = its.selectedTextBackground
        for (const kind of ["command", "parameter"]) {
            for (const alpha of [0.12, 0.2]) {
                const chip = Qt.alpha(its[kind + "Chip"], alpha)
                rows.push({ tag: kind + " on its chip " + alpha, color: its[kind + "Token"],
                            grounds: [its.windowBackground, chip], cover: chip, least: 4.5 })
                rows.push({ tag: kind + " selected " + alpha, color: its.text, grounds: [selection],
                            cover: chip, least: 4.5 })
            }
            rows.push({ tag: kind + " before its chip", color: its[kind + "Token"],
                        grounds: [its.windowBackground], least: 4.5 })
        }
        rows.push({ tag: "selected text", color: its.text, grounds: [selection], least: 4.5 })
        return rows
    }

    // Lines and marks that say where something is.
    function markRows(its: Scheme): var {
        const rows = [
            { tag: "focus on a control", color: its.focusStroke, grounds: [its.controlBackground] },
            { tag: "focus on the window", color: its.focusStroke, grounds: [its.windowBackground] }
        ]
        if (its.highContrast) {
            for (const line of ["faintStroke", "separator", "controlStroke", "keyStroke",
                                "hoveredControlStroke", "inactiveMark"])
                rows.push({ tag: line, color: its[line], grounds: [its.controlBackground] })
        }
        return rows.map(row => Object.assign(row, { least: 3 }))
    }

    // The ground of a flash is light, and so are the colours on it.
    function flashRows(its: Scheme): var {
        const rows = []
        for (const flash of ["successFlash", "errorFlash"]) {
            for (const text of ["text", "secondaryText", "placeholderText"])
                rows.push({ tag: text + " on " + flash, color: its[text], grounds: [its[flash]] })
            for (const kind of ["command", "parameter"]) {
                const chip = Qt.alpha(its[kind + "Chip"], 0.2)
                rows.push({ tag: kind + " on " + flash, color: its[kind + "Token"],
                            grounds: [its[flash], chip], cover: chip })
            }
        }
        return its.dark ? [] : rows.map(row => Object.assign(row, { least: 4.5 }))
    }

    function test_contrast_data() {
        const rows = []
        for (const its of schemes) {
            for (const row of [...textRows(its), ...fillRows(its), ...accentRows(its),
                               ...tokenRows(its), ...markRows(its), ...flashRows(its)])
                rows.push(Object.assign(row, { tag: its.name + ": " + row.tag }))
        }
        return rows
    }

    function test_contrast(data) {
        const found = contrastOf(data.color, data.grounds, data.cover)
        verify(found >= data.least, found.toFixed(2) + " is less than " + data.least)
    }

    // Against a formula that calls everything readable.
    function test_formula() {
        const black = Qt.rgba(0, 0, 0, 1)
        const white = Qt.rgba(1, 1, 1, 1)
        const half = Qt.alpha(black, 0.5)
        compare(contrast(black, white), 21)
        compare(contrast(Qt.rgba(0x77 / 255, 0x77 / 255, 0x77 / 255, 1), white).toFixed(2), "4.48")
        fuzzyCompare(blend(half, white).r, 0.5, 0.001)
        fuzzyCompare(contrastOf(half, [white]), contrastOf(black, [white], Qt.alpha(white, 0.5)), 0.001)
        compare(contrastOf(black, [black, white], white), 1)
    }

    function test_flash_is_light() {
        verify(!Theme.onFlash.dark)
        compare(Theme.onFlash.highContrast, Theme.highContrast)
    }

    function test_accent_is_given() {
        for (const its of schemes.filter(each => !each.highContrast))
            verify(Qt.colorEqual(its.accent, Qt.rgba(0.545, 0.424, 0.933, 1)))
    }

    function test_strokes_data() {
        return [
            { tag: "faintStroke", opacity: 0.1 },
            { tag: "separator", opacity: 0.2 },
            { tag: "controlStroke", opacity: 0.2 },
            { tag: "keyStroke", opacity: 0.3 },
            { tag: "hoveredControlStroke", opacity: 0.4 }
        ]
    }

    function test_strokes(data) {
        for (const its of schemes)
            verify(Qt.colorEqual(its[data.tag], its.highContrast ? its.gray : Qt.alpha(its.gray, data.opacity)))
    }

    function test_named_data() {
        return [
            { tag: "primary", is: "text" },
            { tag: "secondary", is: "secondaryText" },
            { tag: "accent", is: "accentMark" },
            { tag: "systemAccent", is: "systemAccentText" },
            { tag: "blue", is: "blue" },
            { tag: "green", is: "green" },
            { tag: "orange", is: "orange" },
            { tag: "red", is: "red" },
            { tag: "gray", is: "grayText" },
            { tag: "gray0.1", is: "hoveredRow" },
            { tag: "gray0.2", is: "selectedRow" },
            { tag: "white", is: "white" }
        ]
    }

    function test_named(data) {
        for (const its of schemes)
            verify(Qt.colorEqual(its.named(data.tag), its[data.is]))
    }

    function test_durations() {
        compare(Theme.pressDuration, 100)
        compare(Theme.hoverDuration, 150)
        compare(Theme.iconHoverDuration, 200)
        compare(Theme.scrollDuration, 100)
        compare(Theme.highlightDuration, 150)
        compare(Theme.toastDuration, 300)
    }

    function test_clear_is_nothing() {
        compare(Theme.named("clear").a, 0)
    }

    function test_fillNamed() {
        for (const its of schemes) {
            for (const name of ["blue", "green", "red"])
                verify(Qt.colorEqual(its.fillNamed(name), its[name + "Fill"]))
            verify(Qt.colorEqual(its.fillNamed("accent"), its.accent))
        }
    }
}
