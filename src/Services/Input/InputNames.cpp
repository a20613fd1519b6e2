#include "Services/Input/InputNames.h"

#include "Services/ObsidianService.h"
#include "Services/SettingsService.h"
#include "Services/TemplateSyncService.h"

namespace jotwell {

InputNames::InputNames(const InputServices& services) : m_services(services) {}

ObsidianTemplates InputNames::enabledTemplates() const
{
    ObsidianTemplates enabled =
        m_services.settings.obsidianTemplates() + m_services.templates.syncedTemplates();
    enabled.removeIf([](const ObsidianTemplate& each) { return !each.showInDropdown; });
    return enabled;
}

QStringList InputNames::templateNames() const
{
    QStringList names;
    for (const ObsidianTemplate& each : enabledTemplates())
        names.append(each.name);
    return names;
}

QStringList InputNames::folderNames() const
{
    return QStringList(allFolders()) + m_services.notes.listVaultFolders();
}

QString InputNames::allFolders()
{
    return QStringLiteral("All Folders");
}

} // namespace jotwell
