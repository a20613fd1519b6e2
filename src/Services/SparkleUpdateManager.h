#pragma once

#include "Platform/StatusItem.h"
#include "Platform/Updater.h"

#include <QObject>
#include <QString>

#include <optional>

namespace jotwell {

class Scheduler;
class ToastManager;
class Workspace;

/// What the program knows of newer versions of itself: asks the updater, tells the user what it has
/// found, and makes the menu's one entry for it. Main thread only; lives as long as the program.
class SparkleUpdateManager : public QObject, private UpdaterDelegate {
    Q_OBJECT
    Q_PROPERTY(bool canCheckForUpdates READ canCheckForUpdates NOTIFY canCheckForUpdatesChanged)
    Q_PROPERTY(bool automaticallyChecksForUpdates READ automaticallyChecksForUpdates WRITE
                   setAutomaticallyChecksForUpdates NOTIFY automaticallyChecksForUpdatesChanged)
    Q_PROPERTY(bool automaticallyDownloadsUpdates READ automaticallyDownloadsUpdates WRITE
                   setAutomaticallyDownloadsUpdates NOTIFY automaticallyDownloadsUpdatesChanged)
    Q_PROPERTY(bool updateAvailable READ updateAvailable NOTIFY updateAvailableChanged)
    Q_PROPERTY(QString latestVersion READ latestVersionText NOTIFY latestVersionChanged)
    Q_PROPERTY(QString releaseNotesURL READ releaseNotesText NOTIFY releaseNotesURLChanged)

public:
    SparkleUpdateManager(Updater& updater, Workspace& workspace, Scheduler& scheduler,
                         ToastManager& toasts);
    /// The updater hears of nobody from then on.
    ~SparkleUpdateManager() override;
    [[nodiscard]] static SparkleUpdateManager& shared();

    [[nodiscard]] bool canCheckForUpdates() const { return m_canCheck; }
    [[nodiscard]] bool automaticallyChecksForUpdates() const { return m_checksAutomatically; }
    [[nodiscard]] bool automaticallyDownloadsUpdates() const { return m_downloadsAutomatically; }
    void setAutomaticallyChecksForUpdates(bool checks);
    void setAutomaticallyDownloadsUpdates(bool downloads);

    /// Whether the last check found an update, its version, and the https page that tells of it.
    [[nodiscard]] bool updateAvailable() const { return m_updateAvailable; }
    [[nodiscard]] const std::optional<QString>& latestVersion() const { return m_latestVersion; }
    [[nodiscard]] const std::optional<QString>& releaseNotesURL() const { return m_releaseNotes; }

    /// Both forget what the last check found and start another: one that the user asked for, and
    /// one that the user needn't notice.
    Q_INVOKABLE void checkForUpdates();
    Q_INVOKABLE void checkForUpdatesInBackground();

    /// Opens the update's page, or else the program's own.
    Q_INVOKABLE void openLandingPage();

    /// The menu's entry for updates as it is to look now.
    [[nodiscard]] MenuEntry createUpdateMenuItem();
    void checkForUpdatesAction();
    void downloadUpdateAction();

    [[nodiscard]] QString feedURLString() const override;

signals:
    void canCheckForUpdatesChanged();
    void automaticallyChecksForUpdatesChanged();
    void automaticallyDownloadsUpdatesChanged();
    void updateAvailableChanged();
    void latestVersionChanged();
    void releaseNotesURLChanged();
    /// The entry of `createUpdateMenuItem` is to be made anew.
    void menuChanged();

private:
    void didFinishLoading(int itemCount) override;
    void didFindValidUpdate(const AppcastItem& item) override;
    void didNotFindUpdate() override;
    void willDownloadUpdate(const AppcastItem& item) override;
    void willInstallUpdate(const AppcastItem& item) override;
    void failedToDownloadUpdate(const QString& description) override;
    void didChangeCanCheckForUpdates() override;

    [[nodiscard]] QString latestVersionText() const { return m_latestVersion.value_or(QString()); }
    [[nodiscard]] QString releaseNotesText() const { return m_releaseNotes.value_or(QString()); }
    [[nodiscard]] QString namedVersion() const;
    void setUpdate(bool isAvailable, const std::optional<QString>& version,
                   const std::optional<QString>& releaseNotes);
    void forgetUpdate();
    void tellResult();

    Updater& m_updater;
    Workspace& m_workspace;
    Scheduler& m_scheduler;
    ToastManager& m_toasts;

    bool m_canCheck = false;
    bool m_checksAutomatically = true;
    bool m_downloadsAutomatically = true;
    bool m_updateAvailable = false;
    std::optional<QString> m_latestVersion;
    std::optional<QString> m_releaseNotes;
};

} // namespace jotwell
