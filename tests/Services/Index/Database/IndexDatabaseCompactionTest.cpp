#include "Services/Index/Database/IndexDatabaseFixture.h"

#include "Services/Index/Database/IndexCompaction.h"
#include "Services/Index/Database/IndexConnection.h"
#include "Services/Index/Database/IndexSave.h"

#include <QFileInfo>

#include <cstdlib>

namespace jotwell {

namespace {

class IndexDatabaseCompactionTest : public IndexDatabaseFixture {
protected:
    void restartAndSave(const std::vector<FileMetadata>& records)
    {
        close();
        open();
        saveAll(records);
    }

    /// Leaves two entries without a row for each note.
    void saveThrice(const std::vector<FileMetadata>& records)
    {
        for (int start = 0; start < 3; ++start)
            restartAndSave(records);
        close();
    }
    /// A database with these notes.
    [[nodiscard]] Database saved(const std::vector<FileMetadata>& records)
    {
        restartAndSave(records);
        close();
        Database database;
        database.open(file(), SQLITE_OPEN_READWRITE, nullptr);
        return database;
    }

    [[nodiscard]] int entries() const
    {
        return rows("SELECT count(*) FROM content_fts_docsize").value(0).toInt();
    }

    /// What some queries find, text by text.
    [[nodiscard]] QStringList answers() const
    {
        QStringList found;
        for (const char* query : {"text", "note", "7", "gone", "\"of note 1*\"", "title: vanished",
                                  "text NOT note", "vanish OR 3", "NEAR(the note)"}) {
            const QByteArray sql = "SELECT path FROM content_index WHERE id IN "
                                   "(SELECT rowid FROM content_fts WHERE content_fts MATCH '" +
                                   QByteArray(query) + "') ORDER BY path";
            found += QString::fromUtf8(query) + rows(sql.constData()).join(u',');
        }
        return found;
    }
};

/// The notes, and ten more for a vault to lose.
std::vector<FileMetadata> withVanished(std::vector<FileMetadata> notes, const FileMetadata& like)
{
    for (int number = 0; number < 10; ++number) {
        FileMetadata record = like;
        record.path = "/vault/Vanished " + QByteArray::number(number) + ".md";
        notes.push_back(record);
    }
    return notes;
}

/// Notes of some 1 KB of a few thousand different words.
std::vector<FileMetadata> longNotes(int count)
{
    std::vector<FileMetadata> notes;
    for (int number = 0; number < count; ++number) {
        FileMetadata record;
        record.path = "/vault/Long " + QByteArray::number(number) + ".md";
        for (int word = 0; word < 120; ++word)
            record.fullContent +=
                "word" + QByteArray::number((number * 37 + word * 101) % 5000) + ' ';
        record.cleanedContent = record.fullContent;
        notes.push_back(record);
    }
    return notes;
}

QStringList one(const char* text)
{
    return {QString::fromUtf8(text)};
}

} // namespace

TEST_F(IndexDatabaseCompactionTest, LeftoversGoWhenTheyOutnumberTheLiving)
{
    for (const int expected : {20, 40, 60, 20, 40, 60, 20}) {
        restartAndSave(notes(20));
        EXPECT_EQ(entries(), expected);
    }
    EXPECT_EQ(rows("SELECT count(*), max(id) FROM content_index"), one("20|140"));
}

TEST_F(IndexDatabaseCompactionTest, TheSameIsFoundAsBefore)
{
    open();
    saveAll(withVanished(notes(20), note("like", "a text of a gone note")));
    const QStringList before = answers();
    ASSERT_TRUE(before.join(u' ').contains(QStringLiteral("/vault/Vanished 7.md")));
    int compactions = 0;
    for (int restart = 0; restart < 8; ++restart) {
        const int entriesBefore = entries();
        restartAndSave(notes(20));
        compactions += entries() < entriesBefore ? 1 : 0;
        EXPECT_EQ(answers(), before);
    }
    EXPECT_EQ(compactions, 2);
    EXPECT_EQ(rows("PRAGMA integrity_check"), one("ok"));
}

TEST_F(IndexDatabaseCompactionTest, AfterAHundredStartsTheFileIsBelowTwiceItsFirstSize)
{
    const std::vector<FileMetadata> records = longNotes(40);
    open();
    saveAll(records);
    const qint64 first = QFileInfo(file()).size();
    for (int restart = 0; restart < 100; ++restart) {
        restartAndSave(records);
        ASSERT_LT(QFileInfo(file()).size(), 2 * first) << restart;
    }
    EXPECT_EQ(rows("SELECT count(*) FROM content_index"), one("40"));
}

TEST_F(IndexDatabaseCompactionTest, NotesToBeSavedAreLeftToTheirSaving)
{
    Database database = saved(notes(20));
    std::vector<qint64> others;
    EXPECT_EQ(dropEntries(database, mapOf(notes(15)), others), SQLITE_DONE);
    EXPECT_EQ(entries(), 0);
    EXPECT_EQ(others.size(), 5);
    for (const qint64 row : others)
        EXPECT_EQ(restoreEntry(database, row), SQLITE_DONE);
    EXPECT_EQ(entries(), 5);
    EXPECT_EQ(restoreEntry(database, 4711), SQLITE_DONE);
    EXPECT_EQ(entries(), 5);
}

TEST_F(IndexDatabaseCompactionTest, ARowIsFoundByItsRestoredEntryAsBefore)
{
    Database database = saved(withVanished(notes(20), note("like", "a text of a gone note")));
    const QStringList before = answers();
    std::vector<qint64> others;
    EXPECT_EQ(dropEntries(database, {}, others), SQLITE_DONE);
    EXPECT_NE(answers(), before);
    for (const qint64 row : others)
        restoreEntry(database, row);
    EXPECT_EQ(answers(), before);
}

TEST_F(IndexDatabaseCompactionTest, WhatCannotBeDroppedStays)
{
    Database database = saved(notes(20));
    Database other;
    other.open(file(), SQLITE_OPEN_READWRITE, nullptr);
    other.execute("BEGIN IMMEDIATE");
    std::vector<qint64> others;
    EXPECT_EQ(dropEntries(database, {}, others), SQLITE_BUSY);
    EXPECT_TRUE(others.empty());
    other.close();
    EXPECT_EQ(entries(), 20);
}

// It takes so long that a search neither waits for it nor is kept waiting by it.
TEST_F(IndexDatabaseCompactionTest, ASearchAndLongWorkDoNotMeet)
{
    IndexConnection connection(file());
    EXPECT_TRUE(connection.beginWaiting());
    EXPECT_FALSE(connection.beginLongWork());
    connection.endWaiting();
    EXPECT_TRUE(connection.beginLongWork());
    EXPECT_FALSE(connection.beginWaiting());
    connection.endLongWork();
    EXPECT_TRUE(connection.beginWaiting());
    connection.endWaiting();
    connection.stop();
    EXPECT_FALSE(connection.beginLongWork());
}

TEST_F(IndexDatabaseCompactionTest, ASearchThatHasEndedHoldsNothingUp)
{
    saveThrice(notes(20));
    open();
    search(QStringLiteral("text"));
    saveAll(notes(20));
    EXPECT_EQ(entries(), 20);
}

TEST_F(IndexDatabaseCompactionTest, ASaveMakesWayForASearchAndCompactsBehindIt)
{
    saveThrice(notes(20));
    IndexConnection connection(file());
    IndexSave saving(mapOf(notes(20)));
    ASSERT_TRUE(connection.beginWaiting());
    for (int slice = 0; slice < 3; ++slice)
        saving.runSlice(connection);
    EXPECT_EQ(entries(), 60);
    connection.endWaiting();
    saving.runSlice(connection);
    EXPECT_EQ(entries(), 0);
    while (!saving.isFinished())
        saving.runSlice(connection);
    EXPECT_EQ(entries(), 20);
    EXPECT_TRUE(connection.beginWaiting());
    connection.close();
}

TEST_F(IndexDatabaseCompactionTest, AnEndInTheMiddleIsMadeGoodByTheNextSave)
{
    const std::vector<FileMetadata> records = notes(200);
    saveThrice(records);
    const QStringList before = answers();
    IndexConnection connection(file());
    IndexSave saving(mapOf(records));
    for (int slice = 0; slice < 5; ++slice)
        saving.runSlice(connection);
    connection.close();
    EXPECT_LT(entries(), 200);
    EXPECT_EQ(rows("PRAGMA integrity_check"), one("ok"));
    restartAndSave(records);
    EXPECT_EQ(answers(), before);
}

using IndexDatabaseCompactionDeathTest = IndexDatabaseCompactionTest;

TEST_F(IndexDatabaseCompactionDeathTest, ACrashInTheMiddleLeavesTheFileAsItWas)
{
    Database database = saved(notes(200));
    const QStringList before = answers();
    const auto crash = [&] {
        // Little room in memory, so that what is undone stands in the file already.
        database.execute("PRAGMA cache_size = 10");
        const auto die = [](void*) -> int { std::_Exit(7); };
        sqlite3_commit_hook(database.handle(), die, nullptr);
        std::vector<qint64> others;
        dropEntries(database, {}, others);
    };
    EXPECT_EXIT(crash(), testing::ExitedWithCode(7), "");
    EXPECT_TRUE(QFileInfo::exists(file() + QStringLiteral("-journal")));
    database.close();
    open();
    EXPECT_EQ(answers(), before);
    EXPECT_EQ(entries(), 200);
    EXPECT_EQ(rows("PRAGMA integrity_check"), one("ok"));
    EXPECT_EQ(m_log.errors(), QStringList());
}

} // namespace jotwell
