#include "Platform/Updates/FeedUpdaterFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace jotwell {

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(FeedUpdaterTest, GoodFeedTellsOfItsNewestVersion)
{
    m_server.answerFeed(goodFeed);
    check();
    EXPECT_EQ(m_news.told, goodNews);
    EXPECT_THAT(m_log, IsEmpty());
}

TEST_F(FeedUpdaterTest, SilentCheckFindsTheSame)
{
    m_server.answerFeed(goodFeed);
    m_updater.checkForUpdatesInBackground();
    waitForEnd();
    EXPECT_EQ(m_news.told, goodNews);
}

TEST_F(FeedUpdaterTest, RunningVersionIsTheNewest)
{
    m_server.answerFeed(key.sign(feedOf(feedItem("1.0") + feedItem("0.9"))));
    check();
    EXPECT_THAT(m_news.told, ElementsAre(u"loaded 2"_qs, u"none"_qs));
    EXPECT_THAT(m_log, IsEmpty());
}

TEST_F(FeedUpdaterTest, NothingIsToldInsideACall)
{
    m_server.answerFeed(goodFeed);
    m_updater.checkForUpdates();
    EXPECT_EQ(m_news.canCheckChanges, 0);
    EXPECT_FALSE(m_updater.canCheckForUpdates());
    m_scheduler.advance(0ms);
    EXPECT_EQ(m_news.canCheckChanges, 1);
    waitForEnd();
    EXPECT_EQ(m_news.canCheckChanges, 2);
}

TEST_F(FeedUpdaterTest, OneCheckRunsAtATime)
{
    m_server.answerFeed(goodFeed);
    m_updater.checkForUpdates();
    m_updater.checkForUpdates();
    check();
    EXPECT_EQ(m_news.told, goodNews);
    EXPECT_EQ(m_server.requests().size(), 1);
}

TEST_F(FeedUpdaterTest, ChecksFollowOneAnother)
{
    m_server.answerFeed(goodFeed);
    check();
    check();
    EXPECT_EQ(m_news.told, goodNews + goodNews);
}

TEST_F(FeedUpdaterTest, FeedThatIsNotAsItWasSignedIsRefused)
{
    QByteArray tampered = goodFeed;
    m_server.answerFeed(tampered.replace("2.0.1", "9.0.1"));
    expectRefused(u"its signature is wrong"_qs);
}

TEST_F(FeedUpdaterTest, FeedOfAnotherKeyIsRefused)
{
    m_server.answerFeed(SigningKey(2).sign(feedOf(feedItem("2"))));
    expectRefused(u"its signature is wrong"_qs);
}

TEST_F(FeedUpdaterTest, UnsignedFeedIsRefused)
{
    m_server.answerFeed(feedOf(feedItem("2")));
    expectRefused(u"it isn't signed"_qs);
}

TEST_F(FeedUpdaterTest, DoubledFeedIsRefused)
{
    m_server.answerFeed(goodFeed + goodFeed);
    expectRefused(u"it is signed more than once"_qs);
}

TEST_F(FeedUpdaterTest, SignedNonsenseIsRefused)
{
    m_server.answerFeed(key.sign("no feed at all"));
    expectRefused(u"it is no feed: "_qs);
}

TEST_F(FeedUpdaterTest, ChecksByItselfOnceADayIfThatIsWanted)
{
    m_server.answerFeed(goodFeed);
    m_scheduler.advance(1h);
    EXPECT_TRUE(m_updater.canCheckForUpdates());
    m_updater.setAutomaticallyChecksForUpdates(true);
    m_scheduler.advance(5min - 1ms);
    EXPECT_TRUE(m_updater.canCheckForUpdates());
    m_scheduler.advance(1ms);
    EXPECT_FALSE(m_updater.canCheckForUpdates());
    waitForEnd();
    EXPECT_EQ(m_news.told, goodNews);
    m_scheduler.advance(12h); // the clock stands still
    waitForEnd();
    EXPECT_EQ(m_news.told, goodNews);
    EXPECT_EQ(m_server.requests().size(), 1);
    m_clock.advance(24h);
    m_scheduler.advance(30min);
    waitForEnd();
    EXPECT_EQ(m_server.requests().size(), 2);
}

