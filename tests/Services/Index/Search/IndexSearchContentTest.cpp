#include "Services/Index/Search/IndexSearchFixture.h"
#include "Support/Database.h"

#include <random>

namespace jotwell {

namespace {

using namespace std::chrono_literals;

class SearchContent : public IndexSearchFixture {};

TEST_F(SearchContent, FindsEveryTermInTheTextOrInTheTitle)
{
    put("Garden.md", "Trees and FLOWERS grow here");
    put("House.md", "Flowers stand here");
    EXPECT_EQ(contentFor(u"flowers GARDEN"_qs), QStringList({u"Garden"_qs}));
    EXPECT_EQ(contentFor(u"flowers"_qs).size(), 2);
    EXPECT_EQ(contentFor(u"flowers trees house"_qs), QStringList());
}

TEST_F(SearchContent, NeitherExtensionNorFolderIsSearched)
{
    put("Folder/Garden.md", "Trees");
    EXPECT_EQ(contentFor(u"md"_qs), QStringList());
    EXPECT_EQ(contentFor(u"folder"_qs), QStringList());
    EXPECT_EQ(contentFor(u"vault"_qs), QStringList());
}

TEST_F(SearchContent, AResultHasASnippet)
{
    put("Garden.md", "Nothing is here. Trees grow here. Trees.", {u"a"_qs});
    const SearchAnswer answer = searchContent(u"TREES"_qs);
    ASSERT_EQ(answer.results.size(), 1);
    IndexSearchResult expected;
    expected.title = u"Garden"_qs;
    expected.path = u"/vault/Garden.md"_qs;
    expected.tags = {u"a"_qs};
    expected.modificationDate = m_clock.now();
    expected.matchType = MatchType::content;
    expected.snippet = u"Trees grow here"_qs;
    EXPECT_EQ(answer.results.front(), expected);
}

TEST_F(SearchContent, ATermOfTheTitleGetsTheStartOfTheNote)
{
    put("Garden.md", "Trees grow here. So do flowers.");
    EXPECT_EQ(searchContent(u"garden"_qs).results.front().snippet,
              u"Trees grow here. So do flowers."_qs);
}

TEST_F(SearchContent, BlanksAloneFindTheNewestFifty)
{
    putMany(60);
    const SearchAnswer answer = searchContent(u"  "_qs);
    ASSERT_EQ(answer.results.size(), 50);
    EXPECT_EQ(answer.results.front().title, u"Note 59"_qs);
    EXPECT_EQ(answer.results.back().title, u"Note 10"_qs);
    EXPECT_EQ(answer.metrics.filesScanned, 60);
    EXPECT_EQ(answer.metrics.resultCount, 50);
}

TEST_F(SearchContent, TheWordCodeFindsFencedBlocks)
{
    put("With.md", "before [code] after");
    put("Without.md", "before after");
    EXPECT_EQ(contentFor(u"code"_qs), QStringList({u"With"_qs}));
}

TEST_F(SearchContent, IsNeitherLoggedNorKeptWhenItIsDoneInMemory)
{
    putMany(3);
    searchContent(u"text"_qs);
    EXPECT_EQ(m_log.infos().filter(u"Search completed"_qs), QStringList());
    EXPECT_EQ(m_log.errors(), QStringList());
    EXPECT_TRUE(search().cache().isEmpty());
    EXPECT_EQ(searchContent(u"text"_qs).metrics.filesScanned, 3);
}

TEST_F(SearchContent, AnEmptyQueryGivesTheEmptyResult)
{
    putMany(3);
    const SearchAnswer answer = searchContent(u""_qs);
    EXPECT_TRUE(answer.results.isEmpty());
    EXPECT_EQ(answer.metrics.filesScanned, 0);
}

TEST_F(SearchContent, AMarkInFrontMakesItASearchForTags)
{
    put("A.md", "text #b", {u"a"_qs});
    EXPECT_EQ(searchContent(u"#a"_qs).results.front().matchType, MatchType::tag);
    EXPECT_EQ(contentFor(u"#b"_qs), QStringList());
    EXPECT_EQ(contentFor(u" #b"_qs), QStringList({u"A"_qs}));
}

TEST_F(SearchContent, ALongNoteIsSearchedToItsEnd)
{
    put("Long.md", QByteArray(3'000'000, 'x') + " last");
    EXPECT_EQ(contentFor(u"last"_qs), QStringList({u"Long"_qs}));
}

TEST_F(SearchContent, AgreesWithThePlainFormWhateverTheThreads)
{
    static const QList<QByteArray> words{"one", "Two", "three", "\xc4\xb0", "\xe2\x84\xaa", "four"};
    std::mt19937 random(20240305);
    const auto word = [&] { return words[static_cast<qsizetype>(random() % words.size())]; };
    for (int number = 0; number < 300; ++number) {
        put(word() + QByteArray::number(number) + ".md", word() + " " + word());
        m_clock.advance(random() % 3 == 0 ? 1s : 0s);
    }
    for (const QString& query : {u"one"_qs, u"TWO three"_qs, u"k"_qs, u"i\u0307 four"_qs}) {
        std::vector<std::pair<Clock::TimePoint, QString>> expected;
        m_index.notes().forEach([&](const FileMetadataPtr& note) {
            const QString text = QString::fromUtf8(note->cleanedContent).toLower();
            const QString title = QString::fromUtf8(note->title());
            for (const QString& term : query.toLower().split(u' ')) {
                if (!text.contains(term) && !title.toLower().contains(term))
                    return;
            }
            expected.emplace_back(note->modificationDate, title);
        });
        std::stable_sort(expected.begin(), expected.end(),
                         [](const auto& a, const auto& b) { return a.first > b.first; });
        expected.resize(std::min<std::size_t>(50, expected.size()));
        m_background.setMaxThreadCount(1 + static_cast<int>(random() % 4));
        const SearchAnswer answer = searchContent(query);
        ASSERT_EQ(answer.results.size(), qsizetype(expected.size()));
        for (qsizetype i = 0; i < answer.results.size(); ++i)
            EXPECT_EQ(answer.results[i].modificationDate, expected[std::size_t(i)].first);
    }
}

TEST_F(SearchContent, IsDoneInMemoryWhereThereIsNoDatabase)
{
    m_folder.makeFolder(u"x.db"_qs);
    putMany(3);
    EXPECT_EQ(contentFor(u"text"_qs).size(), 3);
    EXPECT_EQ(m_log.errors().filter(u"Failed to execute FTS search: "_qs).size(), 1);
}

TEST_F(SearchContent, OutlivesTheIndexAndItsSearch)
{
    putMany(100);
    auto inMemory = search().performInMemoryContentSearch(u"text"_qs, m_clock.now());
    auto byDatabase = search().searchContent(u"text"_qs);
    m_search.reset();
    m_database.reset();
    m_index = NoteIndex();
    EXPECT_EQ(finished(std::move(inMemory)).results.size(), 50);
    EXPECT_EQ(finished(std::move(byDatabase)).results.size(), 0);
}

// The full-text table can only be read where the notes' table has the column that it names.
class FullTextSearch : public SearchContent {
protected:
    FullTextSearch()
    {
        openDatabase();
        closeDatabase();
        execute("ALTER TABLE content_index ADD COLUMN tags TEXT");
        openDatabase();
        save("Garden.md", "Many trees grow here, and flowers", {u"a"_qs});
        save("House.md", "Flowers stand here");
    }

