#include "Services/SparkleUpdateManager.h"

#include "Fakes/FakeScheduler.h"
#include "Fakes/FakeUpdater.h"
#include "Fakes/FakeWorkspace.h"
#include "Platform/BuildSettings.h"
#include "Platform/none/NoUpdater.h"
#include "Services/LogCapture.h"
#include "Services/ToastLog.h"

#include <QUrl>
#include <QVariant>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace jotwell {

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

const AppcastItem item{u"2.0"_qs, u"https://jotwell.example/v2"_qs};
const QString landingPage = build::landingPage;

/// A toast of the only type and length that most of them have.
ShownToast success(const QString& message)
{
    return {ToastType::success, 2.0, message};
}

class SparkleUpdateManagerTest : public testing::Test {
protected:
    SparkleUpdateManagerTest()
    {
        count(&SparkleUpdateManager::menuChanged, m_menuChanges);
        count(&SparkleUpdateManager::canCheckForUpdatesChanged, m_canCheckChanges);
        count(&SparkleUpdateManager::updateAvailableChanged, m_availableChanges);
        count(&SparkleUpdateManager::latestVersionChanged, m_versionChanges);
        count(&SparkleUpdateManager::releaseNotesURLChanged, m_releaseNotesChanges);
        count(&SparkleUpdateManager::automaticallyChecksForUpdatesChanged, m_automaticChanges);
        count(&SparkleUpdateManager::automaticallyDownloadsUpdatesChanged, m_automaticChanges);
    }

    void find(const AppcastItem& found) { m_updater.delegate->didFindValidUpdate(found); }

    void expectNothingKnown() const
    {
        EXPECT_FALSE(m_manager.updateAvailable());
        EXPECT_EQ(m_manager.latestVersion(), std::nullopt);
        EXPECT_EQ(m_manager.releaseNotesURL(), std::nullopt);
    }

    FakeUpdater m_updater;
    FakeWorkspace m_workspace;
    FakeScheduler m_scheduler;
    ToastManager m_toasts{m_scheduler};
    ToastLog m_log{m_toasts};
    SparkleUpdateManager m_manager{m_updater, m_workspace, m_scheduler, m_toasts};

    int m_menuChanges = 0;
    int m_canCheckChanges = 0;
    int m_availableChanges = 0;
    int m_versionChanges = 0;
    int m_releaseNotesChanges = 0;
    int m_automaticChanges = 0;

private:
    void count(void (SparkleUpdateManager::*changed)(), int& times)
    {
        QObject::connect(&m_manager, changed, &m_manager, [&times] { ++times; });
    }
};

TEST_F(SparkleUpdateManagerTest, StartsTheUpdaterWithItselfAndItsSettings)
{
    EXPECT_NE(m_updater.delegate, nullptr);
    EXPECT_TRUE(m_updater.checksAutomatically);
    EXPECT_TRUE(m_updater.downloadsAutomatically);
    EXPECT_TRUE(m_manager.automaticallyChecksForUpdates());
    EXPECT_TRUE(m_manager.automaticallyDownloadsUpdates());
    EXPECT_TRUE(m_manager.canCheckForUpdates());
    expectNothingKnown();
    EXPECT_EQ(m_updater.checks + m_updater.backgroundChecks, 0);
}

TEST_F(SparkleUpdateManagerTest, UpdaterHearsOfNobodyOnceTheManagerHasEnded)
{
    FakeUpdater updater;
    updater.canCheck = false;
    {
        const SparkleUpdateManager manager(updater, m_workspace, m_scheduler, m_toasts);
        EXPECT_NE(updater.delegate, nullptr);
        EXPECT_FALSE(manager.canCheckForUpdates());
    }
    EXPECT_EQ(updater.delegate, nullptr);
}

TEST_F(SparkleUpdateManagerTest, SettingsArePassedOn)
{
    m_manager.setAutomaticallyChecksForUpdates(false);
    EXPECT_FALSE(m_updater.checksAutomatically);
    EXPECT_TRUE(m_updater.downloadsAutomatically);
    m_manager.setAutomaticallyDownloadsUpdates(false);
    EXPECT_FALSE(m_updater.downloadsAutomatically);
    EXPECT_EQ(m_automaticChanges, 2);
    m_manager.setAutomaticallyChecksForUpdates(true);
    m_manager.setAutomaticallyDownloadsUpdates(true);
    EXPECT_TRUE(m_updater.checksAutomatically);
    EXPECT_TRUE(m_updater.downloadsAutomatically);
}

