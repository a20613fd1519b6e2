#include "Services/Index/Database/IndexDatabaseFixture.h"

namespace jotwell {

namespace {

using namespace std::chrono_literals;

// What a search is to run, and what the rows of which it is to give.
const char* const told = "    SELECT \n        c.path,\n        c.title,\n        c.tags_json,\n"
                         "        c.modification_date,\n"
                         "        snippet(content_fts, 2, '<mark>', '</mark>', '...', 30) as "
                         "snippet,\n        bm25(content_fts) as rank\n"
                         "    FROM content_index c\n"
                         "    JOIN content_fts ON c.id = content_fts.rowid\n"
                         "    WHERE content_fts MATCH ?\n    ORDER BY rank\n    LIMIT 50";

class IndexDatabaseSearchTest : public IndexDatabaseFixture {
protected:
    void SetUp() override { open(); }

    /// Gives the content table the column that the full-text table reads.
    void mendTheSchema() const
    {
        ASSERT_EQ(rows("ALTER TABLE content_index ADD COLUMN tags"), QStringList());
    }
    /// Afterwards rows can be changed from outside without the full-text table.
    void dropTheUpdateTrigger() const
    {
        ASSERT_EQ(rows("DROP TRIGGER content_fts_update"), QStringList());
    }

    /// The same as `search`, row for row, by stepping from outside.
    [[nodiscard]] IndexSearchResults steppedRows(const QString& ftsQuery) const
    {
        Database database;
        database.open(file(), SQLITE_OPEN_READWRITE, nullptr);
        Statement statement(database.handle(), told);
        const QByteArray query = ftsQuery.toUtf8();
        statement.bindText(1, query);
        IndexSearchResults results;
        while (statement.step() == SQLITE_ROW) {
            IndexSearchResult result;
            result.path = QString::fromUtf8(statement.text(0));
            result.title = QString::fromUtf8(statement.text(1));
            result.tags = {QStringLiteral("greeting")};
            result.modificationDate = Clock::TimePoint(std::chrono::seconds(statement.integer(3)));
            result.matchType = MatchType::fullText;
            result.snippet = QString::fromUtf8(statement.text(4));
            result.relevanceScore = statement.real(5);
            results.append(result);
        }
        return results;
    }

    static FileMetadata tagged(FileMetadata record)
    {
        record.contentTags = {QStringLiteral("greeting")};
        return record;
    }

    /// The only row that is found for "hello", once the one note's column holds `value`.
    [[nodiscard]] IndexSearchResult helloWith(const char* column, const QByteArray& value)
    {
        save(note("A", "hello"));
        mendTheSchema();
        dropTheUpdateTrigger();
        const QByteArray set = "UPDATE content_index SET " + QByteArray(column) + " = " + value;
        EXPECT_EQ(rows(set.constData()), QStringList());
        const IndexSearchResults found = search(QStringLiteral("hello"));
        EXPECT_EQ(found.size(), 1);
        return found.value(0);
    }
};

QStringList pathsOf(const IndexSearchResults& results)
{
    QStringList paths;
    for (const IndexSearchResult& each : results)
        paths.append(each.path);
    return paths;
}

struct Query {
    const char* rule;
    const char* text;
    bool findsSomething;
};

class SkippedSearchTest : public IndexDatabaseSearchTest,
                          public testing::WithParamInterface<Query> {};

void PrintTo(const Query& query, std::ostream* out)
{
    *out << query.rule;
}

} // namespace

// The schema as it stands fails at the first row that is found, so that nothing has to be looked
// for; with the column that it lacks, what is found is told.
TEST_P(SkippedSearchTest, GivesWhatSteppingGives)
{
    save(tagged(note("Hello", "Say hello to the wide world, and hello again")));
    save(tagged(note("World", "Worlds apart. Nothing else here but a test of worlds")));
    save(tagged(note("Last", "An unquiet greeting: größe")));
    save(tagged(note("Hello", "Say hello to the whole wide world")));
    const QString query = QString::fromUtf8(GetParam().text);
    EXPECT_EQ(steppedRows(query), IndexSearchResults());
    EXPECT_EQ(search(query), IndexSearchResults());
    mendTheSchema();
    EXPECT_EQ(search(query), steppedRows(query));
    EXPECT_EQ(!search(query).isEmpty(), GetParam().findsSomething);
    EXPECT_EQ(m_log.errors(), QStringList());
}

INSTANTIATE_TEST_SUITE_P(
    Queries, SkippedSearchTest,
    testing::Values(
        Query{"a word", "hello", true}, Query{"a word that is nowhere", "absent", false},
        Query{"a word of a replaced row alone", "again", false},
        Query{"two words", "wide world", true}, Query{"a phrase", "\"wide world\"", true},
        Query{"a phrase that is nowhere", "\"world wide\"", false},
        Query{"a beginning", "wor*", true}, Query{"a form of a word", "worlds", true},
        Query{"or", "absent OR hello", true}, Query{"not", "world NOT hello", true},
        Query{"not, finding nothing", "hello NOT world", false},
        Query{"near", "NEAR(say world, 10)", true}, Query{"first in its column", "^hello", true},
        Query{"a column", "title: world", true},
        Query{"the column that is missing", "tags: greeting", true},
        Query{"a column that isn't indexed", "path: vault", false},
        Query{"a column that there isn't", "none: hello", false},
        Query{"other than ASCII", "GRÖSSE OR größe", true}, Query{"nothing", "", false},
        Query{"blanks", "   ", false}, Query{"an open quote", "\"hello", false},
        Query{"an open bracket", "(hello", false}, Query{"an operator alone", "AND", false},
        Query{"a question mark", "hello?", false}, Query{"a quote", "don't", false},
        Query{"a special query", "*id", false}, Query{"another special query", "*reads", false},
        Query{"an unknown special query", "*hello", false}, Query{"a star", "*", false}),
    [](const testing::TestParamInfo<Query>& each) { return "query" + std::to_string(each.index); });

TEST_F(IndexDatabaseSearchTest, ARowIsToldWithAllThatItHolds)
{
    FileMetadata record = note("Greetings", "Say hello to the world");
    record.modificationDate = FakeClock::TimePoint(1709649967s + 700ms);
    record.contentTags = {QStringLiteral("b"), QStringLiteral("ä/c")};
    save(record);
    save(note("Other", "Nothing of interest"));
    mendTheSchema();
    const IndexSearchResults found = search(QStringLiteral("hello"));
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found[0].path, QStringLiteral("/vault/Greetings.md"));
    EXPECT_EQ(found[0].title, QStringLiteral("Greetings"));
    EXPECT_EQ(found[0].tags, (QStringList{QStringLiteral("b"), QStringLiteral("ä/c")}));
    EXPECT_EQ(found[0].modificationDate, FakeClock::TimePoint(1709649967s));
    EXPECT_EQ(found[0].matchType, MatchType::fullText);
    EXPECT_EQ(found[0].snippet, QStringLiteral("Say <mark>hello</mark> to the world"));
    ASSERT_TRUE(found[0].relevanceScore.has_value());
    EXPECT_LT(*found[0].relevanceScore, 0);
}

