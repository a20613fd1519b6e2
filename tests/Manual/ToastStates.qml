pragma ComponentBehavior: Bound

import QtQuick
import Jotwell

// A toast of each type, one of them long.
GallerySection {
    id: section

    title: "Toasts"

    Repeater {
        model: [{ icon: "checkmark.circle.fill", color: "green", message: "Note created" },
                { icon: "exclamationmark.triangle.fill", color: "red", message: "No vault is set" },
                { icon: "xmark.circle.fill", color: "red", message: "word ".repeat(400) }]

        ToastView {
            required property var modelData

            width: section.width
            message: modelData.message
            icon: modelData.icon
            iconColor: Theme.white
            color: Theme.fillNamed(modelData.color)
        }
    }
}
