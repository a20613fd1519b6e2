pragma ComponentBehavior: Bound

import QtQuick
import Jotwell

// Shows the toast of the moment along its lower edge.
Item {
    id: container

    required property ToastContainerState toasts
    property bool takesClicks: true

    // How far the toast has come in, from 0 (away) to 1 (there).
    property real progress: 0

    Component.onCompleted: follow(false)

    function follow(animated: bool): void {
        movement.stop()
        if (!animated) {
            progress = toasts.isShown ? 1 : 0
            return
        }
        movement.to = toasts.isShown ? 1 : 0
        movement.start()
    }

    Connections {
        target: container.toasts
        function onSlotChanged(animated: bool): void { container.follow(animated) }
    }

    NumberAnimation {
        id: movement

        objectName: "movement"
        target: container
        property: "progress"
        duration: Theme.toastDuration
        easing.type: Easing.InOutQuad
    }

    // Made for each toast: a screen reader is to meet a new alert, and none that has gone.
    Repeater {
        model: container.toasts.isShown || container.progress > 0 ? 1 : 0

        ToastView {
            objectName: "toast"
            width: container.width
            y: container.height - height * container.progress
            opacity: container.progress
            message: container.toasts.message
            icon: container.toasts.icon
            iconColor: Theme.named(container.toasts.iconColor)
            color: Theme.fillNamed(container.toasts.color)
            takesClicks: container.takesClicks
            onDismiss: container.toasts.dismiss()
        }
    }
}
