import QtQuick
import Jotwell

// A button of the shortcuts row: an emoji, a text and a key hint.
Item {
    id: button

    required property string icon
    required property string text
    // The keys by their symbols.
    required property string modifier
    required property string key
    property bool drawsModifierSymbol: false
    // How a screen reader calls the key.
    property string keyName: key
    property ThemeColors colors: Theme

    readonly property int horizontalPadding: 10
    readonly property int verticalPadding: 6
    readonly property int spacing: 6
    readonly property string modifierText: KeyCaps.text(modifier)
    readonly property bool isHovered: mouse.containsMouse
    // From the press until the release, wherever the pointer is.
    readonly property bool isPressed: mouse.pressed

    // The share of each state in the looks, from 0 to 1.
    property real hover: isHovered ? 1 : 0
    property real press: isPressed ? 1 : 0
    readonly property color textColor: mixed(colors.text, colors.white, Math.max(hover, press))

    signal tap()

    implicitWidth: content.width + 2 * horizontalPadding
    implicitHeight: content.height + 2 * verticalPadding
    scale: 1 - 0.05 * press

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.description: modifierText + "+" + keyName
    Accessible.ignored: !visible
    Accessible.focusable: false
    Accessible.onPressAction: tap()

    function mixed(from: color, to: color, share: real): color {
        return Qt.rgba(from.r + (to.r - from.r) * share, from.g + (to.g - from.g) * share,
                       from.b + (to.b - from.b) * share, from.a + (to.a - from.a) * share)
    }

    Behavior on hover {
        NumberAnimation {
            duration: Theme.hoverDuration
            easing.type: Easing.InOutQuad
        }
    }
    Behavior on press {
        NumberAnimation {
            duration: Theme.pressDuration
            easing.type: Easing.InOutQuad
        }
    }

    Rectangle {
        objectName: "buttonBackground"
        anchors.fill: parent
        radius: 6
        color: button.mixed(button.mixed(button.colors.buttonBackground, button.colors.accent, button.hover),
                            button.colors.accentPressed, button.press)
    }

    Row {
        id: content

        anchors.centerIn: parent
        spacing: button.spacing

        Text {
            id: emoji

            objectName: "icon"
            anchors.verticalCenter: parent.verticalCenter
            text: button.icon
            textFormat: Text.PlainText
            color: button.textColor
            font: SystemFonts.emojiFont(Theme.editorFontSize)
            Accessible.ignored: true
        }
        Text {
            objectName: "text"
            anchors.verticalCenter: parent.verticalCenter
            width: Math.max(0, Math.min(implicitWidth, button.width - 2 * button.horizontalPadding
                                        - emoji.width - hint.width - 2 * button.spacing))
            text: button.text
            textFormat: Text.PlainText
            maximumLineCount: 1
            elide: Text.ElideRight
            color: button.textColor
            font.pixelSize: Theme.buttonFontSize
            font.weight: Font.Medium
            Accessible.ignored: true
        }
        KeyHint {
            id: hint

            objectName: "keyHint"
            anchors.verticalCenter: parent.verticalCenter
            modifier: button.modifierText
            key: button.key
            drawsSymbol: button.drawsModifierSymbol
            foregroundColor: button.mixed(button.colors.secondaryText, button.colors.white, button.hover)
            color: button.mixed(button.colors.buttonBackground, button.colors.whiteTint, button.hover)
        }
    }

    // Keeps the pointer also where a drag would move the window.
    MouseArea {
        id: mouse

        anchors.fill: parent
        hoverEnabled: true
        preventStealing: true
        cursorShape: Qt.PointingHandCursor
        onClicked: button.tap()
    }
}
