#include "Platform/qt/IniDefaultsStore.h"

#include "Fakes/FailingFileCalls.h"
#include "Support/FileText.h"
#include "Support/Logging.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLockFile>
#include <QPoint>
#include <QSemaphore>
#include <QSettings>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <limits>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace jotwell {

namespace {

using ValueType = DefaultsStore::ValueType;

/// Makes root an ordinary user, who owns `folder`, for its life: nothing is unreadable for root.
class Unprivileged {
public:
    explicit Unprivileged(const QString& folder)
    {
        constexpr uid_t nobody = 65534;
        if (::getuid() != 0)
            return;
        EXPECT_EQ(::chown(qPrintable(QFileInfo(folder).path()), nobody, nobody), 0);
        EXPECT_EQ(::chown(qPrintable(folder), nobody, nobody), 0);
        EXPECT_EQ(::seteuid(nobody), 0);
    }
    ~Unprivileged() { EXPECT_EQ(::seteuid(::getuid()), 0); }
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;
};

class IniDefaultsStoreTest : public testing::Test {
protected:
    void SetUp() override
    {
        setLogSink([this](const LogRecord& record) { m_log.append(record.message); });
    }
    void TearDown() override { setLogSink({}); }

    [[nodiscard]] QString path() const
    {
        return m_folder.filePath(QStringLiteral("com.jotwell/Jotwell.ini"));
    }

