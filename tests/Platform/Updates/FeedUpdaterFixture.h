#pragma once

#include "Fakes/FakeClock.h"
#include "Fakes/FakeDefaultsStore.h"
#include "Fakes/FakeScheduler.h"
#include "Platform/Updates/FeedServer.h"
#include "Platform/Updates/SignedFeeds.h"
#include "Platform/Updates/TestCertificates.h"
#include "Platform/qt/Updates/FeedUpdater.h"
#include "QtPrinters.h"
#include "Support/Logging.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QStringList>
#include <QThread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace jotwell {

/// Writes down what it is told.
class News : public UpdaterDelegate {
public:
    void didFinishLoading(int items) override { told.append(u"loaded %1"_qs.arg(items)); }
    void didFindValidUpdate(const AppcastItem& item) override
    {
        told.append(u"found "_qs + item.displayVersionString + u' ' +
                    item.infoUrl.value_or(u"-"_qs));
    }
    void didNotFindUpdate() override { told.append(u"none"_qs); }
    void willDownloadUpdate(const AppcastItem&) override { told.append(u"download"_qs); }
    void willInstallUpdate(const AppcastItem&) override { told.append(u"install"_qs); }
    void failedToDownloadUpdate(const QString&) override { told.append(u"failed"_qs); }
    void didChangeCanCheckForUpdates() override { ++canCheckChanges; }
    [[nodiscard]] QString feedURLString() const override { return address; }

    QString address;
    QStringList told;
    int canCheckChanges = 0;
};

class FeedUpdaterTest : public testing::Test {
protected:
    static constexpr std::chrono::seconds patience{20};

    FeedUpdaterTest()
    {
        setLogSink([this](const LogRecord& record) { m_log.append(record.message); });
        m_news.address = m_server.address();
        m_updater.start(&m_news);
    }
    ~FeedUpdaterTest() override { setLogSink({}); }

    [[nodiscard]] static FeedRules rules()
    {
        FetchLimits limits;
        limits.bytes = 100'000;
        limits.authorities = {TestCertificates::usual().authority()};
        return {SigningKey().publicKey(), QVersionNumber(1), u"linux"_qs, limits};
    }

    static void passTurns()
    {
        for (int turn = 0; turn < 20; ++turn) {
            QThread::msleep(2);
            QCoreApplication::processEvents();
        }
    }

    static void waitForEnd(const Updater& updater)
    {
        const QDeadlineTimer deadline(patience);
        while (!updater.canCheckForUpdates() && !deadline.hasExpired()) {
            QCoreApplication::processEvents();
            QThread::msleep(1);
        }
        EXPECT_FALSE(deadline.hasExpired());
    }
    void waitForEnd() const { waitForEnd(m_updater); }

    void check()
    {
        m_updater.checkForUpdates();
        waitForEnd();
    }

    /// That a check finds nothing and the log says why, in words that begin like that.
    void expectRefused(const QString& reason)
    {
        check();
        EXPECT_THAT(m_news.told, testing::ElementsAre(u"none"_qs));
        ASSERT_EQ(m_log.size(), 1);
        EXPECT_TRUE(m_log[0].startsWith(u"The update feed is of no use: "_qs + reason))
            << m_log[0].toStdString();
    }

    FeedServer m_server;
    FakeClock m_clock;
    FakeScheduler m_scheduler;
    FakeDefaultsStore m_defaults;
    News m_news;
    QStringList m_log;
    FeedUpdater m_updater{rules(), m_clock, m_scheduler, m_defaults};
};

inline const SigningKey key;
inline const QByteArray goodFeed =
    key.sign(feedOf(feedItem("1.5") + feedItem("2.0.1", "<link>https://localhost/v2</link>")));
inline const QStringList goodNews{u"loaded 2"_qs, u"found 2.0.1 https://localhost/v2"_qs};

} // namespace jotwell
