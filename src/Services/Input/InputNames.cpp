#include "Services/Input/InputNames.h"

#include "Services/ObsidianService.h"
#include "Services/SettingsService.h"
#include "Services/TemplateSyncService.h"

#include <utility>

namespace jotwell {

InputNames::InputNames(const InputServices& services) : m_services(services) {}

ObsidianTemplates InputNames::enabledTemplates() const
{
    refresh();
    return m_enabled;
}

QStringList InputNames::templateNames() const
{
    refresh();
    return m_names;
}

// The services give the same list again as long as nothing has changed, and this is asked several
// times in a key stroke.
void InputNames::refresh() const
{
    const ObsidianTemplates regular = m_services.settings.obsidianTemplates();
    const ObsidianTemplates synced = m_services.templates.syncedTemplates();
    if (regular.isSharedWith(m_regular) && synced.isSharedWith(m_synced))
        return;
    m_regular = regular;
    m_synced = synced;
    m_enabled = regular + synced;
    m_enabled.removeIf([](const ObsidianTemplate& each) { return !each.showInDropdown; });
    m_names.clear();
    for (const ObsidianTemplate& each : std::as_const(m_enabled))
        m_names.append(each.name);
}

QStringList InputNames::folderNames() const
{
    const QStringList folders = m_services.notes.listVaultFolders();
    if (m_folderNames.isEmpty() || !folders.isSharedWith(m_vaultFolders)) {
        m_vaultFolders = folders;
        m_folderNames = QStringList(allFolders()) + folders;
    }
    return m_folderNames;
}

QString InputNames::allFolders()
{
    return QStringLiteral("All Folders");
}

} // namespace jotwell
