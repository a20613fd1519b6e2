import QtQuick
import Jotwell

// The button for what is meant to be done.
SecondaryButton {
    id: button

    // From top to bottom; under white text.
    readonly property list<color> gradientColors: isDisabled ? [Theme.gray, Theme.gray]
        : isPressed ? [Theme.accentPressed, Qt.alpha(Theme.accent, 0.7)]
        : isHovered ? [Theme.accentHovered, Qt.alpha(Theme.accent, 0.75)]
        : [Theme.accent, Theme.accentPressed]

    foregroundColor: Theme.white

    background: Rectangle {
        objectName: "buttonBackground"
        radius: button.cornerRadius
        gradient: Gradient {
            GradientStop { position: 0; color: button.gradientColors[0] }
            GradientStop { position: 1; color: button.gradientColors[1] }
        }
    }
}
