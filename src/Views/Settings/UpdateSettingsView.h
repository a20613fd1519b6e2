#pragma once

#include "Services/SparkleUpdateManager.h"
#include "Views/Settings/SettingsScreen.h"

#include <QtQml/qqmlregistration.h>

namespace jotwell {

/// The screen of updates, which shows the manager as it is. Main thread; the manager outlives it.
class UpdateSettingsView : public SettingsScreen {
    Q_OBJECT
    QML_NAMED_ELEMENT(UpdateSettingsState)
    QML_UNCREATABLE("belongs to the settings window")

    Q_PROPERTY(bool canCheckForUpdates READ canCheckForUpdates NOTIFY changed)
    Q_PROPERTY(bool updateAvailable READ updateAvailable NOTIFY changed)
    Q_PROPERTY(QString latestVersion READ latestVersion NOTIFY changed)
    Q_PROPERTY(bool automaticallyChecksForUpdates READ automaticallyChecksForUpdates WRITE
                   setAutomaticallyChecksForUpdates NOTIFY changed)
    Q_PROPERTY(bool automaticallyDownloadsUpdates READ automaticallyDownloadsUpdates WRITE
                   setAutomaticallyDownloadsUpdates NOTIFY changed)

public:
    explicit UpdateSettingsView(SparkleUpdateManager& updateManager, QObject* parent = nullptr);

    [[nodiscard]] bool canCheckForUpdates() const { return m_updateManager.canCheckForUpdates(); }
    [[nodiscard]] bool updateAvailable() const { return m_updateManager.updateAvailable(); }
    /// Empty if it isn't known.
    [[nodiscard]] QString latestVersion() const
    {
        return m_updateManager.latestVersion().value_or(QString());
    }
    [[nodiscard]] bool automaticallyChecksForUpdates() const
    {
        return m_updateManager.automaticallyChecksForUpdates();
    }
    void setAutomaticallyChecksForUpdates(bool checks)
    {
        m_updateManager.setAutomaticallyChecksForUpdates(checks);
    }
    [[nodiscard]] bool automaticallyDownloadsUpdates() const
    {
        return m_updateManager.automaticallyDownloadsUpdates();
    }
    void setAutomaticallyDownloadsUpdates(bool downloads)
    {
        m_updateManager.setAutomaticallyDownloadsUpdates(downloads);
    }

    Q_INVOKABLE void checkForUpdatesInBackground()
    {
        m_updateManager.checkForUpdatesInBackground();
    }

signals:
    void changed();

private:
    SparkleUpdateManager& m_updateManager;
};

} // namespace jotwell