TEST_F(FeedUpdaterTest, FailedCheckWaitsForItsDayAsWell)
{
    m_server.answerFeed("nothing");
    m_updater.setAutomaticallyChecksForUpdates(true);
    m_scheduler.advance(5min);
    waitForEnd();
    m_clock.advance(23h);
    m_scheduler.advance(23h);
    waitForEnd();
    EXPECT_THAT(m_news.told, ElementsAre(u"none"_qs));
    EXPECT_EQ(m_server.requests().size(), 1);
}

TEST_F(FeedUpdaterTest, CheckOfTheUserCountsForTheDay)
{
    m_server.answerFeed(goodFeed);
    m_updater.setAutomaticallyChecksForUpdates(true);
    check();
    m_clock.advance(23h);
    m_scheduler.advance(23h);
    waitForEnd();
    EXPECT_EQ(m_news.told, goodNews);
}

TEST_F(FeedUpdaterTest, SwitchedOnAgainItDoesNotBeginAnew)
{
    m_updater.setAutomaticallyChecksForUpdates(true);
    m_scheduler.advance(3min);
    m_updater.setAutomaticallyChecksForUpdates(true);
    m_scheduler.advance(2min);
    EXPECT_FALSE(m_updater.canCheckForUpdates());
}

TEST_F(FeedUpdaterTest, SwitchedOffItChecksNoMoreByItself)
{
    m_updater.setAutomaticallyChecksForUpdates(true);
    m_updater.setAutomaticallyChecksForUpdates(true);
    m_updater.setAutomaticallyChecksForUpdates(false);
    m_scheduler.advance(48h);
    EXPECT_TRUE(m_updater.canCheckForUpdates());
    EXPECT_EQ(m_news.canCheckChanges, 0);
}

TEST_F(FeedUpdaterTest, DownloadsNeverHappen)
{
    m_server.answerFeed(goodFeed);
    m_updater.setAutomaticallyDownloadsUpdates(true);
    check();
    EXPECT_EQ(m_news.told, goodNews);
    EXPECT_EQ(m_server.requests().size(), 1);
}

TEST_F(FeedUpdaterTest, WithoutADelegateNothingIsChecked)
{
    m_updater.setAutomaticallyChecksForUpdates(true);
    m_updater.start(nullptr);
    EXPECT_FALSE(m_updater.canCheckForUpdates());
    m_updater.checkForUpdates();
    m_scheduler.advance(48h);
    passTurns();
    EXPECT_THAT(m_server.requests(), IsEmpty());
}

TEST_F(FeedUpdaterTest, DelegateThatGoesHearsNoMoreOfItsCheck)
{
    m_server.answerFeed(goodFeed);
    m_updater.checkForUpdates();
    m_updater.start(nullptr);
    m_scheduler.advance(1min);
    passTurns();
    EXPECT_THAT(m_news.told, IsEmpty());
    EXPECT_EQ(m_news.canCheckChanges, 0);
    m_updater.start(&m_news);
    check();
    EXPECT_EQ(m_news.told, goodNews);
}

TEST_F(FeedUpdaterTest, UpdaterThatEndsBreaksItsCheckOff)
{
    m_server.fallSilent();
    auto updater = std::make_unique<FeedUpdater>(rules(), m_clock, m_scheduler, m_defaults);
    updater->start(&m_news);
    updater->checkForUpdates();
    passTurns();
    updater.reset();
    m_scheduler.advance(1min);
    EXPECT_THAT(m_news.told, IsEmpty());
}

} // namespace

} // namespace jotwell
