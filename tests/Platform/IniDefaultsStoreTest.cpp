#include "Platform/IniDefaultsStoreFixture.h"

#include <QPoint>
#include <QSettings>
#include <QThread>

#include <fcntl.h>
#include <sys/stat.h>

namespace jotwell {

namespace {

using ValueType = DefaultsStore::ValueType;

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

    const IniDefaultsStore other = otherProgram();
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
    m_store.synchronize();
    EXPECT_EQ(bytes(), "[General]\nKey=value\n");
}

TEST_F(IniDefaultsStoreTest, FileAndFolderAreTheUsersAlone)
{
    m_store.setString(key, QStringLiteral("value"));
    m_store.synchronize();
    struct stat status = {};
    ASSERT_EQ(::stat(qPrintable(path()), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0600U);
    ASSERT_EQ(::stat(qPrintable(QFileInfo(path()).path()), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0700U);
    ASSERT_EQ(::chmod(qPrintable(path()), 0644), 0);
    m_store.setInteger(key, 1);
    m_store.synchronize();
    ASSERT_EQ(::stat(qPrintable(path()), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0600U);
}

TEST_F(IniDefaultsStoreTest, NothingButTheSettingsStaysInTheFolder)
{
    m_store.setString(key, QStringLiteral("value"));
    m_store.synchronize();
    m_store.remove(key);
    m_store.synchronize();
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

TEST_F(IniDefaultsStoreTest, AnotherProgramsChangeIsSeenAtTheNextRead)
{
    m_store.setInteger(key, 1);
    EXPECT_EQ(m_store.integer(key), 1);
    IniDefaultsStore other = otherProgram();
    other.setInteger(key, 2);
    other.setString(QStringLiteral("More"), QStringLiteral("x"));
    other.synchronize();
    EXPECT_EQ(m_store.integer(key), 2);
    m_store.setInteger(QStringLiteral("Own"), 3);
    m_store.synchronize();
    EXPECT_EQ(other.string(QStringLiteral("More")), QStringLiteral("x"));
    EXPECT_EQ(other.integer(QStringLiteral("Own")), 3);
}

TEST_F(IniDefaultsStoreTest, QuickChangesOfEqualSizeAreAllSeen)
{
    const IniDefaultsStore reader(path(), m_calls);
    for (int round = 0; round < 200; ++round) {
        m_store.setInteger(key, round % 10);
        m_store.synchronize();
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
        EXPECT_EQ(otherProgram().string(key), text) << text.toStdString();
    }
    EXPECT_EQ(m_log, QStringList());
}

TEST_F(IniDefaultsStoreTest, ValuesOfAForeignHandSurviveAWrite)
{
    put("[General]\nList=a, b\nPoint=@Point(1 2)\n\n[Group]\nKey=\"1;2\"\n");
    m_store.setString(key, QString(QChar(0xd83d)));
    m_store.remove(key);
    m_store.synchronize();
    const QSettings settings(path(), QSettings::IniFormat);
    EXPECT_EQ(settings.value(QStringLiteral("List")).toStringList(),
              QStringList({QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_EQ(settings.value(QStringLiteral("Point")).toPoint(), QPoint(1, 2));
    EXPECT_EQ(settings.value(QStringLiteral("Group/Key")), QVariant(QStringLiteral("1;2")));
}

} // namespace

} // namespace jotwell
