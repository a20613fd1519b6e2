import QtQuick
import QtQuick.Window
import Jotwell

// Buttons and checkboxes at rest, hovered, pressed, with the keyboard and disabled. The window's
// title tells what has acted.
GallerySection {
    title: "At rest, hovered, pressed, focused, disabled"

    component States: Row {
        id: row

        required property Component control
        property int actions: 0

        spacing: 12

        function tell(what: string): void {
            ++actions
            Window.window.title = what + " " + actions
        }

        Repeater {
            model: ["rest", "hovered", "pressed", "focused", "disabled"]

            Loader {
                required property string modelData

                sourceComponent: row.control
                onLoaded: {
                    item.isHovered = modelData === "hovered"
                    item.isPressed = modelData === "pressed"
                    item.isFocusShown = modelData === "focused"
                    item.isDisabled = modelData === "disabled"
                    item.action.connect(() => row.tell(item.accessibleName + " " + modelData))
                }
            }
        }
    }

    Row {
        spacing: 24

        States {
            control: SingleButton {
                icon: "xmark"
                accessibleName: "Close"
                hoverColor: Theme.red
            }
        }
        States {
            control: SingleButton {
                icon: "trash"
                accessibleName: "Delete"
                size: SingleButtonSize.Regular
            }
        }
    }
    States {
        control: SingleButton {
            icon: "plus"
            iconSize: 20
            accessibleName: "Add"
            size: SingleButtonSize.Large
        }
    }
    States {
        control: SecondaryButton {
            title: "Browse"
            size: ButtonSize.Small
        }
    }
    States { control: SecondaryButton { title: "Cancel" } }
    States {
        control: CustomAccentButton {
            title: "Accept"
            size: ButtonSize.Small
        }
    }
    States { control: CustomAccentButton { title: "Add" } }
    States { control: CustomCheckbox { label: "Off" } }
    States {
        control: CustomCheckbox {
            label: "On"
            isChecked: true
        }
    }
}
