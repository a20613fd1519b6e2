#include "Platform/qt/Updates/FeedUpdater.h"

#include "Platform/Scheduler.h"
#include "Platform/qt/Updates/Appcast.h"
#include "Support/Logging.h"

#include <utility>

namespace jotwell {

FeedUpdater::FeedUpdater(FeedRules rules, const Clock& clock, Scheduler& scheduler,
                         DefaultsStore& defaults)
    : m_rules(std::move(rules)), m_scheduler(scheduler), m_schedule(clock, scheduler, defaults)
{
}

FeedUpdater::~FeedUpdater() = default;

void FeedUpdater::start(UpdaterDelegate* delegate)
{
    m_fetch.reset();
    m_delegate = delegate;
    updateSchedule();
}

void FeedUpdater::setAutomaticallyChecksForUpdates(bool checks)
{
    m_checksAutomatically = checks;
    updateSchedule();
}

void FeedUpdater::setAutomaticallyDownloadsUpdates(bool downloads)
{
    m_downloadsAutomatically = downloads;
}

bool FeedUpdater::canCheckForUpdates() const
{
    return m_delegate && !m_fetch;
}

void FeedUpdater::updateSchedule()
{
    const bool isWanted = m_delegate && m_checksAutomatically;
    if (!isWanted)
        m_schedule.stop();
    else if (!m_schedule.isRunning())
        m_schedule.start([this] { check(); });
}

void FeedUpdater::check()
{
    if (!canCheckForUpdates())
        return;
    m_schedule.noteCheck();
    m_fetch = std::make_unique<FeedFetch>(m_scheduler, m_rules.limits);
    m_scheduler.after({}, &m_context, [this] { tellThatCanCheckChanged(); });
    m_fetch->start(QUrl(m_delegate->feedURLString(), QUrl::StrictMode),
                   [this](const Result<QByteArray, QString>& feed) { finishCheck(feed); });
}

void FeedUpdater::tellThatCanCheckChanged()
{
    if (m_delegate)
        m_delegate->didChangeCanCheckForUpdates();
}

void FeedUpdater::finishCheck(const Result<QByteArray, QString>& feed)
{
    m_fetch.release()->deleteLater(); // it is the one who calls
    if (feed)
        judge(*feed);
    else
        refuse(feed.error());
    tellThatCanCheckChanged();
}

void FeedUpdater::judge(const QByteArray& feed)
{
    const auto verified = verifiedFeed(feed, m_rules.key);
    if (!verified) {
        refuse(verified.error());
        return;
    }
    const auto appcast = parseAppcast(*verified, m_rules.system);
    if (!appcast) {
        refuse(appcast.error());
        return;
    }
    m_delegate->didFinishLoading(appcast->itemCount);
    if (const auto update = newestUpdate(*appcast, m_rules.running))
        m_delegate->didFindValidUpdate(*update);
    else
        m_delegate->didNotFindUpdate();
}

void FeedUpdater::refuse(const QString& reason)
{
    logError(QStringLiteral("Updates"), QStringLiteral("The update feed is of no use: ") + reason);
    m_delegate->didNotFindUpdate();
}

} // namespace jotwell