TEST_F(IndexDatabaseSearchTest, TheBestComesFirst)
{
    save(note("A", "hello and a good many other words beside it, on and on and on"));
    save(note("B", "hello hello hello"));
    save(note("C", "hello and hello and others"));
    save(note("D", "none"));
    save(note("E", "none"));
    save(note("F", "none"));
    save(note("G", "none"));
    mendTheSchema();
    const IndexSearchResults found = search(QStringLiteral("hello"));
    EXPECT_EQ(pathsOf(found),
              (QStringList{QStringLiteral("/vault/B.md"), QStringLiteral("/vault/C.md"),
                           QStringLiteral("/vault/A.md")}));
    EXPECT_LT(found[0].relevanceScore, found[1].relevanceScore);
}

TEST_F(IndexDatabaseSearchTest, FiftyAtMost)
{
    saveAll(notes(60));
    mendTheSchema();
    EXPECT_EQ(search(QStringLiteral("text")).size(), 50);
}

TEST_F(IndexDatabaseSearchTest, TheColumnMayComeAndGoWhileTheDatabaseIsOpen)
{
    save(note("A", "hello"));
    EXPECT_EQ(search(QStringLiteral("hello")).size(), 0);
    mendTheSchema();
    EXPECT_EQ(search(QStringLiteral("hello")).size(), 1);
    ASSERT_EQ(rows("ALTER TABLE content_index DROP COLUMN tags"), QStringList());
    EXPECT_EQ(search(QStringLiteral("hello")).size(), 0);
}

TEST_F(IndexDatabaseSearchTest, TagsAreReadFromAJsonArrayOfTexts)
{
    const auto tagsFor = [this](const QByteArray& value) {
        close();
        m_folder.remove(m_name);
        open();
        return helloWith("tags_json", value).tags;
    };
    EXPECT_EQ(tagsFor("'[\"b\", \"a\"]'"), (QStringList{QStringLiteral("b"), QStringLiteral("a")}));
    for (const char* other : {"NULL", "''", "'[]'", "'{\"a\": \"b\"}'", "'\"a\"'", "'[\"a\"'",
                              "'a'", "'[\"a\", 1]'", "'[\"a\", null]'", "7"})
        EXPECT_EQ(tagsFor(other), QStringList()) << other;
}

TEST_F(IndexDatabaseSearchTest, ADateOfAnySizeIsTaken)
{
    EXPECT_GT(helloWith("modification_date", "9223372036854775807").modificationDate,
              FakeClock::TimePoint(FakeClock::usualTime));
}

TEST_F(IndexDatabaseSearchTest, ANullSnippetIsNone)
{
    close();
    m_folder.remove(m_name);
    m_folder.put(m_name);
    ASSERT_EQ(rows("CREATE TABLE content_index (id INTEGER PRIMARY KEY, path TEXT UNIQUE, title, "
                   "content, content_cleaned, tags_json, modification_date, file_size, "
                   "content_hash, word_count, indexed_date, tags)"),
              QStringList());
    open();
    save(note("A", "hello"));
    dropTheUpdateTrigger();
    ASSERT_EQ(rows("UPDATE content_index SET content = NULL"), QStringList());
    const IndexSearchResults found = search(QStringLiteral("hello"));
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found[0].snippet, std::nullopt);
}

TEST_F(IndexDatabaseSearchTest, ASearchThatCannotBePreparedIsLogged)
{
    ASSERT_EQ(rows("DROP TABLE content_fts"), QStringList());
    EXPECT_EQ(search(QStringLiteral("hello")), IndexSearchResults());
    EXPECT_EQ(m_log.errors(), QStringList{QStringLiteral(
                                  "Failed to execute FTS search: no such table: content_fts")});
}

} // namespace jotwell
