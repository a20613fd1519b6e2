#include "Views/Settings/ObsidianVaultSettingsView.h"

namespace jotwell {

ObsidianVaultSettingsView::ObsidianVaultSettingsView(const VaultSettingsServices& services,
                                                     QObject* parent)
    : SettingsScreen(parent), m_services(services)
{
}

} // namespace jotwell
