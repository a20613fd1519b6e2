#include "Platform/IniDefaultsStoreFixture.h"

#include <QElapsedTimer>
#include <QLockFile>
#include <QThread>

#include <cerrno>
#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <utility>
#include <vector>

namespace jotwell {

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 5s;

/// Does something that may wait, on a thread of its own; its end is waited for at the latest when
/// the future goes.
[[nodiscard]] std::future<void> aside(std::function<void()> work)
{
    return std::async(std::launch::async, std::move(work));
}

[[nodiscard]] bool endsWithin(const std::future<void>& work, std::chrono::milliseconds time)
{
    return work.wait_for(time) == std::future_status::ready;
}

class IniDefaultsStoreBackgroundTest : public IniDefaultsStoreTest {
protected:
    void TearDown() override
    {
        m_calls.letGo();
        IniDefaultsStoreTest::TearDown();
    }

    /// A write that waits for the disk until it is let go.
    void beginWrite(const QString& name, qint64 value, int passingSyncs = 0)
    {
        m_calls.hold(passingSyncs);
        const auto setting = aside([&] { m_store.setInteger(name, value); });
        if (!endsWithin(setting, patience)) {
            ADD_FAILURE() << "it waits for the disk";
            m_calls.letGo();
        } else if (!m_calls.waitForSyncs(1 + passingSyncs))
            ADD_FAILURE() << "nothing is written";
    }

    void finishWrites()
    {
        m_calls.letGo();
        m_store.synchronize();
    }

    [[nodiscard]] qsizetype writes() const { return m_calls.calls().count(u"openNameless"_qs); }

