import QtQuick
import QtTest

// Measures how well text can be read, by the formula of the Web Content Accessibility Guidelines.
TestCase {
    // What a colour that lets some of its ground through looks like on it.
    function blend(color: color, ground: color): color {
        const mix = (over, under) => over * color.a + under * (1 - color.a)
        return Qt.rgba(mix(color.r, ground.r), mix(color.g, ground.g), mix(color.b, ground.b), 1)
    }

    function luminance(color: color): real {
        const linear = part => part <= 0.03928 ? part / 12.92 : Math.pow((part + 0.055) / 1.055, 2.4)
        return 0.2126 * linear(color.r) + 0.7152 * linear(color.g) + 0.0722 * linear(color.b)
    }

    function contrast(one: color, other: color): real {
        const [dark, light] = [luminance(one), luminance(other)].sort((a, b) => a - b)
        return (light + 0.05) / (dark + 0.05)
    }

    // Grounds lie on one another; a cover lies over the text as well.
    function contrastOf(text: color, grounds: var, cover: var): real {
        let ground = grounds.reduce((under, over) => blend(over, under))
        let seen = blend(text, ground)
        if (cover !== undefined) {
            seen = blend(cover, seen)
            ground = blend(cover, ground)
        }
        return contrast(seen, ground)
    }
}