    void save(const QByteArray& name, const QByteArray& text, const TagSet& tags = {})
    {
        FileMetadata record;
        record.path = "/vault/" + name;
        record.modificationDate = Clock::TimePoint(1500ms);
        record.contentTags = tags;
        record.cleanedContent = text;
        auto pointer = std::make_shared<const FileMetadata>(std::move(record));
        finished(m_database->saveContentToDatabase(std::move(pointer)));
    }

    void execute(const char* sql)
    {
        Database database;
        database.open(databaseFile(), SQLITE_OPEN_READWRITE, nullptr);
        ASSERT_EQ(database.execute(sql), SQLITE_OK);
    }

    [[nodiscard]] QStringList history() const
    {
        Database database;
        database.open(databaseFile(), SQLITE_OPEN_READWRITE, nullptr);
        Statement statement(database.handle(), "SELECT query || '|' || result_count || '|' || "
                                               "timestamp FROM search_history");
        QStringList rows;
        while (statement.step() == SQLITE_ROW)
            rows.append(QString::fromUtf8(statement.text(0)));
        return rows;
    }
};

TEST_F(FullTextSearch, GivesTheRowsOfTheTable)
{
    const SearchAnswer answer = searchContent(u"tree AND flower"_qs);
    ASSERT_EQ(answer.results.size(), 1);
    const IndexSearchResult& found = answer.results.front();
    EXPECT_EQ(found.title, u"Garden"_qs);
    EXPECT_EQ(found.path, u"/vault/Garden.md"_qs);
    EXPECT_EQ(found.tags, QStringList({u"a"_qs}));
    EXPECT_EQ(found.modificationDate, Clock::TimePoint(1s));
    EXPECT_EQ(found.matchType, MatchType::fullText);
    EXPECT_TRUE(found.relevanceScore.has_value());
    EXPECT_TRUE(found.snippet.has_value());
    EXPECT_EQ(answer.metrics.filesScanned, 1);
    EXPECT_EQ(answer.metrics.resultCount, 1);
}

TEST_F(FullTextSearch, IsLoggedAndEntersTheHistory)
{
    m_log.clear();
    searchContent(u"flower AND here"_qs);
    EXPECT_EQ(m_log.infos(), QStringList({u"Search completed: 0.00ms, 2 files scanned, "
                                          "cache hit: false, 2 results"_qs}));
    EXPECT_EQ(history(), QStringList({u"flower AND here|2|1709649967"_qs}));
    EXPECT_TRUE(search().cache().isEmpty());
}

TEST_F(FullTextSearch, WithoutARowIsDoneInMemory)
{
    put("Memory.md", "Something else");
    m_log.clear();
    EXPECT_EQ(contentFor(u"something"_qs), QStringList({u"Memory"_qs}));
    EXPECT_EQ(m_log.infos(), QStringList());
    EXPECT_EQ(history(), QStringList());
}

TEST_F(FullTextSearch, ABrokenQueryIsDoneInMemory)
{
    put("Memory.md", "flowers \"here");
    EXPECT_EQ(contentFor(u"\"here"_qs), QStringList({u"Memory"_qs}));
}

} // namespace

} // namespace jotwell
