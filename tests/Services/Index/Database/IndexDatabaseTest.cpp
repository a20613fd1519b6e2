#include "Services/Index/Database/IndexDatabaseFixture.h"

#include "Services/Index/ContentHash.h"
#include "Services/Index/Database/IndexStatements.h"

#include <QFileInfo>

#include <limits>

#include <sys/stat.h>

namespace jotwell {

namespace {

using namespace std::chrono_literals;

const char* const everyTable = "SELECT name FROM sqlite_schema WHERE type = 'table' "
                               "AND name NOT LIKE 'sqlite_%' ORDER BY name";
const char* const everyIndex = "SELECT name FROM sqlite_schema WHERE type = 'index' "
                               "AND name NOT LIKE 'sqlite_%' ORDER BY name";
const char* const paths = "SELECT path FROM content_index ORDER BY id";

class IndexDatabaseTest : public IndexDatabaseFixture {};

QStringList words(const char* text)
{
    return QString::fromUtf8(text).split(u' ');
}

QString created()
{
    return QStringLiteral("Successfully created FTS5 content indexing tables");
}

} // namespace

TEST_F(IndexDatabaseTest, FirstStartCreatesTheFolderTheFileAndAllTables)
{
    open();
    EXPECT_TRUE(QFileInfo(file()).isFile());
    EXPECT_EQ(rows(everyTable),
              words("content_fts content_fts_config content_fts_data content_fts_docsize "
                    "content_fts_idx content_index file_tags files search_history tags"));
    EXPECT_EQ(rows(everyIndex), words("idx_content_hash idx_content_mod_date idx_content_path "
                                      "idx_file_mod_date idx_file_path idx_tag_name"));
    EXPECT_EQ(m_log.infos(), QStringList{created()});
    EXPECT_EQ(m_log.errors(), QStringList{});
}

TEST_F(IndexDatabaseTest, NoPragmaIsSet)
{
    open();
    save(note("A"));
    EXPECT_EQ(rows("PRAGMA journal_mode"), words("delete"));
    EXPECT_EQ(rows("PRAGMA user_version"), words("0"));
    EXPECT_EQ(rows("PRAGMA application_id"), words("0"));
    EXPECT_EQ(rows("PRAGMA auto_vacuum"), words("0"));
}

TEST_F(IndexDatabaseTest, EachColumnHoldsItsPartOfTheRecord)
{
    open();
    FileMetadata record;
    record.path = "/vault/Daily/a.b.md";
    record.fullContent = "# Größe **raw**";
    record.cleanedContent = "Größe raw";
    record.frontmatterTags = {QStringLiteral("zeta"), QStringLiteral("ähm \"x\"")};
    record.contentTags = {QStringLiteral("alpha"), QStringLiteral("zeta")};
    record.modificationDate = FakeClock::TimePoint(1709649967s + 999ms);
    record.fileSize = qint64(1) << 40;
    record.contentHash = std::numeric_limits<ContentHash>::max();
    record.wordCount = 2;
    record.indexedDate = FakeClock::TimePoint(-3s - 1ms);
    save(record);
    EXPECT_EQ(rows("SELECT * FROM content_index"),
              QStringList{QStringLiteral("1|/vault/Daily/a.b.md|a.b|# Größe **raw**|Größe raw|"
                                         "[\"alpha\",\"zeta\",\"ähm \\\"x\\\"\"]|"
                                         "1709649967|1099511627776|-1|2|-3")});
}

TEST_F(IndexDatabaseTest, EmptyTextsAreTextsAndNoTagsAreAnEmptyArray)
{
    open();
    FileMetadata record;
    record.path = "/vault/.md";
    save(record);
    EXPECT_EQ(rows("SELECT title = '', content = '', content_cleaned = '', tags_json "
                   "FROM content_index"),
              words("0|1|1|[]"));
    EXPECT_EQ(m_log.errors(), QStringList{});
}

TEST_F(IndexDatabaseTest, ATextEndsAtItsFirstNul)
{
    open();
    FileMetadata record = note("A", QByteArray("one\0two", 7));
    record.cleanedContent = QByteArray("\0", 1);
    save(record);
    EXPECT_EQ(rows("SELECT content, length(CAST(content AS BLOB)), content_cleaned = '' "
                   "FROM content_index"),
              words("one|3|1"));
}

// Such bytes have no NUL behind them to end at.
TEST_F(IndexDatabaseTest, ATextEndsWithItsBytes)
{
    open();
    FileMetadata record = note("A");
    record.fullContent = QByteArray::fromRawData("Some text and more", 9);
    save(record);
    EXPECT_EQ(rows("SELECT content FROM content_index"), QStringList{QStringLiteral("Some text")});
}

TEST_F(IndexDatabaseTest, ANoteSavedTwiceHasOneRowWithAHigherId)
{
    open();
    save(note("A", "first"));
    save(note("B", "other"));
    save(note("A", "second"));
    EXPECT_EQ(rows("SELECT id, path, content FROM content_index ORDER BY id"),
              (QStringList{QStringLiteral("2|/vault/B.md|other"),
                           QStringLiteral("3|/vault/A.md|second")}));
}

TEST_F(IndexDatabaseTest, AllNotesAreSavedInTheOrderOfTheMap)
{
    open();
    const NoteMap map = mapOf(notes(100));
    QStringList inOrder;
    map.forEach(
        [&](const FileMetadataPtr& each) { inOrder.append(QString::fromUtf8(each->path)); });
    finished(m_database->saveIndexToDatabase(map));
    EXPECT_EQ(rows(paths), inOrder);
    EXPECT_EQ(inOrder.size(), 100);
}

TEST_F(IndexDatabaseTest, SavingAnEmptyIndexEnds)
{
    open();
    saveAll({});
    EXPECT_EQ(rows(paths), QStringList{});
}

TEST_F(IndexDatabaseTest, RowsOfNotesThatWentAwayStay)
{
    open();
    saveAll({note("A"), note("B")});
    close();
    open();
    saveAll({note("B")});
    EXPECT_EQ(rows(paths), words("/vault/A.md /vault/B.md"));
}

TEST_F(IndexDatabaseTest, AnExistingRowCannotBeRemoved)
{
    open();
    save(note("A"));
    finished(m_database->removeFileFromDatabase("/vault/A.md"));
    EXPECT_EQ(rows(paths), words("/vault/A.md"));
    EXPECT_EQ(m_log.errors(), QStringList{QStringLiteral("Failed to remove file from database: "
                                                         "no such column: T.tags")});
}

TEST_F(IndexDatabaseTest, ARowThatCouldNotBeRemovedCanBeSavedAgain)
{
    open();
    save(note("A", "first"));
    finished(m_database->removeFileFromDatabase("/vault/A.md"));
    save(note("A", "second"));
    EXPECT_EQ(rows("SELECT content FROM content_index"), words("second"));
}

TEST_F(IndexDatabaseTest, RemovingAnUnknownNoteSaysNothing)
{
    open();
    finished(m_database->removeFileFromDatabase("/vault/A.md"));
    EXPECT_EQ(m_log.errors(), QStringList{});
}

TEST_F(IndexDatabaseTest, ARestartLeavesTheTablesAsTheyAre)
{
    open();
    save(note("A"));
    const QStringList before = rows("SELECT * FROM sqlite_schema");
    close();
    open();
    EXPECT_EQ(rows("SELECT * FROM sqlite_schema"), before);
    EXPECT_EQ(rows(paths), words("/vault/A.md"));
    EXPECT_EQ(m_log.infos(), (QStringList{created(), created()}));
}

TEST_F(IndexDatabaseTest, NothingIsEverWrittenToTheBasicTables)
{
    open();
    FileMetadata record = note("A");
    record.frontmatterTags = {QStringLiteral("tag")};
    save(record);
    saveAll({record});
    finished(m_database->removeFileFromDatabase(record.path));
    EXPECT_EQ(rows("SELECT (SELECT count(*) FROM files), (SELECT count(*) FROM tags), "
                   "(SELECT count(*) FROM file_tags)"),
              words("0|0|0"));
}

TEST_F(IndexDatabaseTest, OtherUsersCanReadNeitherTheFolderNorTheFile)
{
    const mode_t before = umask(0);
    open();
    save(note("A"));
    umask(before);
    const QFile::Permissions owner =
        QFile::ReadOwner | QFile::ReadUser | QFile::WriteOwner | QFile::WriteUser;
    EXPECT_EQ(QFile::permissions(file()), owner);
    EXPECT_EQ(QFile::permissions(m_folder.pathOf(QStringLiteral("com.jotwell"))),
              owner | QFile::ExeOwner | QFile::ExeUser);
}

TEST_F(IndexDatabaseTest, AnOlderFileIsClosedToOthers)
{
    open();
    close();
    ASSERT_TRUE(QFile::setPermissions(file(), QFile::Permissions(0x6644)));
    open();
    EXPECT_EQ(QFile::permissions(file()) & QFile::Permissions(0x0077), QFile::Permissions());
}

TEST_F(IndexDatabaseTest, TwoDatabasesDoNotDisturbEachOther)
{
    open();
    const QString second = m_folder.pathOf(QStringLiteral("second/TagIndex.db"));
    QThreadPool executor;
    executor.setMaxThreadCount(1);
    {
        IndexDatabase other(second, executor, m_clock);
        auto first = m_database->saveIndexToDatabase(mapOf(notes(50)));
        finished(other.saveIndexToDatabase(mapOf(notes(40))));
        finished(std::move(first));
    }
    executor.waitForDone();
    EXPECT_EQ(rows("SELECT count(*) FROM content_index"), words("50"));
    EXPECT_EQ(m_log.errors(), QStringList{});
}

TEST_F(IndexDatabaseTest, ASearchIsLoggedWithItsTimeInMilliseconds)
{
    open();
    m_clock.set(FakeClock::TimePoint(1709649967s + 900ms));
    finished(m_database->logSearchHistory(QStringLiteral("größe \"x\""), 7, 0.0125));
    EXPECT_EQ(rows("SELECT * FROM search_history"),
              QStringList{QStringLiteral("1|größe \"x\"|7|12.5|1709649967")});
}

using IndexDatabaseDeathTest = IndexDatabaseTest;

TEST_F(IndexDatabaseDeathTest, AWordCountOutsideTheRangeStopsTheProgram)
{
    FileMetadata record = note("A");
    record.wordCount = std::numeric_limits<int>::max();
    open();
    save(record);
    record.path = "/vault/B.md";
    record.wordCount = std::numeric_limits<int>::min();
    save(record);
    EXPECT_EQ(rows("SELECT word_count FROM content_index"), words("2147483647 -2147483648"));
    for (const qint64 count : {qint64(std::numeric_limits<int>::max()) + 1,
                               qint64(std::numeric_limits<int>::min()) - 1}) {
        record.wordCount = count;
        Database database;
        database.open(file(), SQLITE_OPEN_READWRITE, nullptr);
        EXPECT_DEATH(ContentWriter(database).save(record),
                     "word count -?2147483[0-9]+ is out of range");
    }
}

} // namespace jotwell