TEST_F(SparkleUpdateManagerTest, SwitchingChecksOffKeepsTheChoiceOfDownloads)
{
    m_manager.setAutomaticallyChecksForUpdates(false);
    EXPECT_TRUE(m_manager.automaticallyDownloadsUpdates());
    EXPECT_EQ(m_automaticChanges, 1);
}

TEST_F(SparkleUpdateManagerTest, FoundUpdateIsKnownToldAndOffered)
{
    find(item);
    EXPECT_TRUE(m_manager.updateAvailable());
    EXPECT_EQ(m_manager.latestVersion(), u"2.0"_qs);
    EXPECT_EQ(m_manager.releaseNotesURL(), u"https://jotwell.example/v2"_qs);
    EXPECT_THAT(m_log.shown, ElementsAre(success(
                                 u"Update v2.0 is available! Check the menu bar to download."_qs)));
    EXPECT_EQ(m_menuChanges, 1);
    EXPECT_EQ(m_availableChanges, 1);
    EXPECT_EQ(m_versionChanges, 1);
    EXPECT_EQ(m_releaseNotesChanges, 1);
}

TEST_F(SparkleUpdateManagerTest, MenuIsMadeAnewBehindTheChangeOfWhatItOffers)
{
    QString title;
    QObject::connect(&m_manager, &SparkleUpdateManager::menuChanged, &m_manager,
                     [&] { title = m_manager.createUpdateMenuItem().title; });
    find(item);
    EXPECT_EQ(title, u"Download Update... (v2.0)"_qs);
    m_manager.checkForUpdatesInBackground();
    EXPECT_EQ(title, u"Check for Updates..."_qs);
}

TEST_F(SparkleUpdateManagerTest, SameUpdateFoundAgainChangesNothingButIsTold)
{
    find(item);
    find(item);
    EXPECT_EQ(m_log.shown.size(), 2U);
    EXPECT_EQ(m_availableChanges, 1);
    EXPECT_EQ(m_versionChanges, 1);
    EXPECT_EQ(m_releaseNotesChanges, 1);
}

TEST_F(SparkleUpdateManagerTest, CheckThatFindsNothingLeavesTheMenuAtItsCheck)
{
    m_manager.checkForUpdates();
    m_updater.delegate->didNotFindUpdate();
    expectNothingKnown();
    EXPECT_EQ(m_manager.createUpdateMenuItem().title, u"Check for Updates..."_qs);
    EXPECT_THAT(m_log.shown, IsEmpty());
    EXPECT_EQ(m_menuChanges, 0);
}

TEST_F(SparkleUpdateManagerTest, NoUpdateAnyMoreIsForgotten)
{
    find(item);
    m_updater.delegate->didNotFindUpdate();
    expectNothingKnown();
    EXPECT_EQ(m_availableChanges, 2);
    EXPECT_EQ(m_versionChanges, 2);
    EXPECT_EQ(m_releaseNotesChanges, 2);
}

TEST_F(SparkleUpdateManagerTest, EachKindOfCheckForgetsTheLastResultFirst)
{
    find(item);
    m_manager.checkForUpdates();
    expectNothingKnown();
    EXPECT_EQ(m_updater.checks, 1);
    EXPECT_EQ(m_updater.backgroundChecks, 0);

    find(item);
    m_manager.checkForUpdatesInBackground();
    expectNothingKnown();
    EXPECT_EQ(m_updater.checks, 1);
    EXPECT_EQ(m_updater.backgroundChecks, 1);
}

TEST_F(SparkleUpdateManagerTest, OtherNewsAreToldInTheirTexts)
{
    m_updater.delegate->willDownloadUpdate(item);
    m_updater.delegate->willInstallUpdate(item);
    m_updater.delegate->failedToDownloadUpdate(u"No network"_qs);
    EXPECT_THAT(m_log.shown, ElementsAre(success(u"Downloading update v2.0"_qs),
                                         success(u"Installing update v2.0"_qs),
                                         ShownToast{ToastType::error, 3.0,
                                                    u"Failed to download update: No network"_qs}));
}

