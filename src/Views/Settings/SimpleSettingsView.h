#pragma once

#include "Views/Settings/GlobalHotkeySettingsView.h"
#include "Views/Settings/ObsidianVaultSettingsView.h"
#include "Views/Settings/OtherSettingsView.h"
#include "Views/Settings/RecentNotesSettingsView.h"
#include "Views/Settings/SettingsSidebar.h"
#include "Views/Settings/SimpleObsidianSettingsView.h"
#include "Views/Settings/UpdateSettingsView.h"

namespace jotwell {

/// What the settings read and change; all of it outlives them.
struct SettingsServices {
    SettingsService& settings;
    TagIndexService& index;
    TemplateSyncService& templates;
    GlobalHotkeyManager& hotkeys;
    LaunchAtLoginManager& launchAtLogin;
    SparkleUpdateManager& updates;
    FolderPanel& folders;
    const Clock& clock;
    Scheduler& scheduler;
};

/// The root of the settings window: which entry of the sidebar is selected, and the screens of all.
/// Main thread.
class SimpleSettingsView : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(SettingsState)
    QML_UNCREATABLE("belongs to the settings window")

    Q_PROPERTY(QString selectedItem READ selectedItem NOTIFY selectedItemChanged)
    Q_PROPERTY(int selectedRow READ selectedRow NOTIFY selectedItemChanged)
    Q_PROPERTY(jotwell::SettingsSidebar* sidebar READ sidebar CONSTANT)
    Q_PROPERTY(jotwell::GlobalHotkeySettingsView* globalHotkey READ globalHotkey CONSTANT)
    Q_PROPERTY(jotwell::ObsidianVaultSettingsView* obsidianVault READ obsidianVault CONSTANT)
    Q_PROPERTY(jotwell::UpdateSettingsView* softwareUpdates READ softwareUpdates CONSTANT)
    Q_PROPERTY(jotwell::OtherSettingsView* other READ other CONSTANT)
    Q_PROPERTY(jotwell::SimpleObsidianSettingsView* newNote READ newNote CONSTANT)
    Q_PROPERTY(jotwell::RecentNotesSettingsView* recentNotes READ recentNotes CONSTANT)

public:
    /// Shows the screen of that entry; the first one for an id that isn't there.
    SimpleSettingsView(const SettingsServices& services, const WindowSystem& windowSystem,
                       const QString& initialSelectedItem);

    /// The id of an entry.
    [[nodiscard]] const QString& selectedItem() const { return m_selectedItem; }
    [[nodiscard]] int selectedRow() const;
    /// None while an entry of another group is selected.
    [[nodiscard]] std::optional<Command> selectedCommand() const;
    [[nodiscard]] SettingsSidebar* sidebar() { return &m_sidebar; }
    [[nodiscard]] GlobalHotkeySettingsView* globalHotkey() { return &m_globalHotkey; }
    [[nodiscard]] ObsidianVaultSettingsView* obsidianVault() { return &m_obsidianVault; }
    [[nodiscard]] UpdateSettingsView* softwareUpdates() { return &m_softwareUpdates; }
    [[nodiscard]] OtherSettingsView* other() { return &m_other; }
    [[nodiscard]] SimpleObsidianSettingsView* newNote() { return &m_newNote; }
    [[nodiscard]] RecentNotesSettingsView* recentNotes() { return &m_recentNotes; }

    /// The user has chosen that row; rows that aren't there are passed over.
    Q_INVOKABLE void select(int row);
    /// The window closes: no screen is on show any more, and what was changed is stored.
    void leave();

signals:
    void selectedItemChanged();

private:
    [[nodiscard]] SettingsScreen& screen();
    [[nodiscard]] SettingsScreen& screenOf(Command command);

    SettingsSidebar m_sidebar;
    GlobalHotkeySettingsView m_globalHotkey;
    ObsidianVaultSettingsView m_obsidianVault;
    UpdateSettingsView m_softwareUpdates;
    OtherSettingsView m_other;
    SimpleObsidianSettingsView m_newNote;
    SettingsScreen m_searchNotes; ///< has no settings
    RecentNotesSettingsView m_recentNotes;
    QString m_selectedItem;
};

} // namespace jotwell
