#include "Services/Index/Vault/VaultMonitor.h"

#include "Fakes/FakeFolderWatcher.h"
#include "Fakes/FakeScheduler.h"
#include "QtPrinters.h"
#include "Services/LogCapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace jotwell {

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

const QString vault = u"/vault"_qs;

class VaultMonitorTest : public testing::Test {
protected:
    void start(const QString& path = vault)
    {
        m_monitor->startFileMonitoring(path);
        m_scheduler.advance(0ms);
    }

    FakeFolderWatcher m_watcher;
    FakeScheduler m_scheduler;
    QStringList m_scans;
    LogCapture m_log;
    std::unique_ptr<VaultMonitor> m_monitor = std::make_unique<VaultMonitor>(
        m_watcher, m_scheduler, [this](const QString& path) { m_scans.append(path); });
};

TEST_F(VaultMonitorTest, WatchesNothingAtFirst)
{
    EXPECT_FALSE(m_monitor->monitoredPath());
    EXPECT_FALSE(m_monitor->hasFileMonitor());
    EXPECT_FALSE(m_monitor->hasPeriodicScanTimer());
}

TEST_F(VaultMonitorTest, ScansThreeTenthsOfASecondAfterAnEvent)
{
    start();
    m_watcher.touch(vault);
    m_scheduler.advance(299ms);
    EXPECT_THAT(m_scans, IsEmpty());
    m_scheduler.advance(1ms);
    EXPECT_THAT(m_scans, ElementsAre(vault));
}

TEST_F(VaultMonitorTest, NoEventPutsOffTheScanOfAnother)
{
    start();
    m_watcher.touch(vault);
    m_scheduler.advance(200ms);
    m_watcher.touch(vault);
    m_scheduler.advance(100ms);
    EXPECT_EQ(m_scans.size(), 1);
    m_scheduler.advance(200ms);
    EXPECT_EQ(m_scans.size(), 2);
}

TEST_F(VaultMonitorTest, ScansEveryFiveSeconds)
{
    start();
    m_scheduler.advance(4999ms);
    EXPECT_THAT(m_scans, IsEmpty());
    m_scheduler.advance(1ms);
    EXPECT_EQ(m_scans.size(), 1);
    m_scheduler.advance(15s);
    EXPECT_EQ(m_scans.size(), 4);
}

TEST_F(VaultMonitorTest, TheTimerStartsInALaterTurn)
{
    m_monitor->startFileMonitoring(vault);
    EXPECT_EQ(m_monitor->monitoredPath(), vault);
    EXPECT_TRUE(m_monitor->hasFileMonitor());
    EXPECT_FALSE(m_monitor->hasPeriodicScanTimer());
    m_scheduler.advance(0ms);
    EXPECT_TRUE(m_monitor->hasPeriodicScanTimer());
}

TEST_F(VaultMonitorTest, ASecondStartTakesThePlaceOfTheFirst)
{
    start();
    m_scheduler.advance(3s);
    start(u"/other"_qs);
    EXPECT_THAT(m_watcher.watched(), ElementsAre(u"/other"_qs));
    m_scheduler.advance(4999ms);
    EXPECT_THAT(m_scans, IsEmpty());
    m_scheduler.advance(1ms);
    EXPECT_THAT(m_scans, ElementsAre(u"/other"_qs));
}

TEST_F(VaultMonitorTest, AFiringDuringTheRestartDoesNothing)
{
    start();
    m_scheduler.advance(4999ms);
    m_monitor->stopFileMonitoring(); // its timer is still to be ended in the next turn
    EXPECT_TRUE(m_monitor->hasPeriodicScanTimer());
    m_scheduler.advance(1ms);
    EXPECT_THAT(m_scans, IsEmpty());
    EXPECT_FALSE(m_monitor->hasPeriodicScanTimer());
}

TEST_F(VaultMonitorTest, AFolderThatCantBeOpenedLeavesNothing)
{
    start();
    m_watcher.canOpenFolders = false;
    start(u"/gone"_qs);
    EXPECT_FALSE(m_monitor->monitoredPath());
    EXPECT_FALSE(m_monitor->hasFileMonitor());
    EXPECT_FALSE(m_monitor->hasPeriodicScanTimer());
    EXPECT_THAT(m_watcher.watched(), IsEmpty());
    EXPECT_THAT(m_log.errors(), ElementsAre(u"Failed to open path for monitoring: /gone"_qs));
}

TEST_F(VaultMonitorTest, WithoutAWatchThePeriodicScanStillRuns)
{
    m_watcher.canWatch = false;
    start();
    EXPECT_EQ(m_monitor->monitoredPath(), vault);
    EXPECT_FALSE(m_monitor->hasFileMonitor());
    m_scheduler.advance(5s);
    EXPECT_THAT(m_scans, ElementsAre(vault));
    EXPECT_THAT(m_log.errors(), IsEmpty());
}

TEST_F(VaultMonitorTest, NothingFollowsItsEnd)
{
    start();
    m_watcher.touch(vault);
    m_monitor.reset();
    EXPECT_THAT(m_watcher.watched(), IsEmpty());
    m_scheduler.advance(1min);
    EXPECT_THAT(m_scans, IsEmpty());
}

} // namespace

} // namespace jotwell
