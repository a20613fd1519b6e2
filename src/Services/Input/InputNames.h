#pragma once

#include "Models/ObsidianTemplate.h"
#include "Services/Input/InputServices.h"

#include <QStringList>

namespace jotwell {

/// What may stand behind a "$": asks the services anew at each call. Main thread; the services
/// outlive it.
class InputNames {
public:
    explicit InputNames(const InputServices& services);

    /// The templates that are shown in the dropdown: the user's own, then the synced ones.
    [[nodiscard]] ObsidianTemplates enabledTemplates() const;
    /// Their names.
    [[nodiscard]] QStringList templateNames() const;
    /// `allFolders()`, then the vault's top-level folders.
    [[nodiscard]] QStringList folderNames() const;
    /// The name that stands for the whole vault.
    [[nodiscard]] static QString allFolders();

private:
    void refresh() const;

    InputServices m_services;
    // What was made last, and of which lists.
    mutable ObsidianTemplates m_regular;
    mutable ObsidianTemplates m_synced;
    mutable ObsidianTemplates m_enabled;
    mutable QStringList m_names;
    mutable QStringList m_vaultFolders;
    mutable QStringList m_folderNames;
};

} // namespace jotwell
