#include "Services/CommandFixture.h"
#include "Services/LogCapture.h"

#include <QSemaphore>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace jotwell {

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class CommandServiceSearchTest : public CommandServiceTest {
protected:
    CommandServiceSearchTest()
    {
        vault.put(u"cats.md"_qs, "about cats and dogs");
        vault.put(u"tagged.md"_qs, "#pet");
    }

    bool search(const QString& text) { return execute(Command::searchNotes, text); }
    void performSearch(const QString& query) { finished(commands.performSearch(query)); }

    LogCapture m_lines;
};

TEST_F(CommandServiceSearchTest, NotesFoundAreDelivered)
{
    EXPECT_TRUE(search(u"/search_notes cats"_qs));
    EXPECT_TRUE(search(u"\n/search_notes\t #PET \n"_qs));
    EXPECT_THAT(events, ElementsAre(u"1 notes"_qs, u"1 notes"_qs));
}

TEST_F(CommandServiceSearchTest, EveryCommandWordGoesAndTheBlanksBetweenStay)
{
    EXPECT_TRUE(search(u"/search_notes cats /search_notes dogs"_qs));
    EXPECT_TRUE(search(u"/search_notes cows /search_notes pigs"_qs));
    EXPECT_THAT(events, ElementsAre(u"1 notes"_qs, u"0 notes"_qs,
                                    u"No notes found matching 'cows  pigs'"_qs));
}

TEST_F(CommandServiceSearchTest, EmptyListIsDeliveredBeforeTheToast)
{
    EXPECT_TRUE(search(u"/search_notes %1"_qs));
    EXPECT_THAT(events, ElementsAre(u"0 notes"_qs, u"No notes found matching '%1'"_qs));
    EXPECT_THAT(log.shown, ElementsAre(ShownToast{ToastType::warning, 2.0,
                                                  u"No notes found matching '%1'"_qs}));
}

TEST_F(CommandServiceSearchTest, WithoutAQueryItAsksForOne)
{
    EXPECT_FALSE(search(u"/search_notes \n  "_qs));
    EXPECT_THAT(log.shown, ElementsAre(ShownToast{ToastType::warning, 2.0,
                                                  u"Please enter a search query"_qs}));
    EXPECT_THAT(events, ElementsAre(u"Please enter a search query"_qs));
    EXPECT_EQ(index.indexStatus().kind, IndexStatus::Kind::notStarted) << "nothing was searched";
}

TEST_F(CommandServiceSearchTest, FailedSearchIsFalseAndNotDelivered)
{
    settings.setObsidianFolderPath(std::nullopt);
    EXPECT_FALSE(search(u"/search_notes cats"_qs));
    EXPECT_THAT(events, ElementsAre(u"Set up this command first in the app settings"_qs));
}

TEST_F(CommandServiceSearchTest, WithoutAListenerTheToastComesAllTheSame)
{
    commands.setOnSearchResults({});
    EXPECT_TRUE(search(u"/search_notes cats"_qs));
    EXPECT_TRUE(search(u"/search_notes cows"_qs));
    EXPECT_THAT(events, ElementsAre(u"No notes found matching 'cows'"_qs));
}

TEST_F(CommandServiceSearchTest, QueryIsReadInTheBackground)
{
    edge.background.setMaxThreadCount(1);
    QSemaphore busy;
    edge.background.start([&busy] { busy.acquire(); });
    auto running = commands.executeSearchNotesCommand(u"/search_notes"_qs);
    EXPECT_THAT(events, IsEmpty());
    busy.release();
    EXPECT_FALSE(finished(std::move(running)));
    EXPECT_THAT(events, ElementsAre(u"Please enter a search query"_qs));
}

TEST_F(CommandServiceSearchTest, PerformedSearchDeliversAndSaysWhatItDidNotFind)
{
    performSearch(u"cats"_qs);
    performSearch(u"cows"_qs);
    EXPECT_THAT(events,
                ElementsAre(u"1 notes"_qs, u"0 notes"_qs, u"No notes found matching 'cows'"_qs));
}

TEST_F(CommandServiceSearchTest, PerformedSearchTakesItsQueryAsItStands)
{
    performSearch(u" pigs "_qs);
    EXPECT_THAT(events, ElementsAre(u"0 notes"_qs, u"No notes found matching ' pigs '"_qs));
    EXPECT_THAT(m_lines.infos(), Not(Contains(testing::Truly([](const QString& line) {
                    return line.startsWith(u"Search completed"_qs);
                }))))
        << "it has blanks, and was for the texts";
}

TEST_F(CommandServiceSearchTest, PerformedSearchRefusesNoEmptyQuery)
{
    performSearch(QString());
    EXPECT_THAT(events, ElementsAre(u"0 notes"_qs, u"No notes found matching ''"_qs));
}

TEST_F(CommandServiceSearchTest, FailedPerformedSearchIsNotDelivered)
{
    settings.setObsidianFolderPath(vault.pathOf(u"gone"_qs));
    performSearch(u"cats"_qs);
    EXPECT_THAT(events,
                ElementsAre(u"The Obsidian folder does not exist: "_qs + vault.pathOf(u"gone"_qs)));
}

TEST_F(CommandServiceSearchTest, LaterSearchDoesntEndAnEarlierOne)
{
    finished(index.buildIndex(vault.path()));
    auto first = commands.performSearch(u"cats"_qs);
    performSearch(u"pigs"_qs);
    finished(std::move(first));
    EXPECT_THAT(events, testing::UnorderedElementsAre(u"1 notes"_qs, u"0 notes"_qs,
                                                      u"No notes found matching 'pigs'"_qs));
}

} // namespace

} // namespace jotwell
