#include "Services/FileSystemMonitor.h"

#include "Fakes/FakeFolderWatcher.h"
#include "QtPrinters.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

const QString folder = u"/templates"_qs;

class FileSystemMonitorTest : public testing::Test {
protected:
    FakeFolderWatcher m_watcher;
    int m_calls = 0;
    FileSystemMonitor m_monitor{m_watcher, folder, [this] { ++m_calls; }};
};

TEST_F(FileSystemMonitorTest, MakingItStartsNothing)
{
    EXPECT_EQ(m_watcher.watched(), QStringList());
    EXPECT_EQ(m_monitor.path(), folder);
}

TEST_F(FileSystemMonitorTest, CallsBackOnEachEvent)
{
    m_monitor.start();
    EXPECT_EQ(m_watcher.watched(), QStringList{folder});
    m_watcher.touch(folder);
    m_watcher.touch(folder);
    EXPECT_EQ(m_calls, 2);
}

TEST_F(FileSystemMonitorTest, StopEndsTheWatch)
{
    m_monitor.start();
    m_monitor.stop();
    EXPECT_EQ(m_watcher.watched(), QStringList());
    m_watcher.touch(folder);
    EXPECT_EQ(m_calls, 0);
}

TEST_F(FileSystemMonitorTest, StopWithoutAStartDoesNothing)
{
    m_monitor.stop();
    EXPECT_EQ(m_watcher.watched(), QStringList());
}

TEST_F(FileSystemMonitorTest, StartsAgainBehindAStop)
{
    m_monitor.start();
    m_monitor.stop();
    m_monitor.start();
    m_watcher.touch(folder);
    EXPECT_EQ(m_calls, 1);
}

TEST_F(FileSystemMonitorTest, SecondStartDoesNotDoubleTheEvents)
{
    m_monitor.start();
    m_monitor.start();
    m_watcher.touch(folder);
    EXPECT_EQ(m_calls, 1);
}

TEST_F(FileSystemMonitorTest, FolderThatCannotBeWatchedStaysUnwatched)
{
    m_watcher.canWatch = false;
    m_monitor.start();
    EXPECT_EQ(m_watcher.watched(), QStringList());
    m_monitor.stop();
}

TEST(FileSystemMonitorEnd, EndsTheWatch)
{
    FakeFolderWatcher watcher;
    {
        FileSystemMonitor monitor(watcher, folder, [] { ADD_FAILURE() << "called back"; });
        monitor.start();
        ASSERT_EQ(watcher.watched(), QStringList{folder});
    }
    EXPECT_EQ(watcher.watched(), QStringList());
    watcher.touch(folder);
}

} // namespace

} // namespace jotwell
