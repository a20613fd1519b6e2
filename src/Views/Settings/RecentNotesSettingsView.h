#pragma once

#include "Views/Settings/SettingsScreen.h"

#include <QtQml/qqmlregistration.h>

namespace jotwell {

class SettingsService;

/// The screen of recent notes: how many of them are listed. Main thread; the service outlives it.
class RecentNotesSettingsView : public SettingsScreen {
    Q_OBJECT
    QML_NAMED_ELEMENT(RecentNotesSettingsState)
    QML_UNCREATABLE("belongs to the settings window")

public:
    explicit RecentNotesSettingsView(SettingsService& settings, QObject* parent = nullptr);

private:
    SettingsService& m_settings;
};

} // namespace jotwell
