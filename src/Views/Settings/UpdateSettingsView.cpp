#include "Views/Settings/UpdateSettingsView.h"

namespace jotwell {

UpdateSettingsView::UpdateSettingsView(SparkleUpdateManager& updateManager, QObject* parent)
    : SettingsScreen(parent), m_updateManager(updateManager)
{
    using Manager = SparkleUpdateManager;
    for (const auto signal :
         {&Manager::canCheckForUpdatesChanged, &Manager::updateAvailableChanged,
          &Manager::latestVersionChanged, &Manager::automaticallyChecksForUpdatesChanged,
          &Manager::automaticallyDownloadsUpdatesChanged})
        connect(&m_updateManager, signal, this, &UpdateSettingsView::changed);
}

} // namespace jotwell
