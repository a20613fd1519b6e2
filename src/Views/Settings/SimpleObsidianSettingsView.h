#pragma once

#include "Views/Settings/SettingsScreen.h"

#include <QtQml/qqmlregistration.h>

namespace jotwell {

class FolderPanel;
class SettingsService;
class TemplateSyncService;

/// What the templates' screen reads and changes; all of it outlives the screen.
struct TemplateSettingsServices {
    SettingsService& settings;
    TemplateSyncService& templates;
    FolderPanel& folders;
};

/// The screen of new notes: the templates, and the folder that more of them come from. Main thread.
class SimpleObsidianSettingsView : public SettingsScreen {
    Q_OBJECT
    QML_NAMED_ELEMENT(SimpleObsidianSettingsState)
    QML_UNCREATABLE("belongs to the settings window")

public:
    explicit SimpleObsidianSettingsView(const TemplateSettingsServices& services,
                                        QObject* parent = nullptr);

private:
    TemplateSettingsServices m_services;
};

} // namespace jotwell
