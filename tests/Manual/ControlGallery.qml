import QtQuick
import Jotwell

// Every control in every state and every symbol, in the looks of the moment.
Rectangle {
    id: gallery

    // Has the properties dark and highContrast.
    required property QtObject appearance

    width: 1000
    height: 900
    color: Theme.windowBackground

    Column {
        x: 24
        y: 20
        width: 460
        spacing: 18

        Row {
            spacing: 20

            CustomCheckbox {
                label: "Dark"
                isChecked: gallery.appearance.dark
                onChange: isChecked => gallery.appearance.dark = isChecked
            }
            CustomCheckbox {
                label: "High contrast"
                isChecked: gallery.appearance.highContrast
                onChange: isChecked => gallery.appearance.highContrast = isChecked
            }
        }
        ButtonStates {}
        KeyAndTabStates {}
        ToastStates { width: parent.width }
    }
    Column {
        x: 516
        y: 20
        width: 460
        spacing: 18

        FieldStates { width: parent.width }
        SymbolSheet { width: parent.width }
    }
}