TEST_F(SparkleUpdateManagerTest, LoadedFeedIsOnlyLogged)
{
    const LogCapture log;
    m_updater.delegate->didFinishLoading(3);
    EXPECT_THAT(log.infos(), ElementsAre(u"Sparkle: Successfully loaded appcast with 3 items"_qs));
    EXPECT_THAT(m_log.shown, IsEmpty());
}

TEST_F(SparkleUpdateManagerTest, MenuOffersACheckAsLongAsOneCanStart)
{
    const MenuEntry entry = m_manager.createUpdateMenuItem();
    EXPECT_EQ(entry.title, u"Check for Updates..."_qs);
    EXPECT_EQ(entry.keyEquivalent, QString());
    EXPECT_TRUE(entry.isEnabled);

    m_updater.canCheck = false;
    m_updater.delegate->didChangeCanCheckForUpdates();
    EXPECT_FALSE(m_manager.canCheckForUpdates());
    EXPECT_FALSE(m_manager.createUpdateMenuItem().isEnabled);
    EXPECT_EQ(m_canCheckChanges, 1);
    EXPECT_EQ(m_menuChanges, 1);

    m_updater.delegate->didChangeCanCheckForUpdates(); // still the same
    EXPECT_EQ(m_canCheckChanges, 1);
    EXPECT_EQ(m_menuChanges, 1);
}

TEST_F(SparkleUpdateManagerTest, MenuOffersAnUpdateEvenWhileNoCheckCanStart)
{
    find(item);
    m_updater.canCheck = false;
    m_updater.delegate->didChangeCanCheckForUpdates();
    const MenuEntry entry = m_manager.createUpdateMenuItem();
    EXPECT_EQ(entry.title, u"Download Update... (v2.0)"_qs);
    EXPECT_EQ(entry.keyEquivalent, QString());
    EXPECT_TRUE(entry.isEnabled);
    entry.action();
    EXPECT_THAT(m_workspace.opened, ElementsAre(u"https://jotwell.example/v2"_qs));
}

TEST_F(SparkleUpdateManagerTest, UpdateWithoutAVersionIsCalledNew)
{
    find({QString(), std::nullopt});
    EXPECT_EQ(m_manager.createUpdateMenuItem().title, u"Download Update... (vnew)"_qs);
}

TEST_F(SparkleUpdateManagerTest, PlaceholdersInAVersionStayAsTheyAre)
{
    find({u"%1%2"_qs, std::nullopt});
    EXPECT_EQ(m_manager.createUpdateMenuItem().title, u"Download Update... (v%1%2)"_qs);
}

TEST_F(SparkleUpdateManagerTest, ResultOfAUsersCheckIsToldAfterTwoSeconds)
{
    m_manager.createUpdateMenuItem().action();
    EXPECT_EQ(m_updater.checks, 1);
    m_scheduler.advance(1999ms);
    EXPECT_THAT(m_log.shown, IsEmpty());
    m_scheduler.advance(1ms);
    EXPECT_THAT(m_log.shown, ElementsAre(success(u"You're using the latest version"_qs)));
}

TEST_F(SparkleUpdateManagerTest, UpdateFoundWithinTwoSecondsIsToldAgain)
{
    m_manager.checkForUpdatesAction();
    m_scheduler.advance(500ms);
    find(item);
    m_log.shown.clear();
    m_scheduler.advance(1500ms);
    EXPECT_THAT(m_log.shown,
                ElementsAre(success(u"Update available! Click 'Download Update' in the menu to get "
                                    "version 2.0"_qs)));
}

TEST_F(SparkleUpdateManagerTest, UpdateWithoutAVersionIsToldAsNew)
{
    m_manager.checkForUpdatesAction();
    find({QString(), std::nullopt});
    m_log.shown.clear();
    m_scheduler.advance(2000ms);
    EXPECT_THAT(m_log.shown,
                ElementsAre(success(u"Update available! Click 'Download Update' in the menu to get "
                                    "version new"_qs)));
}

TEST_F(SparkleUpdateManagerTest, SlowAnswerStillReadsAsTheLatestVersion)
{
    m_manager.checkForUpdatesAction();
    m_scheduler.advance(2000ms);
    find(item);
    EXPECT_THAT(
        m_log.shown,
        ElementsAre(success(u"You're using the latest version"_qs),
                    success(u"Update v2.0 is available! Check the menu bar to download."_qs)));
}

