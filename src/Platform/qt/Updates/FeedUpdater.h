#pragma once

#include "Platform/Updater.h"
#include "Platform/qt/Updates/CheckSchedule.h"
#include "Platform/qt/Updates/FeedFetch.h"
#include "Platform/qt/Updates/FeedSignature.h"

#include <QVersionNumber>

#include <memory>

namespace jotwell {

/// What an updater holds a feed against.
struct FeedRules {
    FeedKey key;
    QVersionNumber running; ///< only what is above it is an update
    QString system;         ///< items for others are passed over
    FetchLimits limits{};
};

/// Reads the signed feed of versions, once a day and when the user asks for it, and tells of the
/// newest one that is above the running version. A feed with anything wrong is no update and a line
/// in the log. It never downloads a version: whether it should is kept and has no further effect.
/// Main thread only.
class FeedUpdater : public Updater {
public:
    /// The time of the last check is kept in `defaults`.
    FeedUpdater(FeedRules rules, const Clock& clock, Scheduler& scheduler, DefaultsStore& defaults);
    ~FeedUpdater() override;

    void start(UpdaterDelegate* delegate) override;
    void setAutomaticallyChecksForUpdates(bool checks) override;
    void setAutomaticallyDownloadsUpdates(bool downloads) override;

    /// False without a delegate and while a check runs; what is asked for then is that check.
    [[nodiscard]] bool canCheckForUpdates() const override;
    void checkForUpdates() override { check(); }
    void checkForUpdatesInBackground() override { check(); }

private:
    void check();
    void updateSchedule();
    void tellThatCanCheckChanged();
    void finishCheck(const Result<QByteArray, QString>& feed);
    void judge(const QByteArray& feed);
    void refuse(const QString& reason);

    const FeedRules m_rules;
    Scheduler& m_scheduler;
    CheckSchedule m_schedule;
    UpdaterDelegate* m_delegate = nullptr;
    bool m_checksAutomatically = false;
    bool m_downloadsAutomatically = false;
    std::unique_ptr<FeedFetch> m_fetch; ///< there while a check runs
    QObject m_context;                  ///< what is still to be told ends with it
};

} // namespace jotwell
