#include "Services/IndexFixture.h"

#include <QFile>

namespace jotwell {

namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

const QDateTime early = QDateTime::fromSecsSinceEpoch(1'600'000'000);

/// A built index of two notes, with nothing logged or published yet.
class TagIndexServiceScanTest : public TagIndexServiceTest {
protected:
    TagIndexServiceScanTest()
    {
        put(u"a.md"_qs, "one #old");
        put(u"b.md"_qs, "two #both");
        build();
        quieten();
    }

    void put(const QString& name, const QByteArray& text)
    {
        vault.put(name, text);
        vault.setChanged(name, early);
    }
    void quieten()
    {
        log.clear();
        takePublications();
    }
};

TEST_F(TagIndexServiceScanTest, FindsNothingInAnUnchangedVault)
{
    scan();
    EXPECT_THAT(log.infos(), IsEmpty());
    EXPECT_THAT(takePublications(), IsEmpty());
}

TEST_F(TagIndexServiceScanTest, TakesInANewNote)
{
    put(u"sub/c.md"_qs, "three #new");
    scan();
    EXPECT_THAT(log.infos(),
                ElementsAre(u"New file detected: c.md"_qs, u"Index updated: 1 file(s) changed"_qs));
    EXPECT_THAT(takePublications(),
                ElementsAre(u"indexStatus updating"_qs, u"indexStatus ready"_qs,
                            u"lastIndexUpdate now"_qs, u"lastIndexUpdate now"_qs));
    EXPECT_THAT(tags().value(u"new"_qs), ElementsAre(u"c.md"_qs));
}

TEST_F(TagIndexServiceScanTest, SeesALaterDate)
{
    vault.setChanged(u"a.md"_qs, early.addSecs(1));
    scan();
    EXPECT_THAT(log.infos(), Contains(u"File modified (date changed): a.md"_qs));
}

TEST_F(TagIndexServiceScanTest, ADateThatMovedBackIsNoChange)
{
    const auto date = metadata(u"a.md"_qs)->modificationDate;
    vault.setChanged(u"a.md"_qs, early.addSecs(-1000));
    scan();
    EXPECT_THAT(log.infos(), IsEmpty());
    EXPECT_EQ(metadata(u"a.md"_qs)->modificationDate, date);
}

TEST_F(TagIndexServiceScanTest, SeesAnotherSize)
{
    put(u"a.md"_qs, "one #old and more");
    scan();
    EXPECT_THAT(log.infos(), Contains(u"File modified (size changed): a.md"_qs));
}

TEST_F(TagIndexServiceScanTest, SeesOtherBytesOfTheSameSizeAndDate)
{
    put(u"a.md"_qs, "one #new");
    scan();
    EXPECT_THAT(log.infos(), ElementsAre(u"File modified (content changed): a.md"_qs,
                                         u"Index updated: 1 file(s) changed"_qs));
    EXPECT_THAT(tags().keys(), ElementsAre(u"both"_qs, u"new"_qs));
}

TEST_F(TagIndexServiceScanTest, DoesntLookAtBytesUnlessItIsTo)
{
    put(u"a.md"_qs, "one #new");
    scan(false);
    EXPECT_THAT(log.infos(), IsEmpty());
}

TEST_F(TagIndexServiceScanTest, LetsGoOfANoteThatIsGone)
{
    vault.remove(u"a.md"_qs);
    scan();
    EXPECT_THAT(log.infos(), ElementsAre(u"File removed or renamed: a.md"_qs,
                                         u"Index updated: 1 file(s) changed"_qs));
    EXPECT_THAT(takePublications(),
                ElementsAre(u"lastIndexUpdate now"_qs, u"lastIndexUpdate now"_qs));
    EXPECT_THAT(tags().keys(), ElementsAre(u"both"_qs)) << "a tag goes with its last note";
    EXPECT_THAT(notes(), ElementsAre(u"b.md"_qs));
}

TEST_F(TagIndexServiceScanTest, ARenameIsANewNoteAndThenARemovedOne)
{
    vault.rename(u"a.md"_qs, u"z.md"_qs);
    scan();
    EXPECT_THAT(log.infos(),
                ElementsAre(u"New file detected: z.md"_qs, u"File removed or renamed: a.md"_qs,
                            u"Index updated: 2 file(s) changed"_qs));
    EXPECT_THAT(notes(), ElementsAre(u"b.md"_qs, u"z.md"_qs));
}

TEST_F(TagIndexServiceScanTest, ANoteThatCantBeReadAnyMoreKeepsItsRecord)
{
    put(u"a.md"_qs, "one \xff\xff and a longer text");
    scan();
    ASSERT_TRUE(metadata(u"a.md"_qs));
    EXPECT_EQ(metadata(u"a.md"_qs)->fullContent, "one #old");
    EXPECT_THAT(log.errors(), testing::SizeIs(1));
}

TEST_F(TagIndexServiceScanTest, AVaultThatIsAwayLeavesTheIndexAsItIs)
{
    QFile::rename(vault.path(), vault.path() + u".away"_qs);
    scan();
    EXPECT_THAT(notes(), ElementsAre(u"a.md"_qs, u"b.md"_qs));
    EXPECT_THAT(log.infos(), IsEmpty());
    EXPECT_THAT(log.errors(), IsEmpty());
    QFile::rename(vault.path() + u".away"_qs, vault.path());
    scan();
    EXPECT_THAT(notes(), ElementsAre(u"a.md"_qs, u"b.md"_qs));
}

TEST_F(TagIndexServiceScanTest, RefreshingScansTheWatchedVault)
{
    put(u"c.md"_qs, "three");
    finished(index->refreshIndex());
    EXPECT_THAT(log.infos(),
                ElementsAre(u"Manual index refresh requested"_qs, u"New file detected: c.md"_qs,
                            u"Index updated: 1 file(s) changed"_qs));
}

TEST_F(TagIndexServiceTest, RefreshingBeforeABuildDoesNothing)
{
    finished(index->refreshIndex());
    EXPECT_THAT(log.infos(), Not(Contains(u"Manual index refresh requested"_qs)));
}

TEST_F(TagIndexServiceScanTest, AnUpdateEndsReadyAlsoDuringABuild)
{
    QCoro::Task<void> building = index->buildIndex(vault.path());
    finished(index->updateFile(vault.pathOf(u"a.md"_qs)));
    if (index->isIndexing()) {
        EXPECT_EQ(index->indexStatus().kind, IndexStatus::Kind::ready);
    }
    finished(std::move(building));
    EXPECT_THAT(notes(), ElementsAre(u"a.md"_qs, u"b.md"_qs));
}

TEST_F(TagIndexServiceScanTest, PassesOverWhatWasTakenInSinceItBegan)
{
    edge.bulk.setMaxThreadCount(1); // reads the note, then compares
    put(u"c.md"_qs, "three");
    QCoro::Task<void> updating = index->updateFile(vault.pathOf(u"c.md"_qs));
    scan();
    finished(std::move(updating));
    EXPECT_THAT(notes(), Contains(u"c.md"_qs));
    EXPECT_THAT(log.infos(), IsEmpty());
}

TEST_F(TagIndexServiceScanTest, AnUpdateOfWhatCantBeReadPublishesNothing)
{
    finished(index->updateFile(vault.pathOf(u"none.md"_qs)));
    EXPECT_THAT(takePublications(), IsEmpty());
    EXPECT_THAT(log.errors(), testing::SizeIs(1));
}

TEST_F(TagIndexServiceScanTest, AnEventInTheVaultIsScannedThreeTenthsLater)
{
    edge.scheduler.advance(0ms);
    put(u"c.md"_qs, "three");
    edge.folders.touch(vault.path());
    edge.scheduler.advance(300ms);
    while (!metadata(u"c.md"_qs))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_THAT(log.infos(), Contains(u"New file detected: c.md"_qs));
}

TEST_F(TagIndexServiceScanTest, WhatNoEventTellsOfIsFoundWithinFiveSeconds)
{
    edge.scheduler.advance(0ms);
    put(u"sub/c.md"_qs, "three");
    edge.scheduler.advance(5s);
    while (!metadata(u"sub/c.md"_qs))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

TEST_F(TagIndexServiceScanTest, AChangeEndsCachedSearches)
{
    finished(index->searchNotes(u"a"_qs, vault.path()));
    EXPECT_EQ(index->search().cache().size(), 1);
    put(u"c.md"_qs, "three");
    scan();
    EXPECT_TRUE(index->search().cache().isEmpty());
    finished(index->searchNotes(u"a"_qs, vault.path()));
    index->clearIndex();
    EXPECT_TRUE(index->search().cache().isEmpty());
}

} // namespace

} // namespace jotwell
