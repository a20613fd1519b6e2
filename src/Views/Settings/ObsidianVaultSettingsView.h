#pragma once

#include "Views/Settings/SettingsScreen.h"

#include <QtQml/qqmlregistration.h>

namespace jotwell {

class Clock;
class FolderPanel;
class SettingsService;
class TagIndexService;

/// What the vault's screen reads and changes; all of it outlives the screen.
struct VaultSettingsServices {
    SettingsService& settings;
    TagIndexService& index;
    FolderPanel& folders;
    const Clock& clock;
};

/// The screen of the vault: where it is, and how its index stands. Main thread.
class ObsidianVaultSettingsView : public SettingsScreen {
    Q_OBJECT
    QML_NAMED_ELEMENT(ObsidianVaultSettingsState)
    QML_UNCREATABLE("belongs to the settings window")

public:
    explicit ObsidianVaultSettingsView(const VaultSettingsServices& services,
                                       QObject* parent = nullptr);

private:
    VaultSettingsServices m_services;
};

} // namespace jotwell
