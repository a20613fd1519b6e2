pragma Singleton

import QtQuick
import Jotwell

// How everything looks: the colours of the desktop's appearance, and every measure of type and
// duration by what it is for.
ThemeColors {
    id: theme

    dark: Appearance.dark
    highContrast: Appearance.highContrast

    // What lies on a flashing card takes these: its ground is light whatever the appearance.
    readonly property ThemeColors onFlash: ThemeColors { highContrast: theme.highContrast }

    readonly property int editorFontSize: 14
    readonly property int toastFontSize: 13
    readonly property int rowTitleFontSize: 13
    readonly property int rowDetailFontSize: 11
    readonly property int buttonFontSize: 12
    readonly property int keyHintFontSize: 10
    readonly property int hintFontSize: 11
    readonly property int statusFontSize: 11
    readonly property int statusDetailFontSize: 9
    readonly property int badgeFontSize: 10
    readonly property int fieldFontSize: 14
    readonly property int fieldTitleFontSize: 12
    readonly property int checkboxFontSize: 14
    readonly property int tabFontSize: 13

    // The system's styles of text.
    readonly property int largeTitleFontSize: 26
    readonly property int titleFontSize: 22
    readonly property int title2FontSize: 17
    readonly property int title3FontSize: 15
    readonly property int headlineFontSize: 13
    readonly property int bodyFontSize: 13
    readonly property int captionFontSize: 10

    // In milliseconds.
    readonly property int pressDuration: 100
    readonly property int hoverDuration: 150
    readonly property int iconHoverDuration: 200
    readonly property int scrollDuration: 100
    readonly property int flashDuration: 100
    readonly property int highlightDuration: 150
    readonly property int progressDuration: 200
    readonly property int panelDuration: 300
    readonly property int toastDuration: 300
}
