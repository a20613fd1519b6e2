#include "Views/Settings/SimpleSettingsView.h"

namespace jotwell {

SimpleSettingsView::SimpleSettingsView(const SettingsServices& services,
                                       const WindowSystem& windowSystem,
                                       const QString& initialSelectedItem)
    : m_globalHotkey({services.settings, services.hotkeys, services.scheduler, windowSystem}),
      m_obsidianVault({services.settings, services.index, services.folders, services.clock,
                       services.scheduler}),
      m_softwareUpdates(services.updates), m_other(services.launchAtLogin),
      m_newNote({services.settings, services.templates, services.folders}),
      m_recentNotes(services.settings)
{
    const int row = SettingsSidebar::rowOf(initialSelectedItem).value_or(0);
    m_selectedItem = SettingsSidebar::entries().at(row).id;
    screen().appear();
}

int SimpleSettingsView::selectedRow() const
{
    return SettingsSidebar::rowOf(m_selectedItem).value_or(0);
}

std::optional<Command> SimpleSettingsView::selectedCommand() const
{
    return commandFromRawValue(m_selectedItem);
}

void SimpleSettingsView::select(int row)
{
    if (row < 0 || row >= SettingsSidebar::entries().size() || row == selectedRow())
        return;
    screen().disappear();
    m_selectedItem = SettingsSidebar::entries().at(row).id;
    screen().appear();
    emit selectedItemChanged();
}

void SimpleSettingsView::leave()
{
    screen().disappear();
    m_newNote.waitUntilStored();
}

SettingsScreen& SimpleSettingsView::screen()
{
    if (const auto command = selectedCommand())
        return screenOf(*command);
    const QString& id = m_selectedItem;
    if (id == QLatin1String("obsidianVault"))
        return m_obsidianVault;
    if (id == QLatin1String("softwareUpdates"))
        return m_softwareUpdates;
    if (id == QLatin1String("other"))
        return m_other;
    return m_globalHotkey;
}

SettingsScreen& SimpleSettingsView::screenOf(Command command)
{
    switch (command) {
    case Command::newNote:
        return m_newNote;
    case Command::searchNotes:
        return m_searchNotes;
    case Command::recentNotes:
        return m_recentNotes;
    }
    Q_UNREACHABLE();
}

} // namespace jotwell
