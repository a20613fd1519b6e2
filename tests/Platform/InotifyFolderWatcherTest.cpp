#include "Platform/linux/InotifyFolderWatcher.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace jotwell {

namespace {

using namespace std::chrono_literals;

class InotifyFolderWatch : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(QDir(m_parent.path()).mkdir(QStringLiteral("watched")));
        m_watch = m_watcher.watch(folder(), [this] { ++m_events; });
        ASSERT_TRUE(m_watch);
    }

    [[nodiscard]] QString folder() const { return m_parent.filePath(QStringLiteral("watched")); }

    static void put(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    /// Whether an event has come in since the last question.
    [[nodiscard]] bool sawEvent()
    {
        const QDeadlineTimer deadline(2s);
        while (m_events == 0 && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
        return std::exchange(m_events, 0) > 0;
    }

    /// What is already there to be seen has been seen.
    [[nodiscard]] bool isQuiet()
    {
        QCoreApplication::processEvents();
        return std::exchange(m_events, 0) == 0;
    }

    QTemporaryDir m_parent;
    InotifyFolderWatcher m_watcher;
    std::unique_ptr<FolderWatch> m_watch;
    int m_events = 0;
};

TEST_F(InotifyFolderWatch, SeesEntriesComeChangeTheirNameAndGo)
{
    const QString file = folder() + QStringLiteral("/a.md");
    put(file, "x");
    EXPECT_TRUE(sawEvent());
    ASSERT_TRUE(QFile::rename(file, folder() + QStringLiteral("/b.md")));
    EXPECT_TRUE(sawEvent());
    ASSERT_TRUE(QFile::remove(folder() + QStringLiteral("/b.md")));
    EXPECT_TRUE(sawEvent());
}

TEST_F(InotifyFolderWatch, SeesAFileReplacedButNotOneWrittenInPlace)
{
    const QString file = folder() + QStringLiteral("/a.md");
    put(file, "x");
    ASSERT_TRUE(sawEvent());
    put(file, "other text");
    EXPECT_TRUE(isQuiet());
    put(m_parent.filePath(QStringLiteral("new")), "new");
    ASSERT_EQ(::rename(qPrintable(m_parent.filePath(QStringLiteral("new"))), qPrintable(file)), 0);
    EXPECT_TRUE(sawEvent());
}

TEST_F(InotifyFolderWatch, SeesTheFolderRemoved)
{
    ASSERT_TRUE(QDir(folder()).removeRecursively());
    EXPECT_TRUE(sawEvent());
}

TEST_F(InotifyFolderWatch, FollowsTheFolderUnderItsNewName)
{
    const QString moved = m_parent.filePath(QStringLiteral("moved"));
    ASSERT_EQ(::rename(qPrintable(folder()), qPrintable(moved)), 0);
    EXPECT_TRUE(sawEvent());
    put(moved + QStringLiteral("/a.md"), "x");
    EXPECT_TRUE(sawEvent());
}

TEST_F(InotifyFolderWatch, EndsWithItsObject)
{
    m_watch.reset();
    put(folder() + QStringLiteral("/a.md"), "x");
    EXPECT_TRUE(isQuiet());
}

TEST_F(InotifyFolderWatch, MayBeEndedByItsOwnReceiver)
{
    m_watch = m_watcher.watch(folder(), [this] {
        ++m_events;
        m_watch.reset();
    });
    put(folder() + QStringLiteral("/a.md"), "x");
    EXPECT_TRUE(sawEvent());
    EXPECT_FALSE(m_watch);
}

TEST_F(InotifyFolderWatch, WhatCannotBeWatchedGivesNoWatch)
{
    EXPECT_FALSE(m_watcher.watch(m_parent.filePath(QStringLiteral("none")), [] {}));
}

} // namespace

} // namespace jotwell
