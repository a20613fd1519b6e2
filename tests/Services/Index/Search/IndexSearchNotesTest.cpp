#include "Services/Index/Search/IndexSearchFixture.h"

#include <algorithm>

namespace jotwell {

namespace {

using namespace std::chrono_literals;

class SearchNotes : public IndexSearchFixture {};

TEST_F(SearchNotes, FindsEveryTermInTheNameRegardlessOfCase)
{
    put("Big House.md");
    put("Big Boat.md");
    put("house/Small.md");
    EXPECT_EQ(namesFor(u"HOUSE big"_qs), QStringList({u"Big House"_qs}));
    EXPECT_EQ(namesFor(u"ouse"_qs), QStringList({u"Big House"_qs}));
    EXPECT_EQ(namesFor(u"boat house"_qs), QStringList());
}

TEST_F(SearchNotes, ATermMatchesTheExtensionAsWell)
{
    putMany(3);
    EXPECT_EQ(namesFor(u"md"_qs).size(), 3);
}

TEST_F(SearchNotes, AResultIsMadeOfTheRecord)
{
    put("Folder/Big House.v2.md", "Text", {u"a"_qs, u"b"_qs});
    const SearchAnswer answer = searchNotes(u"house"_qs);
    ASSERT_EQ(answer.results.size(), 1);
    IndexSearchResult expected;
    expected.title = u"Big House.v2"_qs;
    expected.path = u"/vault/Folder/Big House.v2.md"_qs;
    expected.tags = {u"a"_qs, u"b"_qs};
    expected.modificationDate = m_clock.now();
    expected.matchType = MatchType::filename;
    EXPECT_EQ(answer.results.front(), expected);
}

TEST_F(SearchNotes, TheNewestFiftyComeFirst)
{
    putMany(60);
    const SearchAnswer answer = searchNotes(u"note"_qs);
    ASSERT_EQ(answer.results.size(), 50);
    EXPECT_EQ(answer.results.front().title, u"Note 59"_qs);
    EXPECT_EQ(answer.results.back().title, u"Note 10"_qs);
    EXPECT_EQ(answer.metrics.filesScanned, 60);
    EXPECT_EQ(answer.metrics.resultCount, 50);
    EXPECT_FALSE(answer.metrics.cacheHit);
}

TEST_F(SearchNotes, EquallyNewOnesStandByTheirPaths)
{
    for (int number = 99; number >= 40; --number)
        put("Note " + QByteArray::number(number) + ".md");
    const QStringList names = namesFor(u"note"_qs);
    ASSERT_EQ(names.size(), 50);
    EXPECT_EQ(names.front(), u"Note 40"_qs);
    EXPECT_EQ(names.back(), u"Note 89"_qs);
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
}

TEST_F(SearchNotes, TheQueryItselfIsTakenApartAndNotItsKey)
{
    put("Foo.md");
    EXPECT_EQ(namesFor(u"\nfoo"_qs), QStringList());
    EXPECT_EQ(search().cache().keys(), QStringList({u"foo"_qs}));
}

TEST_F(SearchNotes, TheResultDoesNotDependOnTheThreads)
{
    for (int number = 0; number < 400; ++number) {
        put("Note " + QByteArray::number(number) + ".md");
        m_clock.advance(number % 40 == 0 ? 1s : 0s);
    }
    m_background.setMaxThreadCount(1);
    const QStringList byOne = namesFor(u"note"_qs);
    EXPECT_EQ(byOne.size(), 50);
    for (int threads = 2; threads < 9; ++threads) {
        search().clearCache();
        m_background.setMaxThreadCount(threads);
        EXPECT_EQ(namesFor(u"note"_qs), byOne) << threads;
    }
}

class TaggedNotes : public SearchNotes {
protected:
    TaggedNotes()
    {
        put("A.md", {}, {u"a"_qs});
        m_clock.advance(1s);
        put("B.md", {}, {u"b"_qs, u"both"_qs});
        m_clock.advance(1s);
        put("C.md", {}, {u"both"_qs, u"c"_qs});
    }
};

TEST_F(TaggedNotes, HaveAllOfTheTags)
{
    EXPECT_EQ(namesFor(u"#both"_qs), QStringList({u"C"_qs, u"B"_qs}));
    EXPECT_EQ(namesFor(u"#both #c"_qs), QStringList({u"C"_qs}));
    EXPECT_EQ(namesFor(u"#c #both"_qs), QStringList({u"C"_qs}));
}

TEST_F(TaggedNotes, ATagsCaseIsNoMatter)
{
    EXPECT_EQ(namesFor(u"#BOTH"_qs).size(), 2);
}

TEST_F(TaggedNotes, DisjointTagsEndEmpty)
{
    EXPECT_EQ(namesFor(u"#a #b"_qs), QStringList());
}

TEST_F(TaggedNotes, AnEmptyStateIsOverwrittenByTheNextTag)
{
    EXPECT_EQ(namesFor(u"#a #b #c"_qs), QStringList({u"C"_qs}));
}

TEST_F(TaggedNotes, AnUnknownTagInFrontIsOverwritten)
{
    EXPECT_EQ(namesFor(u"#unknown #b"_qs), QStringList({u"B"_qs}));
}

TEST_F(TaggedNotes, AnUnknownTagAtTheEndFindsNothing)
{
    EXPECT_EQ(namesFor(u"#b #unknown"_qs), QStringList());
}

TEST_F(TaggedNotes, WithAWordAreThoseWhoseNameHoldsIt)
{
    const SearchAnswer answer = searchNotes(u"b #both"_qs);
    EXPECT_EQ(titles(answer), QStringList({u"B"_qs}));
    EXPECT_EQ(answer.results.front().matchType, MatchType::tag);
    EXPECT_EQ(answer.metrics.filesScanned, 2);
}

TEST_F(TaggedNotes, NoCandidateIsTheEmptyResult)
{
    const SearchAnswer answer = searchNotes(u"#unknown"_qs);
    EXPECT_EQ(answer.metrics.filesScanned, 0);
    EXPECT_FALSE(answer.metrics.cacheHit);
    EXPECT_TRUE(search().cache().isEmpty());
    EXPECT_EQ(m_log.infos().filter(u"Search completed"_qs), QStringList());
}

TEST_F(SearchNotes, BlanksAloneGiveTheEmptyResult)
{
    putMany(2);
    for (const QString& query : {u""_qs, u"   "_qs, u"\t"_qs, u"#"_qs}) {
        const SearchAnswer answer = searchNotes(query);
        EXPECT_TRUE(answer.results.isEmpty());
        EXPECT_EQ(answer.metrics.filesScanned, 0);
    }
    EXPECT_TRUE(search().cache().isEmpty());
    EXPECT_EQ(m_log.infos().filter(u"Search completed"_qs), QStringList());
}

TEST_F(SearchNotes, ASearchIsLogged)
{
    putMany(3);
    search();
    m_log.clear();
    searchNotes(u"note"_qs);
    EXPECT_EQ(m_log.infos(), QStringList({u"Search completed: 0.00ms, 3 files scanned, "
                                          "cache hit: false, 3 results"_qs}));
}

TEST_F(SearchNotes, NothingFoundIsCachedAndLoggedToo)
{
    putMany(3);
    searchNotes(u"absent"_qs);
    EXPECT_EQ(m_log.infos().filter(u"3 files scanned, cache hit: false, 0 results"_qs).size(), 1);
    EXPECT_TRUE(searchNotes(u"absent"_qs).metrics.cacheHit);
}

TEST(SearchMetrics, AreLoggedInMilliseconds)
{
    const LogCapture log;
    SearchMetrics metrics{0.0123, 7, true, 5};
    metrics.log();
    EXPECT_EQ(log.infos(), QStringList({u"Search completed: 12.30ms, 7 files scanned, "
                                        "cache hit: true, 5 results"_qs}));
}

class CachedNotes : public SearchNotes {};

TEST_F(CachedNotes, AreSharedByQueriesOfOneKey)
{
    put("Foo.md");
    const SearchAnswer first = searchNotes(u"Foo"_qs);
    m_log.clear();
    const SearchAnswer second = searchNotes(u"  foo "_qs);
    EXPECT_FALSE(first.metrics.cacheHit);
    EXPECT_TRUE(second.metrics.cacheHit);
    EXPECT_EQ(second.metrics.filesScanned, 0);
    EXPECT_EQ(second.metrics.resultCount, 1);
    EXPECT_EQ(second.results, first.results);
    EXPECT_EQ(m_log.infos(), QStringList());
    EXPECT_EQ(search().cache().keys(), QStringList({u"foo"_qs}));
    EXPECT_EQ(search().cache().value(u"foo"_qs).query, u"foo"_qs);
}

TEST_F(CachedNotes, AreUsedForThreeHundredSeconds)
{
    put("Foo.md");
    searchNotes(u"foo"_qs);
    put("Foo 2.md");
    m_clock.advance(300s);
    EXPECT_TRUE(searchNotes(u"foo"_qs).metrics.cacheHit);
    m_clock.advance(1us);
    const SearchAnswer anew = searchNotes(u"foo"_qs);
    EXPECT_FALSE(anew.metrics.cacheHit);
    EXPECT_EQ(anew.results.size(), 2);
    EXPECT_EQ(search().cache().value(u"foo"_qs).timestamp, m_clock.now());
}

TEST_F(CachedNotes, AreForgottenWhenTheCacheIsCleared)
{
    put("Foo.md");
    searchNotes(u"foo"_qs);
    search().clearCache();
    EXPECT_FALSE(searchNotes(u"foo"_qs).metrics.cacheHit);
}

TEST_F(CachedNotes, OfBeforeTheCacheWasClearedDoNotComeIntoIt)
{
    put("Foo.md");
    auto task = search().searchNotes(u"foo"_qs);
    search().clearCache();
    put("Foo 2.md");
    EXPECT_EQ(finished(std::move(task)).results.size(), 1);
    EXPECT_EQ(searchNotes(u"foo"_qs).results.size(), 2);
}

TEST_F(SearchNotes, OutlivesTheIndexAndItsSearch)
{
    putMany(100);
    auto byName = search().searchNotes(u"note"_qs);
    auto byTag = search().searchNotes(u"#tag"_qs);
    m_search.reset();
    m_database.reset();
    m_index = NoteIndex();
    EXPECT_EQ(finished(std::move(byName)).results.size(), 50);
    EXPECT_EQ(finished(std::move(byTag)).results.size(), 0);
}

} // namespace

} // namespace jotwell
