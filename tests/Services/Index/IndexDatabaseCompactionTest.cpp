#include "Services/Index/IndexDatabaseFixture.h"

#include "Services/Index/IndexCompaction.h"
#include "Services/Index/IndexConnection.h"

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

/// 30 notes, of which a vault has only 20 any more.
std::vector<FileMetadata> withVanished(std::vector<FileMetadata> notes, const FileMetadata& like)
{
    for (int number = 0; number < 10; ++number) {
        FileMetadata record = like;
        record.path = "/vault/Vanished " + QByteArray::number(number) + ".md";
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
    open();
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
    const std::vector<FileMetadata> records = notes(250);
    open();
    saveAll(records);
    const qint64 first = QFileInfo(file()).size();
    for (int restart = 0; restart < 100; ++restart) {
        restartAndSave(records);
        ASSERT_LT(QFileInfo(file()).size(), 2 * first) << restart;
    }
    EXPECT_EQ(rows("SELECT count(*) FROM content_index"), one("250"));
}

TEST_F(IndexDatabaseCompactionTest, ItMakesWayForASearchAndLeavesNothingHalfDone)
{
    open();
    saveAll(withVanished(notes(200), note("like", "a text of a gone note")));
    const QStringList before = answers();
    close();
    IndexConnection connection(file());
    connection.prepare();
    connection.searchWaits();
    EXPECT_EQ(compact(connection, {}), SQLITE_INTERRUPT);
    EXPECT_EQ(entries(), 210);
    connection.searchRuns();
    EXPECT_EQ(compact(connection, {}), SQLITE_OK);
    EXPECT_EQ(entries(), 210);
    EXPECT_EQ(answers(), before);
    connection.close();
}

TEST_F(IndexDatabaseCompactionTest, NotesToBeSavedAreLeftToTheirSaving)
{
    open();
    saveAll(notes(20));
    close();
    IndexConnection connection(file());
    connection.prepare();
    EXPECT_EQ(compact(connection, mapOf(notes(15))), SQLITE_OK);
    EXPECT_EQ(entries(), 5);
    connection.close();
}

using IndexDatabaseCompactionDeathTest = IndexDatabaseCompactionTest;

TEST_F(IndexDatabaseCompactionDeathTest, ACrashInTheMiddleLeavesTheFileAsItWas)
{
    open();
    saveAll(withVanished(notes(200), note("like", "a text of a gone note")));
    const QStringList before = answers();
    close();
    const auto crash = [this] {
        IndexConnection connection(file());
        connection.prepare();
        // Little room in memory, so that what is undone stands in the file already.
        connection.database().execute("PRAGMA cache_size = 10");
        const auto die = [](void*) -> int { std::_Exit(7); };
        sqlite3_commit_hook(connection.database().handle(), die, nullptr);
        static_cast<void>(compact(connection, {}));
    };
    EXPECT_EXIT(crash(), testing::ExitedWithCode(7), "");
    EXPECT_TRUE(QFileInfo::exists(file() + QStringLiteral("-journal")));
    open();
    EXPECT_EQ(answers(), before);
    EXPECT_EQ(entries(), 210);
    EXPECT_EQ(rows("PRAGMA integrity_check"), one("ok"));
    EXPECT_EQ(m_log.errors(), QStringList());
}

} // namespace jotwell
