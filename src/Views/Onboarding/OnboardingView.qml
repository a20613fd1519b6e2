import QtQuick
import QtQuick.Window
import Jotwell

// The welcome: how far it has come, the step, and the buttons to go on.
Rectangle {
    id: root

    required property OnboardingState view

    color: Theme.windowBackground

    Binding {
        target: root.Window.window
        property: "color"
        value: root.color
    }

    // The window is moved by any place of it that has no other use.
    DragHandler {
        target: null
        onActiveChanged: {
            if (active)
                root.Window.window.startSystemMove()
        }
    }

    StepIndicator {
        id: indicator

        y: 28
        width: parent.width
        currentStep: root.view.currentStep
        totalSteps: root.view.totalSteps
    }

    // On a screen that is too small for the window the step is scrolled.
    Flickable {
        id: area

        objectName: "area"
        anchors.top: indicator.bottom
        anchors.bottom: buttons.top
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: 52
        anchors.rightMargin: 52
        contentHeight: Math.max(height, step.height)
        interactive: step.height > height
        clip: interactive
        boundsBehavior: Flickable.StopAtBounds

        Loader {
            id: step

            // How far the step still is from its place, and from which side it comes.
            property real animationOffset: 0

            objectName: "step"
            width: area.width
            y: (area.contentHeight - height) / 2
            sourceComponent: root.stepAt(root.view.currentStep)
            transform: Translate { x: step.animationOffset }
        }
    }

    // Response 0.5 s and damping 0.85 in the terms of this animation.
    SpringAnimation {
        id: arrival

        target: step
        property: "animationOffset"
        to: 0
        spring: 2.53
        damping: 0.342
        epsilon: 0.25
    }
    NumberAnimation {
        id: appearance

        target: step
        property: "opacity"
        from: 0
        to: 1
        duration: Theme.panelDuration
        easing.type: Easing.InOutQuad
    }

    Item {
        id: buttons

        anchors.bottom: parent.bottom
        width: parent.width
        height: forward.height + 40

        SecondaryButton {
            objectName: "back"
            x: 20
            anchors.verticalCenter: parent.verticalCenter
            visible: root.view.currentStep > 1
            title: "Back"
            onAction: root.view.goBack()
        }
        SkipButton {
            objectName: "skip"
            anchors.centerIn: parent
            width: 60
            opacity: root.view.isLastStep ? 0 : 1
            isDisabled: root.view.isLastStep
            onAction: root.view.handleSkip()
        }
        CustomAccentButton {
            id: forward

            objectName: "forward"
            anchors.right: parent.right
            anchors.rightMargin: 20
            anchors.verticalCenter: parent.verticalCenter
            title: root.view.isLastStep ? "Get Started" : "Continue"
            isDisabled: root.view.shouldDisableContinue
            onAction: root.view.goForward()
            Component.onCompleted: forceActiveFocus(Qt.OtherFocusReason)
        }
    }

    ToastContainerView {
        anchors.fill: parent
        toasts: root.view.toasts
    }

    Connections {
        target: root.view

        property int lastStep: root.view.currentStep

        function onCurrentStepChanged(): void {
            step.animationOffset = root.view.currentStep > lastStep ? 60 : -60
            lastStep = root.view.currentStep
            area.contentY = 0
            arrival.restart()
            appearance.restart()
        }
    }

    function stepAt(number: int): Component {
        return [welcome, vaultFolder, templatesFolder, launchAtLogin, commands][number - 1]
    }

    Component {
        id: welcome

        WelcomeStep {}
    }
    Component {
        id: vaultFolder

        VaultFolderStep { view: root.view }
    }
    Component {
        id: templatesFolder

        TemplatesFolderStep { view: root.view }
    }
    Component {
        id: launchAtLogin

        LaunchAtLoginStep { view: root.view }
    }
    Component {
        id: commands

        CommandsStep {}
    }
}