TEST_F(SparkleUpdateManagerTest, NothingIsToldOfACheckBehindTheManagersEnd)
{
    auto manager =
        std::make_unique<SparkleUpdateManager>(m_updater, m_workspace, m_scheduler, m_toasts);
    manager->checkForUpdatesAction();
    manager.reset();
    m_scheduler.advance(2000ms);
    EXPECT_THAT(m_log.shown, IsEmpty());
}

TEST_F(SparkleUpdateManagerTest, UpdateWithoutAPageOpensTheLandingPage)
{
    find({u"2.0"_qs, std::nullopt});
    EXPECT_EQ(m_manager.releaseNotesURL(), std::nullopt);
    m_manager.downloadUpdateAction();
    EXPECT_THAT(m_workspace.opened, ElementsAre(landingPage));
}

TEST_F(SparkleUpdateManagerTest, WithoutAnUpdateTheLandingPageIsOpened)
{
    m_manager.openLandingPage();
    EXPECT_THAT(m_workspace.opened, ElementsAre(landingPage));
    EXPECT_EQ(QUrl(landingPage).scheme(), u"https"_qs);
}

class SparkleUpdateManagerPages : public SparkleUpdateManagerTest,
                                  public testing::WithParamInterface<const char*> {};

TEST_P(SparkleUpdateManagerPages, AnotherAddressThanAnHttpsOneIsNone)
{
    find({u"2.0"_qs, QString::fromUtf8(GetParam())});
    EXPECT_EQ(m_manager.releaseNotesURL(), std::nullopt);
    m_manager.openLandingPage();
    EXPECT_THAT(m_workspace.opened, ElementsAre(landingPage));
}

INSTANTIATE_TEST_SUITE_P(Rows, SparkleUpdateManagerPages,
                         testing::Values("", "http://jotwell.example/", "file:///etc/passwd",
                                         "javascript:alert(1)", "obsidian://open?path=/a",
                                         "jotwell.example", "//jotwell.example/", "https:",
                                         "https://", "https:///path", "--help", "https://a b/",
                                         " https://jotwell.example/", "https://x%zz/"));

TEST_F(SparkleUpdateManagerTest, PageIsOpenedInItsEncodedForm)
{
    find({u"2.0"_qs, u"HTTPS://jotwell.example/ä?b=%20c#d"_qs});
    m_manager.openLandingPage();
    EXPECT_THAT(m_workspace.opened, ElementsAre(u"https://jotwell.example/%C3%A4?b=%20c#d"_qs));
}

TEST_F(SparkleUpdateManagerTest, FeedIsAnHttpsFileOfItsName)
{
    const QUrl feed(m_manager.feedURLString());
    EXPECT_EQ(feed.scheme(), u"https"_qs);
    EXPECT_EQ(feed.path(), u"/appcast.xml"_qs);
    EXPECT_EQ(m_updater.delegate->feedURLString(), m_manager.feedURLString());
}

TEST_F(SparkleUpdateManagerTest, ViewsSeeNothingAsAnEmptyText)
{
    EXPECT_EQ(m_manager.property("latestVersion").toString(), QString());
    EXPECT_EQ(m_manager.property("releaseNotesURL").toString(), QString());
    find(item);
    EXPECT_EQ(m_manager.property("updateAvailable"), true);
    EXPECT_EQ(m_manager.property("latestVersion").toString(), u"2.0"_qs);
    EXPECT_EQ(m_manager.property("releaseNotesURL").toString(), *item.infoUrl);
    EXPECT_TRUE(m_manager.setProperty("automaticallyChecksForUpdates", false));
    EXPECT_FALSE(m_updater.checksAutomatically);
}

TEST(SparkleUpdateManagerWithoutUpdates, NothingCanBeChecked)
{
    NoUpdater updater;
    FakeWorkspace workspace;
    FakeScheduler scheduler;
    ToastManager toasts(scheduler);
    SparkleUpdateManager manager(updater, workspace, scheduler, toasts);
    EXPECT_FALSE(manager.canCheckForUpdates());
    const MenuEntry entry = manager.createUpdateMenuItem();
    EXPECT_EQ(entry.title, u"Check for Updates..."_qs);
    EXPECT_FALSE(entry.isEnabled);
}

} // namespace

} // namespace jotwell