    const QString other = QStringLiteral("Other");
};

TEST_F(IniDefaultsStoreBackgroundTest, NeitherSettingNorReadingWaitsForTheDisk)
{
    put("[General]\nOther=old\n");
    beginWrite(key, 7);
    const auto user = aside([&] {
        EXPECT_EQ(m_store.integer(key), 7);
        EXPECT_EQ(m_store.string(other), QStringLiteral("old"));
        m_store.setInteger(QStringLiteral("More"), 8);
        EXPECT_EQ(m_store.integer(QStringLiteral("More")), 8);
        EXPECT_EQ(m_store.keys().size(), 3);
    });
    EXPECT_TRUE(endsWithin(user, patience));
    EXPECT_EQ(bytes(), "[General]\nOther=old\n");
    finishWrites();
    EXPECT_EQ(bytes(), "[General]\nKey=7\nMore=8\nOther=old\n");
}

TEST_F(IniDefaultsStoreBackgroundTest, WhatIsSetDuringAWriteGoesOutWithOneMore)
{
    beginWrite(key, 0);
    for (int value = 1; value <= 50; ++value) {
        m_store.setInteger(key, value);
        m_store.setInteger(QString::number(value), value);
    }
    finishWrites();
    EXPECT_EQ(writes(), 2);
    const IniDefaultsStore reader = otherProgram();
    EXPECT_EQ(reader.integer(key), 50);
    EXPECT_EQ(reader.keys().size(), 51);
}

TEST_F(IniDefaultsStoreBackgroundTest, NothingIsWrittenTwice)
{
    put("");
    QLockFile lock(path() + QStringLiteral(".lock"));
    ASSERT_TRUE(lock.tryLock());
    QElapsedTimer held;
    held.start();
    m_store.setInteger(key, 1);
    QThread::msleep(20); // by then, the write that takes it along has most likely begun
    m_store.setInteger(other, 2);
    lock.unlock();
    const bool hasWaited = held.elapsed() < 400;
    m_store.synchronize();
    m_store.synchronize();
    EXPECT_EQ(bytes(), "[General]\nKey=1\nOther=2\n");
    EXPECT_TRUE(writes() == 1 || !hasWaited);
}

TEST_F(IniDefaultsStoreBackgroundTest, LastValueWinsWhicheverWayItChanges)
{
    put("[General]\nGone=1\n");
    beginWrite(key, 1);
    m_store.remove(key);
    m_store.setBoolean(other, true);
    m_store.remove(QStringLiteral("Gone"));
    EXPECT_FALSE(m_store.string(key));
    EXPECT_EQ(m_store.keys(), QStringList{other});
    m_calls.letGo();
    m_store.synchronize();
    EXPECT_EQ(bytes(), "[General]\nOther=true\n");

    m_store.setInteger(key, 1);
    m_store.setBoolean(key, true); // equal as numbers go
    m_store.synchronize();
    EXPECT_EQ(bytes(), "[General]\nKey=true\nOther=true\n");
}

TEST_F(IniDefaultsStoreBackgroundTest, EqualValueOfAnotherTypeSetDuringAWriteStays)
{
    beginWrite(key, 1);
    m_store.setBoolean(key, true);
    finishWrites();
    EXPECT_EQ(bytes(), "[General]\nKey=true\n");
}

TEST_F(IniDefaultsStoreBackgroundTest, WhatOthersWriteDuringAWriteIsSeen)
{
    beginWrite(key, 7, 1); // the sync of the folder comes behind that of the file
    put("[General]\nOther=theirs\n");
    EXPECT_EQ(m_store.integer(key), 7);
    EXPECT_EQ(m_store.string(other), QStringLiteral("theirs"));
    QThread::msleep(50); // by then, a change is told from the next by its time
    finishWrites();
    EXPECT_EQ(m_store.string(other), QStringLiteral("theirs"));
    EXPECT_EQ(m_store.integer(key), 0);
}

TEST_F(IniDefaultsStoreBackgroundTest, FailedWriteGoesOutWithTheNextButNotOverNewerValues)
{
    beginWrite(key, 1);
    m_store.setInteger(key, 2);
    m_calls.failAt(0, EIO); // the sync that waits
    finishWrites();
    EXPECT_TRUE(m_calls.hasFailed());
    EXPECT_EQ(bytes(), "[General]\nKey=2\n");

    beginWrite(key, 3);
    m_store.setInteger(other, 4);
    m_calls.failAt(0, EIO);
    finishWrites();
    EXPECT_EQ(bytes(), "[General]\nKey=3\nOther=4\n");
    EXPECT_EQ(m_log.size(), 2);
}

TEST_F(IniDefaultsStoreBackgroundTest, FailedWriteIsNotTriedAgainByItself)
{
    m_calls.failAt(0, ENOSPC);
    {
        IniDefaultsStore store(path(), m_calls);
        store.setInteger(key, 1);
        store.synchronize();
        EXPECT_EQ(store.integer(key), 1);
        store.synchronize();
    }
    EXPECT_EQ(m_log.size(), 1);
    EXPECT_EQ(bytes(), "(nothing)");
}

TEST_F(IniDefaultsStoreBackgroundTest, EndWritesWhatIsPending)
{
    auto store = std::make_unique<IniDefaultsStore>(path(), m_calls);
    m_calls.hold();
    store->setInteger(key, 1);
    ASSERT_TRUE(m_calls.waitForSyncs(1));
    store->setInteger(key, 2);
    store->setInteger(other, 3);
    const auto ending = aside([&] { store.reset(); });
    EXPECT_FALSE(endsWithin(ending, 20ms));
    m_calls.letGo();
    EXPECT_TRUE(endsWithin(ending, patience));
    EXPECT_EQ(bytes(), "[General]\nKey=2\nOther=3\n");
}

TEST_F(IniDefaultsStoreBackgroundTest, SynchronizingWaitsForTheFile)
{
    m_store.synchronize(); // for nothing, as yet
    beginWrite(key, 1);
    m_store.setInteger(key, 2);
    QByteArray seen;
    const auto waiting = aside([&] {
        m_store.synchronize();
        seen = bytes();
    });
    EXPECT_FALSE(endsWithin(waiting, 20ms));
    m_calls.letGo();
    EXPECT_TRUE(endsWithin(waiting, patience));
    EXPECT_EQ(seen, "[General]\nKey=2\n");
}

TEST_F(IniDefaultsStoreBackgroundTest, ThreadsMayReadAndWriteAtOnce)
{
    std::vector<std::future<void>> threads;
    for (int each = 0; each < 4; ++each) {
        threads.push_back(aside([this, each] {
            for (int round = 0; round < 20; ++round) {
                m_store.setInteger(QString::number(each), round);
                static_cast<void>(m_store.keys());
                if (round % 5 == each)
                    m_store.synchronize();
                EXPECT_EQ(m_store.integer(QString::number(each)), round);
            }
        }));
    }
    threads.clear();
    const IniDefaultsStore reader = otherProgram();
    for (int each = 0; each < 4; ++each)
        EXPECT_EQ(reader.integer(QString::number(each)), 19);
}

} // namespace

} // namespace jotwell
