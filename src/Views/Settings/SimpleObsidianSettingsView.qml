pragma ComponentBehavior: Bound

import QtQuick
import Jotwell

// The templates of new notes.
SettingsCard {
    id: view

    required property SimpleObsidianSettingsState screen

    spacing: 24

    TemplatesFolderField {
        width: parent.width
        screen: view.screen
    }

    Row {
        width: parent.width
        spacing: 8

        CustomTabsView {
            id: tabs

            objectName: "tabs"
            width: Math.min(implicitWidth, parent.width - plus.width - parent.spacing)
            tabs: view.screen.tabs
            selectedTabId: view.screen.selectedTabId
            onSelect: id => {
                view.screen.selectTab(id)
                selectedTabId = Qt.binding(() => view.screen.selectedTabId)
            }
        }
        SingleButton {
            id: plus

            objectName: "plus"
            anchors.verticalCenter: parent.verticalCenter
            icon: "plus"
            accessibleName: "Add Template"
            onAction: view.screen.showAddTemplate = true
        }
    }

    TemplateFields {
        objectName: "fields"
        width: parent.width
        screen: view.screen
        visible: view.screen.hasSelection
        onDeleted: view.keepFocus()
    }

    Column {
        objectName: "noTemplates"
        width: parent.width
        spacing: 8
        visible: !view.screen.hasSelection

        SettingsText {
            text: "No templates available. Click above to create one."
            color: Theme.secondaryText
        }
        SingleButton {
            id: firstPlus

            objectName: "plusCircle"
            icon: "plus.circle"
            iconSize: 18
            size: SingleButtonSize.Regular
            accessibleName: "Add Template"
            onAction: view.screen.showAddTemplate = true
        }
    }

    // Where the button that was pressed can't be pressed again.
    function keepFocus(): void {
        if (!view.screen.hasSelection)
            firstPlus.forceActiveFocus(Qt.TabFocusReason)
        else if (view.screen.isSynced)
            tabs.takeFocus()
    }

    AddTemplateSheet {
        id: sheet

        visible: view.screen.showAddTemplate
        onSave: (name, content) => view.screen.addTemplate(name, content)
        onClosed: {
            view.screen.showAddTemplate = false
            const button = view.screen.hasSelection ? plus : firstPlus
            button.forceActiveFocus(Qt.PopupFocusReason)
        }
    }
}
