#include "Services/IndexFixture.h"

namespace jotwell {

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

TEST_F(TagIndexServiceTest, NothingIsKnownAtFirst)
{
    EXPECT_EQ(index->indexStatus(), IndexStatus());
    EXPECT_FALSE(index->isIndexing());
    EXPECT_EQ(index->lastIndexUpdate(), std::nullopt);
    EXPECT_FALSE(index->monitor().monitoredPath());
    EXPECT_THAT(notes(), IsEmpty());
    EXPECT_TRUE(index->database().hasHandle());
}

TEST_F(TagIndexServiceTest, ABuildTakesInEveryNote)
{
    vault.put(u"a.md"_qs, "---\ntags: [Work]\n---\nOne #idea");
    vault.put(u"sub/deep/b.md"_qs, "Two #Idea #my_tag");
    vault.put(u".hidden/c.md"_qs, "#secret");
    vault.put(u"d.txt"_qs, "#text");
    build();
    EXPECT_THAT(notes(), ElementsAre(u"a.md"_qs, u"sub/deep/b.md"_qs));
    EXPECT_EQ(tags(), (QMap<QString, QStringList>{{u"work"_qs, {u"a.md"_qs}},
                                                  {u"idea"_qs, {u"a.md"_qs, u"b.md"_qs}},
                                                  {u"my_tag"_qs, {u"b.md"_qs}},
                                                  {u"mytag"_qs, {u"b.md"_qs}}}));
    ASSERT_TRUE(metadata(u"a.md"_qs));
    EXPECT_EQ(metadata(u"a.md"_qs)->fullContent, "---\ntags: [Work]\n---\nOne #idea");
    EXPECT_EQ(metadata(u"a.md"_qs)->cleanedContent, "tags: [Work] One #idea");
    EXPECT_EQ(metadata(u"a.md"_qs)->wordCount, 4);
    EXPECT_EQ(metadata(u"a.md"_qs)->indexedDate, edge.clock.now());
}

TEST_F(TagIndexServiceTest, ABuildPublishesItsProgressAfterEachTen)
{
    for (int each = 0; each < 25; ++each)
        vault.put(QString::number(each) + u".md"_qs, "x");
    build();
    EXPECT_THAT(
        takePublications(),
        ElementsAre(u"isIndexing true"_qs, u"indexStatus building"_qs, u"indexingProgress 0"_qs,
                    u"indexedFileCount 0"_qs, u"totalFileCount 0"_qs, u"totalFileCount 25"_qs,
                    u"indexedFileCount 10"_qs, u"indexingProgress 0.4"_qs,
                    u"indexedFileCount 20"_qs, u"indexingProgress 0.8"_qs,
                    u"indexedFileCount 25"_qs, u"indexingProgress 1"_qs, u"isIndexing false"_qs,
                    u"indexStatus ready"_qs, u"lastIndexUpdate now"_qs));
    EXPECT_EQ(index->lastIndexUpdate(), edge.clock.now());
    EXPECT_THAT(log.infos(), Contains(testing::Truly([](const QString& line) {
                    return line.startsWith(u"Index built successfully: 25 files in "_qs) &&
                           line.endsWith(u's');
                })));
}

TEST_F(TagIndexServiceTest, AnEmptyVaultIsReady)
{
    build();
    EXPECT_EQ(index->indexStatus().kind, IndexStatus::Kind::ready);
    EXPECT_EQ(index->totalFileCount(), 0);
    EXPECT_EQ(index->indexingProgress(), 0.0);
    EXPECT_EQ(index->monitor().monitoredPath(), vault.path());
}

TEST_F(TagIndexServiceTest, AVaultThatCantBeListedIsAFailedBuild)
{
    vault.put(u"a.md"_qs, "#x");
    build();
    takePublications();
    finished(index->buildIndex(vault.pathOf(u"none"_qs)));
    EXPECT_THAT(log.errors(), ElementsAre(u"Failed to build index: Failed to enumerate files"_qs));
    EXPECT_THAT(takePublications(),
                ElementsAre(u"isIndexing true"_qs, u"indexStatus building"_qs,
                            u"indexingProgress 0"_qs, u"indexedFileCount 0"_qs,
                            u"totalFileCount 0"_qs, u"isIndexing false"_qs,
                            u"indexStatus error: Failed to enumerate files"_qs));
    EXPECT_THAT(notes(), IsEmpty());
    EXPECT_EQ(index->monitor().monitoredPath(), vault.path()) << "the earlier watch goes on";
}

TEST_F(TagIndexServiceTest, FilesThatCantBeReadCountButHaveNoRecord)
{
    vault.put(u"a.md"_qs, "x");
    vault.put(u"bad.md"_qs, "\xff\xfe");
    vault.makeFolder(u"folder.md"_qs);
    build();
    EXPECT_EQ(index->indexedFileCount(), 3);
    EXPECT_EQ(index->totalFileCount(), 3);
    EXPECT_THAT(notes(), ElementsAre(u"a.md"_qs));
    EXPECT_EQ(log.errors().size(), 2);
}

TEST_F(TagIndexServiceTest, ASecondBuildOfTheWatchedVaultBuildsAnew)
{
    vault.put(u"a.md"_qs, "#old");
    build();
    vault.put(u"a.md"_qs, "#new");
    vault.put(u"b.md"_qs, "#new");
    build();
    EXPECT_THAT(tags().keys(), ElementsAre(u"new"_qs));
    EXPECT_THAT(notes(), ElementsAre(u"a.md"_qs, u"b.md"_qs));
}

TEST_F(TagIndexServiceTest, ARequestForTheVaultBeingBuiltComesBackAtOnce)
{
    vault.put(u"a.md"_qs, "x");
    build();
    log.clear();
    QCoro::Task<void> first = index->buildIndex(vault.path());
    EXPECT_TRUE(index->isIndexing());
    build();
    EXPECT_TRUE(index->isIndexing()) << "it didn't wait";
    EXPECT_THAT(log.infos(), ElementsAre(u"Already indexing vault at "_qs + vault.path() +
                                         u", skipping duplicate request"_qs));
    finished(std::move(first));
    EXPECT_FALSE(index->isIndexing());
}

TEST_F(TagIndexServiceTest, DuringTheVeryFirstBuildASecondRunsBesideIt)
{
    for (int each = 0; each < 30; ++each)
        vault.put(QString::number(each) + u".md"_qs, "#x");
    QCoro::Task<void> first = index->buildIndex(vault.path());
    build();
    finished(std::move(first));
    EXPECT_EQ(notes().size(), 30);
    EXPECT_EQ(tags().value(u"x"_qs).size(), 30);
    EXPECT_THAT(log.infos(), Not(Contains(testing::Truly([](const QString& line) {
                    return line.startsWith(u"Already"_qs);
                }))));
}

TEST_F(TagIndexServiceTest, ABuildOfAnotherVaultIsWatchedInItsPlace)
{
    vault.put(u"one/a.md"_qs, "#one");
    vault.put(u"two/b.md"_qs, "#two");
    finished(index->buildIndex(vault.pathOf(u"one"_qs)));
    finished(index->buildIndex(vault.pathOf(u"two"_qs)));
    EXPECT_THAT(tags().keys(), ElementsAre(u"two"_qs));
    EXPECT_EQ(index->monitor().monitoredPath(), vault.pathOf(u"two"_qs));
    EXPECT_THAT(edge.folders.watched(), ElementsAre(vault.pathOf(u"two"_qs)));
}

TEST_F(TagIndexServiceTest, ARestartBeginsWithNothing)
{
    vault.put(u"a.md"_qs, "#x");
    build();
    restart();
    EXPECT_THAT(notes(), IsEmpty());
    EXPECT_EQ(index->indexStatus().kind, IndexStatus::Kind::notStarted);
    build();
    EXPECT_THAT(notes(), ElementsAre(u"a.md"_qs));
}

TEST_F(TagIndexServiceTest, ClearingPublishesTheCountsAndLeavesTheStatus)
{
    vault.put(u"a.md"_qs, "#x");
    build();
    takePublications();
    index->clearIndex();
    EXPECT_THAT(takePublications(), ElementsAre(u"indexedFileCount 0"_qs, u"totalFileCount 0"_qs));
    EXPECT_THAT(notes(), IsEmpty());
    EXPECT_THAT(tags(), IsEmpty());
    EXPECT_EQ(index->indexStatus().kind, IndexStatus::Kind::ready);
}

TEST_F(TagIndexServiceTest, ABuildThatIsUnderWayEndsWhenAllStops)
{
    for (int each = 0; each < 200; ++each)
        vault.put(QString::number(each) + u".md"_qs, "#x");
    QCoro::Task<void> running = index->buildIndex(vault.path());
    index->stop();
    finished(std::move(running));
    EXPECT_EQ(index->monitor().monitoredPath(), std::nullopt);
    EXPECT_NE(index->indexStatus().kind, IndexStatus::Kind::ready);
}

TEST_F(TagIndexServiceTest, NothingFollowsItsEnd)
{
    for (int each = 0; each < 200; ++each)
        vault.put(QString::number(each) + u".md"_qs, "#x");
    QCoro::Task<void> running = index->buildIndex(vault.path());
    index.reset();
    finished(std::move(running));
}

} // namespace

} // namespace jotwell
