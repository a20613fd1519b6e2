#include "Platform/IniDefaultsStoreFixture.h"
#include "Services/Unprivileged.h"

#include <QElapsedTimer>
#include <QLockFile>
#include <QThread>

#include <cerrno>
#include <memory>

#include <sys/stat.h>

namespace jotwell {

namespace {

class IniDefaultsStoreWritingTest : public IniDefaultsStoreTest {
protected:
    /// Comes back when the value is in the file, or can't be.
    void set(const QString& name, qint64 value)
    {
        m_store.setInteger(name, value);
        m_store.synchronize();
    }
};

TEST_F(IniDefaultsStoreWritingTest, AWriteOverADamagedFileKeepsItAside)
{
    const QByteArray damaged = "[General]\nGood=1\nthis line is none\n";
    put(damaged);
    set(key, 2);
    EXPECT_EQ(m_store.integer(key), 2);
    EXPECT_EQ(m_store.integer(QStringLiteral("Good")), 1);
    const auto kept = readFile(path() + QStringLiteral(".damaged"));
    ASSERT_TRUE(kept);
    EXPECT_EQ(*kept, damaged);
}

TEST_F(IniDefaultsStoreWritingTest, ASecondDamageIsKeptBesideTheFirst)
{
    put("[General]\nthe first\n");
    set(key, 1);
    put("[General]\nthe second one\n");
    set(key, 2);
    EXPECT_TRUE(QFile::exists(path() + QStringLiteral(".damaged")));
    EXPECT_TRUE(QFile::exists(path() + QStringLiteral(".damaged-2")));
}

TEST_F(IniDefaultsStoreWritingTest, ADamagedFileThatCannotBeReplacedStaysInItsPlace)
{
    const QByteArray damaged = "[General]\nGood=1\nthis line is none\n";
    put(damaged);
    m_calls.failAt(4, ENOSPC);
    set(key, 2);
    EXPECT_TRUE(m_calls.hasFailed());
    EXPECT_EQ(bytes(), damaged);
    EXPECT_FALSE(QFile::exists(path() + QStringLiteral(".damaged")));
    EXPECT_EQ(m_store.integer(key), 2);
}

TEST_F(IniDefaultsStoreWritingTest, AFileThatCannotBeReadIsNotWritten)
{
    put("[General]\nGood=1\n");
    ASSERT_EQ(::chmod(qPrintable(path()), 0), 0);
    ASSERT_EQ(::chmod(qPrintable(m_folder.path()), 0711), 0); // so that others come through it
    {
        const Unprivileged user(QFileInfo(path()).path());
        set(key, 2);
        EXPECT_EQ(m_store.integer(key), 2);
    }
    ASSERT_EQ(::chmod(qPrintable(path()), 0600), 0);
    EXPECT_EQ(bytes(), "[General]\nGood=1\n");
    EXPECT_EQ(m_log,
              QStringList{QStringLiteral("The settings can't be written: Permission denied")});
}

TEST_F(IniDefaultsStoreWritingTest, ValuesThatCannotBeWrittenHoldForTheProcess)
{
    set(QStringLiteral("Before"), 1);
    m_calls.failAt(2, ENOSPC);
    set(key, 5);
    EXPECT_EQ(m_store.integer(key), 5);
    EXPECT_EQ(m_store.integer(QStringLiteral("Before")), 1);
    EXPECT_EQ(bytes(), "[General]\nBefore=1\n");
    ASSERT_EQ(m_log.size(), 1);
    EXPECT_EQ(m_log.first(),
              QStringLiteral("The settings can't be written: No space left on device"));

    m_calls.failAt(std::nullopt, 0);
    m_store.setInteger(QStringLiteral("After"), 2);
    EXPECT_EQ(otherProgram().integer(key), 5);
}

TEST_F(IniDefaultsStoreWritingTest, AFolderInThePlaceOfTheFileIsNoEnd)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkpath(QStringLiteral("com.jotwell/Jotwell.ini/x")));
    EXPECT_EQ(m_store.integer(key), 0);
    set(key, 5);
    EXPECT_EQ(m_store.integer(key), 5);
    EXPECT_TRUE(QFileInfo(path()).isDir());
}

TEST_F(IniDefaultsStoreWritingTest, APipeInThePlaceOfTheFileDoesNotHang)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("com.jotwell")));
    ASSERT_EQ(::mkfifo(qPrintable(path()), 0600), 0);
    EXPECT_EQ(m_store.integer(key), 0);
    set(key, 5);
    EXPECT_EQ(m_store.integer(key), 5);
}

TEST_F(IniDefaultsStoreWritingTest, ProgramsThatWriteAtOnceKeepOneAnothersKeys)
{
    IniDefaultsStore other(path(), m_calls);
    const auto write = [](IniDefaultsStore& store, const QString& name) {
        for (int round = 0; round < 50; ++round)
            store.setInteger(name + QString::number(round), round);
        store.synchronize();
    };
    const std::unique_ptr<QThread> thread(
        QThread::create([&] { write(other, QStringLiteral("Other")); }));
    thread->start();
    write(m_store, QStringLiteral("Own"));
    thread->wait();
    EXPECT_EQ(otherProgram().keys().size(), 100);
}

TEST_F(IniDefaultsStoreWritingTest, WaitsForAnotherProgramsLock)
{
    constexpr int held = 10;
    set(key, -1); // makes the folder
    QLockFile other(path() + QStringLiteral(".lock"));
    ASSERT_TRUE(other.tryLock(1000));
    const std::unique_ptr<QThread> thread(QThread::create([&] {
        QThread::msleep(held);
        other.unlock();
    }));
    QElapsedTimer time;
    time.start();
    thread->start();
    set(key, 1);
    EXPECT_GE(time.elapsed(), held);
    thread->wait();
}

TEST_F(IniDefaultsStoreWritingTest, ProgramThatHangsIsNotWaitedFor)
{
    set(key, -1);
    QLockFile other(path() + QStringLiteral(".lock"));
    ASSERT_TRUE(other.tryLock(1000));
    set(key, 1);
    EXPECT_EQ(bytes(), "[General]\nKey=1\n");
}

TEST_F(IniDefaultsStoreWritingTest, FiftyMegabytesAreAValueLikeAnyOther)
{
    const QByteArray large(50'000'000, 'x');
    m_store.setData(key, large);
    m_store.setInteger(QStringLiteral("Small"), 1);
    const IniDefaultsStore other = otherProgram();
    EXPECT_TRUE(other.data(key) == large);
    EXPECT_EQ(other.integer(QStringLiteral("Small")), 1);
}

} // namespace

} // namespace jotwell
