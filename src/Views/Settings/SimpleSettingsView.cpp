#include "Views/Settings/SimpleSettingsView.h"

namespace jotwell {

SimpleSettingsView::SimpleSettingsView(const SettingsServices& services,
                                       const WindowSystem& windowSystem,
                                       const QString& initialSelectedItem)
    : m_globalHotkey({services.settings, services.hotkeys, services.scheduler, windowSystem}),
      m_softwareUpdates(services.updates), m_other(services.launchAtLogin)
{
    const int row = SettingsSidebar::rowOf(initialSelectedItem).value_or(0);
    m_selectedItem = SettingsSidebar::entries().at(row).id;
    screen().appear();
}

int SimpleSettingsView::selectedRow() const
{
    return SettingsSidebar::rowOf(m_selectedItem).value_or(0);
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

SettingsScreen& SimpleSettingsView::screen()
{
    const QString& id = m_selectedItem;
    if (id == QLatin1String("softwareUpdates"))
        return m_softwareUpdates;
    if (id == QLatin1String("other"))
        return m_other;
    return m_globalHotkey;
}

} // namespace jotwell
