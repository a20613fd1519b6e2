#include "Services/Index/Database/IndexDatabaseFixture.h"

#include "Services/Unprivileged.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>

#include <csignal>

#include <sys/resource.h>
#include <sys/stat.h>

namespace jotwell {

namespace {

const char* const count = "SELECT count(*) FROM content_index";
constexpr qint64 pageSize = 4096;

class IndexDatabaseDamageTest : public IndexDatabaseFixture {
protected:
    void SetUp() override { m_folder.makeFolder(QStringLiteral("com.jotwell")); }

    [[nodiscard]] QStringList filesThere() const
    {
        const QFileInfo info(file());
        return info.dir().entryList(QDir::Files, QDir::Name);
    }
    void expectSound() const
    {
        EXPECT_EQ(rows("PRAGMA integrity_check"), QStringList{QStringLiteral("ok")});
    }
    /// Leaves a file with notes, and gives its bytes.
    QByteArray savedFile(int notesInIt)
    {
        open();
        saveAll(notes(notesInIt));
        close();
        m_log.clear();
        return m_folder.bytesOf(m_name);
    }
    void overwrite(qint64 from, qint64 length) const
    {
        QFile whole(file());
        ASSERT_TRUE(whole.open(QIODevice::ReadWrite));
        whole.seek(from);
        ASSERT_EQ(whole.write(QByteArray(length, '\xa5')), length);
    }
};

QStringList one(const char* text)
{
    return {QString::fromUtf8(text)};
}

const QStringList foundDamaged{QStringLiteral("Failed to create basic tables"),
                               QStringLiteral("The damaged database has been set aside")};

} // namespace

TEST_F(IndexDatabaseDamageTest, WhatIsNoDatabaseIsSetAsideAndMadeAnew)
{
    const QByteArray garbage = QByteArray("This is no database. ").repeated(1000);
    m_folder.put(m_name, garbage);
    open();
    EXPECT_EQ(m_log.errors(), foundDamaged);
    EXPECT_EQ(m_log.infos(), one("Successfully created FTS5 content indexing tables"));
    EXPECT_EQ(m_folder.bytesOf(m_name + QStringLiteral(".damaged")), garbage);
    saveAll(notes(3));
    EXPECT_EQ(rows(count), one("3"));
    expectSound();
}

TEST_F(IndexDatabaseDamageTest, WhatHasBeenSetAsideStays)
{
    for (const char* garbage : {"first ", "second ", "third "}) {
        m_folder.put(m_name, QByteArray(garbage).repeated(200));
        open();
        close();
    }
    EXPECT_EQ(filesThere(),
              (QStringList{QStringLiteral("TagIndex.db"), QStringLiteral("TagIndex.db.damaged"),
                           QStringLiteral("TagIndex.db.damaged-2"),
                           QStringLiteral("TagIndex.db.damaged-3")}));
    EXPECT_TRUE(m_folder.bytesOf(m_name + QStringLiteral(".damaged-2")).startsWith("second"));
}

TEST_F(IndexDatabaseDamageTest, TheJournalOfADamagedFileGoesWithIt)
{
    m_folder.put(m_name, QByteArray("garbage ").repeated(200));
    m_folder.put(m_name + QStringLiteral("-journal"), QByteArray("\0 of old", 8));
    open();
    save(note("A"));
    EXPECT_EQ(filesThere(),
              (QStringList{QStringLiteral("TagIndex.db"), QStringLiteral("TagIndex.db.damaged"),
                           QStringLiteral("TagIndex.db.damaged-journal")}));
    EXPECT_EQ(rows(count), one("1"));
}

TEST_F(IndexDatabaseDamageTest, AnEmptyFileIsADatabase)
{
    m_folder.put(m_name);
    open();
    EXPECT_EQ(m_log.errors(), QStringList());
    saveAll(notes(3));
    EXPECT_EQ(rows(count), one("3"));
    EXPECT_EQ(filesThere(), one("TagIndex.db"));
}

TEST_F(IndexDatabaseDamageTest, AFileCutAnywhereIsMended)
{
    const QByteArray whole = savedFile(10);
    ASSERT_GT(whole.size(), 15 * pageSize);
    QList<qint64> lengths{1, 15, 16, 99, 100, 511, 512, whole.size() - 1};
    for (qint64 page = 1; page * pageSize < whole.size(); ++page)
        lengths << page * pageSize << page * pageSize + 100;
    for (const qint64 length : lengths) {
        m_folder.put(m_name, whole.left(length));
        open();
        saveAll(notes(10));
        close();
        EXPECT_EQ(rows(count), one("10")) << length;
        EXPECT_EQ(rows("PRAGMA integrity_check"), one("ok")) << length;
    }
}

TEST_F(IndexDatabaseDamageTest, AFileWithABadPageTakesEveryNote)
{
    const QByteArray whole = savedFile(10);
    for (qint64 page = 0; page * pageSize < whole.size(); ++page) {
        m_folder.put(m_name, whole);
        overwrite(page * pageSize, pageSize);
        open();
        saveAll(notes(10));
        EXPECT_EQ(rows("SELECT count(*) FROM content_index "
                       "WHERE content = 'The text of note ' || substr(title, 6)"),
                  one("10"))
            << page;
        close();
    }
}

TEST_F(IndexDatabaseDamageTest, ASaveThatFindsDamageGoesToTheNewFile)
{
    savedFile(40);
    open();
    save(note("First"));
    m_log.clear();
    overwrite(0, 100);
    save(note("A"));
    EXPECT_EQ(m_log.errors(),
              (QStringList{QStringLiteral("Failed to save content to database: "
                                          "file is not a database"),
                           QStringLiteral("The damaged database has been set aside")}));
    EXPECT_EQ(rows("SELECT path FROM content_index"), one("/vault/A.md"));
    expectSound();
}

TEST_F(IndexDatabaseDamageTest, ARemovalThatFindsDamageGoesToTheNewFile)
{
    savedFile(40);
    open();
    save(note("First"));
    m_log.clear();
    overwrite(0, 100);
    finished(m_database->removeFileFromDatabase("/vault/Note 1.md"));
    EXPECT_EQ(m_log.errors(),
              (QStringList{QStringLiteral("Failed to remove file from database: "
                                          "file is not a database"),
                           QStringLiteral("The damaged database has been set aside")}));
    EXPECT_EQ(rows(count), one("0"));
}

TEST_F(IndexDatabaseDamageTest, ASaveOfAllThatFindsDamageStartsOver)
{
    open();
    auto saving = m_database->saveIndexToDatabase(mapOf(notes(200)));
    m_executor.waitForDone();
    QCoreApplication::processEvents();
    m_executor.waitForDone();
    ASSERT_NE(rows(count), one("0"));
    overwrite(0, 100);
    finished(std::move(saving));
    EXPECT_EQ(rows(count), one("200"));
    expectSound();
}

// Whoever else finds the damage has the file replaced, with the rows that had been saved.
TEST_F(IndexDatabaseDamageTest, ASaveOfAllStartsOverWhenTheFileIsReplaced)
{
    open();
    auto saving = m_database->saveIndexToDatabase(mapOf(notes(200)));
    m_executor.waitForDone();
    QCoreApplication::processEvents();
    m_executor.waitForDone();
    overwrite(0, 100);
    auto other = m_database->saveContentToDatabase(std::make_shared<FileMetadata>(note("Other")));
    m_executor.waitForDone();
    finished(std::move(other));
    finished(std::move(saving));
    EXPECT_EQ(rows(count), one("201"));
}

TEST_F(IndexDatabaseDamageTest, ADiskThatDamagesEverythingEndsASaveAndIsNotFilled)
{
    open();
    bool isFinished = false;
    const QObject context;
    auto saving = m_database->saveIndexToDatabase(mapOf(notes(200)));
    QCoro::connect(std::move(saving), &context, [&] { isFinished = true; });
    for (int slice = 0; !isFinished && slice < 1000; ++slice) {
        m_executor.waitForDone();
        overwrite(0, 100);
        QCoreApplication::processEvents();
    }
    EXPECT_TRUE(isFinished);
    EXPECT_EQ(filesThere(),
              (QStringList{QStringLiteral("TagIndex.db"), QStringLiteral("TagIndex.db.damaged"),
                           QStringLiteral("TagIndex.db.damaged-2"),
                           QStringLiteral("TagIndex.db.damaged-3")}));
}

TEST_F(IndexDatabaseDamageTest, ADamagedFileThatCannotBeRenamedStays)
{
    const QByteArray garbage = QByteArray("garbage ").repeated(200);
    m_folder.put(m_name, garbage);
    const QString folder = m_folder.pathOf(QStringLiteral("com.jotwell"));
    ASSERT_EQ(::chmod(qPrintable(folder), 0555), 0);
    {
        const Unprivileged user(m_folder.path());
        open();
        save(note("A"));
        close();
    }
    ASSERT_EQ(::chmod(qPrintable(folder), 0755), 0);
    const QString told = QStringLiteral("Failed to create basic tables");
    EXPECT_EQ(m_log.errors(), (QStringList{told, told}));
    EXPECT_EQ(m_folder.bytesOf(m_name), garbage);
    EXPECT_EQ(filesThere(), one("TagIndex.db"));
}

TEST_F(IndexDatabaseDamageTest, ALockedFileFailsAtOnceAndWorksLater)
{
    savedFile(3);
    Database other;
    other.open(file(), SQLITE_OPEN_READWRITE, nullptr);
    ASSERT_EQ(other.execute("BEGIN EXCLUSIVE"), SQLITE_OK);
    QElapsedTimer timer;
    timer.start();
    open();
    save(note("A"));
    EXPECT_EQ(search(QStringLiteral("text")), IndexSearchResults());
    EXPECT_LT(timer.elapsed(), 2000);
    EXPECT_EQ(m_log.errors(), (QStringList{QStringLiteral("Failed to create basic tables"),
                                           QStringLiteral("Failed to execute FTS search: "
                                                          "database is locked")}));
    other.close();
    save(note("A"));
    EXPECT_EQ(rows(count), one("4"));
    EXPECT_EQ(m_log.infos(), one("Successfully created FTS5 content indexing tables"));
    EXPECT_EQ(filesThere(), one("TagIndex.db"));
}

TEST_F(IndexDatabaseDamageTest, TablesThatCouldNotBeMadeAreMadeLater)
{
    m_folder.put(m_name);
    Database other;
    other.open(file(), SQLITE_OPEN_READWRITE, nullptr);
    ASSERT_EQ(other.execute("BEGIN EXCLUSIVE"), SQLITE_OK);
    open();
    saveAll(notes(20));
    EXPECT_EQ(m_log.errors(), one("Failed to create basic tables"));
    other.close();
    saveAll(notes(20));
    EXPECT_EQ(rows(count), one("20"));
}

TEST_F(IndexDatabaseDamageTest, WhatCannotBeWrittenForALockIsLogged)
{
    open();
    save(note("A"));
    Database other;
    other.open(file(), SQLITE_OPEN_READWRITE, nullptr);
    ASSERT_EQ(other.execute("BEGIN EXCLUSIVE"), SQLITE_OK);
    save(note("B"));
    finished(m_database->removeFileFromDatabase("/vault/A.md"));
    finished(m_database->logSearchHistory(QStringLiteral("query"), 1, 0.1));
    EXPECT_EQ(m_log.errors(), (QStringList{QStringLiteral("Failed to save content to database: "
                                                          "database is locked"),
                                           QStringLiteral("Failed to remove file from database: "
                                                          "database is locked")}));
    other.close();
    save(note("B"));
    EXPECT_EQ(rows(count), one("2"));
}

TEST_F(IndexDatabaseDamageTest, AFullDiskIsLoggedForEachNoteAndDoesNoHarm)
{
    savedFile(3);
    open();
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit full{static_cast<rlim_t>(QFileInfo(file()).size()), before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &full), 0);
    FileMetadata large = note("Large", QByteArray("words ").repeated(30'000));
    save(large);
    large.path = "/vault/Larger.md";
    save(large);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, handler);
    const QString failure = QStringLiteral("Failed to save content to database: disk I/O error");
    EXPECT_EQ(m_log.errors(), (QStringList{failure, failure}));
    EXPECT_EQ(rows(count), one("3"));
    save(large);
    EXPECT_EQ(rows(count), one("4"));
    expectSound();
}

TEST_F(IndexDatabaseDamageTest, WithoutAFolderNothingIsKeptAndNothingFails)
{
    const QString inAFile = m_folder.pathOf(QStringLiteral("file/TagIndex.db"));
    m_folder.put(QStringLiteral("file"), "text");
    IndexDatabase database(inAFile, m_executor, m_clock);
    save(database, note("A"));
    finished(database.saveIndexToDatabase(mapOf(notes(3))));
    finished(database.removeFileFromDatabase("/vault/A.md"));
    finished(database.logSearchHistory(QStringLiteral("query"), 1, 0.1));
    EXPECT_TRUE(database.hasHandle());
    EXPECT_EQ(finished(database.searchContent(QStringLiteral("text"))), IndexSearchResults());
    EXPECT_EQ(m_log.errors(), (QStringList{QStringLiteral("Failed to open database"),
                                           QStringLiteral("Failed to execute FTS search: "
                                                          "unable to open database file")}));
    EXPECT_EQ(m_log.infos(), QStringList());
}

TEST_F(IndexDatabaseDamageTest, AFolderInThePlaceOfTheFileStays)
{
    m_folder.makeFolder(m_name);
    open();
    save(note("A"));
    EXPECT_EQ(m_log.errors(), one("Failed to open database"));
    EXPECT_TRUE(QFileInfo(file()).isDir());
    EXPECT_EQ(filesThere(), QStringList());
}

} // namespace jotwell
