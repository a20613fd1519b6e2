#pragma once

#include <QString>

#include <optional>

namespace jotwell {

/// A version in the update feed.
struct AppcastItem {
    QString displayVersionString;
    std::optional<QString> infoUrl; ///< the page that tells of it

    bool operator==(const AppcastItem&) const = default;
};

/// Who hears of what the updater finds. Called on the main thread, and but for `feedURLString`
/// never inside a call of the updater's.
class UpdaterDelegate {
public:
    virtual ~UpdaterDelegate() = default;

    virtual void didFinishLoading(int itemCount) = 0;
    virtual void didFindValidUpdate(const AppcastItem& item) = 0;
    virtual void didNotFindUpdate() = 0;
    virtual void willDownloadUpdate(const AppcastItem& item) = 0;
    virtual void willInstallUpdate(const AppcastItem& item) = 0;
    virtual void failedToDownloadUpdate(const QString& description) = 0;
    /// The answer to `canCheckForUpdates` has changed.
    virtual void didChangeCanCheckForUpdates() = 0;

    /// The https address of the feed, asked for at each check.
    [[nodiscard]] virtual QString feedURLString() const = 0;
};

/// Reads the feed of versions and tells of one that is newer than the running program. Main thread
/// only.
class Updater {
public:
    virtual ~Updater() = default;

    /// Begins to work, and to check by itself if that is wanted. `delegate` outlives the updater or
    /// is replaced by another or none, without which nothing is checked.
    virtual void start(UpdaterDelegate* delegate) = 0;
    virtual void setAutomaticallyChecksForUpdates(bool checks) = 0;
    virtual void setAutomaticallyDownloadsUpdates(bool downloads) = 0;

    /// Whether a check can start now.
    [[nodiscard]] virtual bool canCheckForUpdates() const = 0;
    /// A check that the user asked for, and one that the user needn't notice.
    virtual void checkForUpdates() = 0;
    virtual void checkForUpdatesInBackground() = 0;
};

} // namespace jotwell
