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

    Item {
        width: parent.width
        height: Math.max(tabs.height, plus.height)

        CustomTabsView {
            id: tabs

            objectName: "tabs"
            anchors.verticalCenter: parent.verticalCenter
            width: parent.width - plus.width - plus.gap
            tabs: view.screen.tabs
            selectedTabId: view.screen.selectedTabId
            onSelect: id => {
                Qt.inputMethod.commit() // what it has at hand belongs to the one before
                view.screen.selectTab(id)
                selectedTabId = Qt.binding(() => view.screen.selectedTabId)
            }
        }
        SingleButton {
            id: plus

            readonly property int gap: tabs.count > 0 ? 8 : 0

            objectName: "plus"
            x: Math.min(tabs.contentWidth, tabs.width) + gap
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