    void put(const QByteArray& bytes) const
    {
        QDir(m_folder.path()).mkdir(QStringLiteral("com.jotwell"));
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    [[nodiscard]] QByteArray bytes() const
    {
        const auto read = readFile(path());
        return read ? *read : QByteArray("(nothing)");
    }

    const QString key = QStringLiteral("Key");
    QTemporaryDir m_folder;
    FailingFileCalls m_calls;
    QStringList m_log;
    IniDefaultsStore m_store{path(), m_calls};
};

TEST_F(IniDefaultsStoreTest, AnEmptyStoreReadsAsAbsentAndWritesNothing)
{
    EXPECT_FALSE(m_store.string(key));
    EXPECT_FALSE(m_store.data(key));
    EXPECT_EQ(m_store.integer(key), 0);
    EXPECT_FALSE(m_store.boolean(key));
    EXPECT_FALSE(m_store.storedType(key));
    EXPECT_EQ(m_store.keys(), QStringList());
    EXPECT_FALSE(QFile::exists(path()));
}

TEST_F(IniDefaultsStoreTest, EveryTypeSurvivesAnotherProcess)
{
    const QString text = QStringLiteral("/v/a, b;c=d \"e\" \\ \u00e4\U0001F600\n@x%20 ");
    const QByteArray data = QByteArray("\0\xff{\"a\":1}\n,;", 13);
    m_store.setString(QStringLiteral("Text"), text);
    m_store.setString(QStringLiteral("Empty"), QString());
    m_store.setString(QStringLiteral("At"), QStringLiteral("@ByteArray(x)"));
    m_store.setData(QStringLiteral("Data"), data);
    m_store.setInteger(QStringLiteral("Number"), -1572864000000);
    m_store.setBoolean(QStringLiteral("Truth"), true);

    const IniDefaultsStore other(path(), m_calls);
    EXPECT_EQ(other.string(QStringLiteral("Text")), text);
    EXPECT_EQ(other.string(QStringLiteral("Empty")), QString());
    EXPECT_EQ(other.string(QStringLiteral("At")), QStringLiteral("@ByteArray(x)"));
    EXPECT_EQ(other.data(QStringLiteral("Data")), data);
    EXPECT_EQ(other.integer(QStringLiteral("Number")), -1572864000000);
    EXPECT_TRUE(other.boolean(QStringLiteral("Truth")));
    EXPECT_EQ(other.storedType(QStringLiteral("Text")), ValueType::string);
    EXPECT_EQ(other.storedType(QStringLiteral("Data")), ValueType::data);
    EXPECT_EQ(other.storedType(QStringLiteral("Number")), ValueType::integer);
    EXPECT_EQ(other.storedType(QStringLiteral("Truth")), ValueType::boolean);
    EXPECT_EQ(other.keys().size(), 6);
}

TEST_F(IniDefaultsStoreTest, TheFileIsAnIniOfItsGeneralGroup)
{
    m_store.setString(key, QStringLiteral("value"));
    EXPECT_EQ(bytes(), "[General]\nKey=value\n");
}

TEST_F(IniDefaultsStoreTest, FileAndFolderAreTheUsersAlone)
{
    m_store.setString(key, QStringLiteral("value"));
    struct stat status = {};
    ASSERT_EQ(::stat(qPrintable(path()), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0600U);
    ASSERT_EQ(::stat(qPrintable(QFileInfo(path()).path()), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0700U);
    ASSERT_EQ(::chmod(qPrintable(path()), 0644), 0);
    m_store.setInteger(key, 1);
    ASSERT_EQ(::stat(qPrintable(path()), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0600U);
}

TEST_F(IniDefaultsStoreTest, NothingButTheSettingsStaysInTheFolder)
{
    m_store.setString(key, QStringLiteral("value"));
    m_store.remove(key);
    EXPECT_EQ(QDir(QFileInfo(path()).path())
                  .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList{QStringLiteral("Jotwell.ini")});
    EXPECT_FALSE(m_store.string(key));
    EXPECT_EQ(m_store.keys(), QStringList());
}

TEST_F(IniDefaultsStoreTest, NoTextRemovesTheKey)
{
    m_store.setString(key, QStringLiteral("value"));
    m_store.setString(key, std::nullopt);
    EXPECT_EQ(m_store.keys(), QStringList());
}

TEST_F(IniDefaultsStoreTest, AValueOfAnotherTypeIsAbsentOrConverted)
{
    m_store.setData(key, "abc");
    EXPECT_FALSE(m_store.string(key));
    EXPECT_EQ(m_store.integer(key), 0);
    EXPECT_FALSE(m_store.boolean(key));
    m_store.setString(key, QStringLiteral("abc"));
    EXPECT_FALSE(m_store.data(key));
    EXPECT_EQ(m_store.integer(key), 0);
    EXPECT_FALSE(m_store.boolean(key));
    m_store.setString(key, QStringLiteral(" 12 "));
    EXPECT_EQ(m_store.integer(key), 12);
    m_store.setInteger(key, 12);
    EXPECT_EQ(m_store.string(key), QStringLiteral("12"));
    EXPECT_TRUE(m_store.boolean(key));
    m_store.setBoolean(key, true);
    EXPECT_EQ(m_store.integer(key), 1);
    m_store.setString(key, QStringLiteral("YES"));
    EXPECT_TRUE(m_store.boolean(key));
}

TEST_F(IniDefaultsStoreTest, ListsAndOtherTypesOfAForeignHandAreAbsent)
{
    put("[General]\nKey=a, b\nPoint=@Point(1 2)\nGood=10\n");
    EXPECT_FALSE(m_store.string(key));
    EXPECT_FALSE(m_store.string(QStringLiteral("Point")));
    EXPECT_EQ(m_store.integer(QStringLiteral("Good")), 10);
}

TEST_F(IniDefaultsStoreTest, AReadingNeverChangesTheFile)
{
    for (const QByteArray& content :
         {QByteArray("[Gen\xff\xfe{{\n=\n\0garbage", 20), QByteArray("no settings at all"),
          QByteArray(), QByteArray("[General]\nKey=\"unclosed\nOther")}) {
        put(content);
        IniDefaultsStore store(path(), m_calls);
        EXPECT_EQ(m_store.integer(QStringLiteral("RecentFilesCount")), 0);
        static_cast<void>(store.string(key));
        static_cast<void>(store.keys());
        EXPECT_EQ(bytes(), content);
    }
}

TEST_F(IniDefaultsStoreTest, AWriteOverADamagedFileKeepsItAside)
{
    const QByteArray damaged = "[General]\nGood=1\nthis line is none\n";
    put(damaged);
    m_store.setInteger(key, 2);
    EXPECT_EQ(m_store.integer(key), 2);
    EXPECT_EQ(m_store.integer(QStringLiteral("Good")), 1);
    const auto kept = readFile(path() + QStringLiteral(".damaged"));
    ASSERT_TRUE(kept);
    EXPECT_EQ(*kept, damaged);
}

TEST_F(IniDefaultsStoreTest, ASecondDamageIsKeptBesideTheFirst)
{
    put("[General]\nthe first\n");
    m_store.setInteger(key, 1);
    put("[General]\nthe second one\n");
    m_store.setInteger(key, 2);
    EXPECT_TRUE(QFile::exists(path() + QStringLiteral(".damaged")));
    EXPECT_TRUE(QFile::exists(path() + QStringLiteral(".damaged-2")));
}

TEST_F(IniDefaultsStoreTest, ADamagedFileThatCannotBeReplacedStaysInItsPlace)
{
    const QByteArray damaged = "[General]\nGood=1\nthis line is none\n";
    put(damaged);
    m_calls.failAt(4, ENOSPC);
    m_store.setInteger(key, 2);
    EXPECT_TRUE(m_calls.hasFailed());
    EXPECT_EQ(bytes(), damaged);
    EXPECT_FALSE(QFile::exists(path() + QStringLiteral(".damaged")));
    EXPECT_EQ(m_store.integer(key), 2);
}

TEST_F(IniDefaultsStoreTest, AFileThatCannotBeReadIsNotWritten)
{
    put("[General]\nGood=1\n");
    ASSERT_EQ(::chmod(qPrintable(path()), 0), 0);
    {
        const Unprivileged user(QFileInfo(path()).path());
        m_store.setInteger(key, 2);
        EXPECT_EQ(m_store.integer(key), 2);
    }
    ASSERT_EQ(::chmod(qPrintable(path()), 0600), 0);
    EXPECT_EQ(bytes(), "[General]\nGood=1\n");
    EXPECT_EQ(m_log,
              QStringList{QStringLiteral("The settings can't be written: Permission denied")});
}

TEST_F(IniDefaultsStoreTest, ValuesThatCannotBeWrittenHoldForTheProcess)
{
    m_store.setInteger(QStringLiteral("Before"), 1);
    m_calls.failAt(2, ENOSPC);
    m_store.setInteger(key, 5);
    EXPECT_EQ(m_store.integer(key), 5);
    EXPECT_EQ(m_store.integer(QStringLiteral("Before")), 1);
    EXPECT_EQ(bytes(), "[General]\nBefore=1\n");
    ASSERT_EQ(m_log.size(), 1);
    EXPECT_EQ(m_log.first(),
              QStringLiteral("The settings can't be written: No space left on device"));

    m_calls.failAt(std::nullopt, 0);
    m_store.setInteger(QStringLiteral("After"), 2);
    EXPECT_EQ(IniDefaultsStore(path(), m_calls).integer(key), 5);
}

TEST_F(IniDefaultsStoreTest, AFolderInThePlaceOfTheFileIsNoEnd)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkpath(QStringLiteral("com.jotwell/Jotwell.ini/x")));
    EXPECT_EQ(m_store.integer(key), 0);
    m_store.setInteger(key, 5);
    EXPECT_EQ(m_store.integer(key), 5);
    EXPECT_TRUE(QFileInfo(path()).isDir());
}

TEST_F(IniDefaultsStoreTest, APipeInThePlaceOfTheFileDoesNotHang)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir(QStringLiteral("com.jotwell")));
    ASSERT_EQ(::mkfifo(qPrintable(path()), 0600), 0);
    EXPECT_EQ(m_store.integer(key), 0);
    m_store.setInteger(key, 5);
    EXPECT_EQ(m_store.integer(key), 5);
}

TEST_F(IniDefaultsStoreTest, AnotherProgramsChangeIsSeenAtTheNextRead)
{
    m_store.setInteger(key, 1);
    EXPECT_EQ(m_store.integer(key), 1);
    IniDefaultsStore other(path(), m_calls);
    other.setInteger(key, 2);
    other.setString(QStringLiteral("More"), QStringLiteral("x"));
    EXPECT_EQ(m_store.integer(key), 2);
    m_store.setInteger(QStringLiteral("Own"), 3);
    EXPECT_EQ(other.string(QStringLiteral("More")), QStringLiteral("x"));
    EXPECT_EQ(other.integer(QStringLiteral("Own")), 3);
}

TEST_F(IniDefaultsStoreTest, QuickChangesOfEqualSizeAreAllSeen)
{
    const IniDefaultsStore reader(path(), m_calls);
    for (int round = 0; round < 200; ++round) {
        m_store.setInteger(key, round % 10);
        ASSERT_EQ(m_store.integer(key), round % 10);
        ASSERT_EQ(reader.integer(key), round % 10);
    }
}

TEST_F(IniDefaultsStoreTest, ChangeInPlaceIsSeenWhateverItHides)
{
    for (int round = 0; round < 50; ++round) {
        const QByteArray digit = QByteArray::number(round % 10);
        put("[General]\nKey=" + digit + '\n');
        const timespec then[2] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
        ASSERT_EQ(::utimensat(AT_FDCWD, qPrintable(path()), then, 0), 0);
        ASSERT_EQ(m_store.integer(key), round % 10);
    }
}

TEST_F(IniDefaultsStoreTest, SettledChangeInPlaceIsSeenByItsChangeTime)
{
    const timespec then[2] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
    for (const int value : {1, 2}) {
        put("[General]\nKey=" + QByteArray::number(value) + '\n');
        ASSERT_EQ(::utimensat(AT_FDCWD, qPrintable(path()), then, 0), 0);
        QThread::msleep(50);
        EXPECT_EQ(m_store.integer(key), value);
        EXPECT_EQ(m_store.integer(key), value);
    }
}

TEST_F(IniDefaultsStoreTest, EveryTextSurvivesAnotherProcess)
{
    const QString texts[] = {
        u"42"_qs,
        u"-1"_qs,
        u"007"_qs,
        u"true"_qs,
        u"False"_qs,
        u""_qs,
        u"@Invalid()"_qs,
        u"@Variant(x)"_qs,
        u"@String(x)"_qs,
        u"@@"_qs,
        u"a, b; c"_qs,
        u","_qs,
        u"[General]"_qs,
        u"a=b"_qs,
        u"one\ntwo\r\nthree\n"_qs,
        u"\\n \\x41 \"quoted\" 'a'"_qs,
        u"  leading and trailing\t "_qs,
        u" "_qs,
        u"before"_qs + QChar(0) + u"1after"_qs,
        QString(QChar(0)),
        u"\u00e4 \U0001F600 e\u0301 \u2028 \ufeff \x01"
        u"f"_qs,
        QString(QChar(0xd83d)),
        u"low "_qs + QChar(0xde00) + u" and high "_qs + QChar(0xd83d),
    };
    for (const QString& text : texts) {
        m_store.setString(key, text);
        EXPECT_EQ(m_store.string(key), text);
        EXPECT_EQ(IniDefaultsStore(path(), m_calls).string(key), text) << text.toStdString();
    }
    EXPECT_EQ(m_log, QStringList());
}

TEST_F(IniDefaultsStoreTest, ValuesOfAForeignHandSurviveAWrite)
{
    put("[General]\nList=a, b\nPoint=@Point(1 2)\n\n[Group]\nKey=\"1;2\"\n");
    m_store.setString(key, QString(QChar(0xd83d)));
    m_store.remove(key);
    const QSettings settings(path(), QSettings::IniFormat);
    EXPECT_EQ(settings.value(QStringLiteral("List")).toStringList(),
              QStringList({QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_EQ(settings.value(QStringLiteral("Point")).toPoint(), QPoint(1, 2));
    EXPECT_EQ(settings.value(QStringLiteral("Group/Key")), QVariant(QStringLiteral("1;2")));
}

TEST_F(IniDefaultsStoreTest, ProgramsThatWriteAtOnceKeepOneAnothersKeys)
{
    IniDefaultsStore other(path(), m_calls);
    const auto write = [](IniDefaultsStore& store, const QString& name) {
        for (int round = 0; round < 50; ++round)
            store.setInteger(name + QString::number(round), round);
    };
    const std::unique_ptr<QThread> thread(
        QThread::create([&] { write(other, QStringLiteral("Other")); }));
    thread->start();
    write(m_store, QStringLiteral("Own"));
    thread->wait();
    EXPECT_EQ(IniDefaultsStore(path(), m_calls).keys().size(), 100);
}

TEST_F(IniDefaultsStoreTest, WaitsForAnotherProgramsLock)
{
    constexpr int held = 10;
    m_store.setInteger(key, -1); // makes the folder
    QLockFile other(path() + QStringLiteral(".lock"));
    ASSERT_TRUE(other.tryLock(1000));
    const std::unique_ptr<QThread> thread(QThread::create([&] {
        QThread::msleep(held);
        other.unlock();
    }));
    QElapsedTimer time;
    time.start();
    thread->start();
    m_store.setInteger(key, 1);
    EXPECT_GE(time.elapsed(), held);
    thread->wait();
}

TEST_F(IniDefaultsStoreTest, NoReadingWaitsForAWrite)
{
    put("[General]\nOther=old\n");
    m_calls.hold();
    const std::unique_ptr<QThread> writer(QThread::create([&] { m_store.setInteger(key, 7); }));
    writer->start();
    ASSERT_TRUE(m_calls.waitForSyncs(1));
    QSemaphore read;
    const std::unique_ptr<QThread> reader(QThread::create([&] {
        EXPECT_EQ(m_store.integer(key), 7);
        EXPECT_EQ(m_store.string(QStringLiteral("Other")), QStringLiteral("old"));
        EXPECT_EQ(m_store.keys().size(), 2);
        read.release();
    }));
    reader->start();
    EXPECT_TRUE(read.tryAcquire(1, 5000));
    m_calls.letGo();
    writer->wait();
    reader->wait();
    EXPECT_EQ(IniDefaultsStore(path(), m_calls).integer(key), 7);
}

TEST_F(IniDefaultsStoreTest, WhatOthersWriteDuringAWriteIsSeenBehindIt)
{
    m_calls.hold(1); // that of the folder comes behind the file
    const std::unique_ptr<QThread> writer(QThread::create([&] { m_store.setInteger(key, 7); }));
    writer->start();
    ASSERT_TRUE(m_calls.waitForSyncs(2));
    put("[General]\nOther=theirs\n");
    EXPECT_EQ(m_store.integer(key), 7);
    QThread::msleep(50); // by then, a change is told from the next by its time
    m_calls.letGo();
    writer->wait();
    EXPECT_EQ(m_store.string(QStringLiteral("Other")), QStringLiteral("theirs"));
}

TEST_F(IniDefaultsStoreTest, FiftyMegabytesAreAValueLikeAnyOther)
{
    const QByteArray large(50'000'000, 'x');
    m_store.setData(key, large);
    m_store.setInteger(QStringLiteral("Small"), 1);
    const IniDefaultsStore other(path(), m_calls);
    EXPECT_TRUE(other.data(key) == large);
    EXPECT_EQ(other.integer(QStringLiteral("Small")), 1);
}

TEST_F(IniDefaultsStoreTest, ThreadsMayReadAndWriteAtOnce)
{
    std::vector<std::unique_ptr<QThread>> threads;
    for (int each = 0; each < 4; ++each) {
        threads.emplace_back(QThread::create([this, each] {
            for (int round = 0; round < 20; ++round) {
                m_store.setInteger(QString::number(each), round);
                static_cast<void>(m_store.keys());
            }
        }));
        threads.back()->start();
    }
    for (const auto& thread : threads)
        thread->wait();
    for (int each = 0; each < 4; ++each)
        EXPECT_EQ(m_store.integer(QString::number(each)), 19);
}

} // namespace

} // namespace jotwell
