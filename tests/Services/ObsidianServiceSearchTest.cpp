#include "Services/LogCapture.h"
#include "Services/NoteServices.h"

#include <QSemaphore>
#include <QThreadPool>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace jotwell {

namespace {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

/// Counts the builds that begin from now on.
class BuildCounter {
public:
    explicit BuildCounter(TagIndexService& index)
    {
        QObject::connect(&index, &TagIndexService::isIndexingChanged, &m_context,
                         [this, &index] { m_count += index.isIndexing() ? 1 : 0; });
    }
    [[nodiscard]] int count() const { return m_count; }

private:
    QObject m_context;
    int m_count = 0;
};

/// A build under way whose files aren't being read until it may go on.
class StalledBuild {
public:
    StalledBuild(FakePlatform& edge, TagIndexService& index, const QString& vaultPath)
        : m_edge(edge)
    {
        m_edge.bulk.setMaxThreadCount(1);
        m_edge.bulk.start([this] { m_mayGoOn.acquire(); });
        m_build.emplace(index.buildIndex(vaultPath));
    }
    ~StalledBuild()
    {
        if (m_build)
            goOn();
    }
    StalledBuild(const StalledBuild&) = delete;
    StalledBuild& operator=(const StalledBuild&) = delete;

    /// Comes back when the build has ended.
    void goOn()
    {
        m_mayGoOn.release();
        finished(std::move(*m_build));
        m_build.reset();
    }

private:
    FakePlatform& m_edge;
    QSemaphore m_mayGoOn;
    std::optional<QCoro::Task<void>> m_build;
};

/// The log is taken before the index, whose threads write to it, is made.
struct CapturedLog {
    LogCapture m_lines;
};

class ObsidianServiceSearchTest : protected CapturedLog, public ObsidianServiceTest {
protected:
    /// Names of the notes found.
    QStringList search(const QString& query)
    {
        QStringList names;
        const auto found = finished(notes.searchNotes(query));
        EXPECT_TRUE(found);
        for (const NoteSearchResult& note : *found)
            names.append(note.fileName);
        return names;
    }
};

TEST_F(ObsidianServiceSearchTest, AQueryWithABlankIsForTheText)
{
    vault.put(u"one.md"_qs, "about the meeting notes");
    vault.put(u"meeting notes.md"_qs, "empty");
    EXPECT_THAT(search(u"the meeting"_qs), ElementsAre(u"one"_qs));
}

TEST_F(ObsidianServiceSearchTest, ASingleWordIsForTheFileName)
{
    vault.put(u"one.md"_qs, "about the meeting notes");
    vault.put(u"Meeting.md"_qs, "empty");
    EXPECT_THAT(search(u"meeting"_qs), ElementsAre(u"Meeting"_qs));
}

TEST_F(ObsidianServiceSearchTest, AMarkIsForTheTagsAlsoWithABlank)
{
    vault.put(u"home.md"_qs, "#work");
    vault.put(u"other.md"_qs, "#work home");
    EXPECT_THAT(search(u"#work"_qs), UnorderedElementsAre(u"home"_qs, u"other"_qs));
    EXPECT_THAT(search(u"#work home"_qs), ElementsAre(u"home"_qs));
}

TEST_F(ObsidianServiceSearchTest, ATabMakesNoSecondWord)
{
    vault.put(u"text.md"_qs, "alpha beta");
    vault.put(u"beta of alpha.md"_qs, "empty");
    EXPECT_THAT(search(u"alpha\tbeta"_qs), ElementsAre(u"beta of alpha"_qs));
}

TEST_F(ObsidianServiceSearchTest, FillsTheRecordOfANote)
{
    vault.put(u"a.b.md"_qs, "A sentence about the garden. And another one.");
    const auto found = finished(notes.searchNotes(u"the garden"_qs));
    ASSERT_TRUE(found);
    ASSERT_EQ(found->size(), 1);
    const NoteSearchResult& note = found->first();
    EXPECT_EQ(note.fileName, u"a.b"_qs);
    EXPECT_EQ(note.filePath, vault.pathOf(u"a.b.md"_qs));
    EXPECT_EQ(note.fileURL, QUrl::fromLocalFile(vault.pathOf(u"a.b.md"_qs)));
    EXPECT_EQ(note.snippet, u"A sentence about the garden"_qs);
    EXPECT_EQ(note.relevanceScore, std::nullopt);
    EXPECT_FALSE(note.isFullTextResult);
}

TEST_F(ObsidianServiceSearchTest, TheSameNoteFoundTwiceHasTwoIdentifiers)
{
    vault.put(u"a.md"_qs, "x");
    const auto first = finished(notes.searchNotes(u"a"_qs));
    const auto second = finished(notes.searchNotes(u"a"_qs));
    ASSERT_EQ(first->size(), 1);
    ASSERT_EQ(second->size(), 1);
    EXPECT_NE(first->first().id, second->first().id);
}

TEST_F(ObsidianServiceSearchTest, KeepsTheOrderOfTheIndex)
{
    for (const int day : {2, 3, 1}) {
        const QString name = u"note%1.md"_qs.arg(day);
        vault.put(name, "x");
        vault.setChanged(name, QDateTime::fromSecsSinceEpoch(1'600'000'000 + day * 86'400));
    }
    EXPECT_THAT(search(u"note"_qs), ElementsAre(u"note3"_qs, u"note2"_qs, u"note1"_qs));
}

TEST_F(ObsidianServiceSearchTest, FindsWhatWasWrittenAMomentAgo)
{
    EXPECT_THAT(search(u"fresh"_qs), IsEmpty());
    vault.put(u"fresh.md"_qs, "x");
    EXPECT_THAT(search(u"fresh"_qs), ElementsAre(u"fresh"_qs));
}

TEST_F(ObsidianServiceSearchTest, WithoutAVaultItAsksForTheSettings)
{
    settings.setObsidianFolderPath({});
    const auto found = finished(notes.searchNotes(u"a"_qs));
    ASSERT_FALSE(found);
    EXPECT_EQ(found.error(), NoteError(ObsidianError()));
    EXPECT_THAT(log.shown,
                ElementsAre(ShownToast{ToastType::warning, 2.0,
                                       u"Set up this command first in the app settings"_qs}));
}

TEST_F(ObsidianServiceSearchTest, AMissingVaultFailsBeforeTheIndexIsTouched)
{
    const QString gone = vault.pathOf(u"gone"_qs);
    settings.setObsidianFolderPath(gone);
    ASSERT_FALSE(finished(notes.searchNotes(u"a"_qs)));
    EXPECT_THAT(log.shown,
                ElementsAre(ShownToast{ToastType::error, 3.0,
                                       u"The Obsidian folder does not exist: "_qs + gone}));
    EXPECT_EQ(index.indexStatus().kind, IndexStatus::Kind::notStarted);
}

TEST_F(ObsidianServiceSearchTest, AFileInThePlaceOfTheVaultFails)
{
    vault.put(u"file"_qs, "x");
    settings.setObsidianFolderPath(vault.pathOf(u"file"_qs));
    ASSERT_FALSE(finished(notes.searchNotes(u"a"_qs)));
    EXPECT_THAT(log.shown, ElementsAre(ShownToast{ToastType::error, 3.0,
                                                  u"The path is not a directory: "_qs +
                                                      vault.pathOf(u"file"_qs)}));
}

TEST_F(ObsidianServiceSearchTest, AReadyIndexIsntBuiltAgain)
{
    vault.put(u"a.md"_qs, "x");
    search(u"a"_qs);
    const BuildCounter builds(index);
    search(u"a"_qs);
    EXPECT_EQ(builds.count(), 0);
    EXPECT_THAT(m_lines.infos(), Contains(u"Manual index refresh requested"_qs));
}

TEST_F(ObsidianServiceSearchTest, AfterAFailedBuildEachSearchBuildsAgain)
{
    vault.put(u"a.md"_qs, "x");
    finished(index.buildIndex(vault.pathOf(u"none"_qs)));
    ASSERT_EQ(index.indexStatus().kind, IndexStatus::Kind::error);
    const BuildCounter builds(index);
    EXPECT_THAT(search(u"a"_qs), ElementsAre(u"a"_qs));
    EXPECT_EQ(builds.count(), 1);
}

TEST_F(ObsidianServiceSearchTest, ABuildThatLastsTooLongIsWaitedForThirtyTimes)
{
    vault.put(u"a.md"_qs, "x");
    StalledBuild build(edge, index, vault.path());
    bool isOver = false;
    QCoro::connect(notes.ensureIndexReady(), &toasts, [&isOver] { isOver = true; });
    for (int polls = 0; polls < 30; ++polls) {
        EXPECT_FALSE(isOver) << polls;
        edge.scheduler.advance(100ms);
    }
    EXPECT_TRUE(isOver);
    EXPECT_TRUE(index.isIndexing());
}

TEST_F(ObsidianServiceSearchTest, TheWaitEndsWithTheBuild)
{
    vault.put(u"a.md"_qs, "x");
    StalledBuild build(edge, index, vault.path());
    bool isOver = false;
    QCoro::connect(notes.ensureIndexReady(), &toasts, [&isOver] { isOver = true; });
    edge.scheduler.advance(500ms);
    EXPECT_FALSE(isOver);
    build.goOn();
    edge.scheduler.advance(99ms);
    EXPECT_FALSE(isOver);
    edge.scheduler.advance(1ms);
    EXPECT_TRUE(isOver);
}

TEST_F(ObsidianServiceSearchTest, MakingTheServiceBuildsTheIndexInALaterTurn)
{
    vault.put(u"a.md"_qs, "x");
    const ObsidianService other(edge.platform, settings, toasts, index);
    EXPECT_EQ(index.indexStatus().kind, IndexStatus::Kind::notStarted);
    while (index.indexStatus().kind != IndexStatus::Kind::ready)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(index.index().notes().size(), 1);
}

TEST_F(ObsidianServiceSearchTest, AnIndexThatHasBegunIsntInitialisedAgain)
{
    vault.put(u"a.md"_qs, "x");
    finished(index.buildIndex(vault.path()));
    const BuildCounter builds(index);
    finished(notes.initializeIndexIfNeeded());
    EXPECT_EQ(builds.count(), 0);
}

TEST_F(ObsidianServiceSearchTest, WithoutAVaultNothingIsInitialised)
{
    settings.setObsidianFolderPath({});
    finished(notes.initializeIndexIfNeeded());
    finished(notes.ensureIndexReady());
    EXPECT_EQ(index.indexStatus().kind, IndexStatus::Kind::notStarted);
}

} // namespace

} // namespace jotwell
