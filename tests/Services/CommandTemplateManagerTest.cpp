#include "Services/InputFixture.h"

#include <gmock/gmock.h>

#include <cerrno>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using namespace std::chrono_literals;

class CommandExecutionTest : public CommandTemplateStateTest {
protected:
    bool executeText(const QString& text)
    {
        state->setText(text);
        state->setCurrentTemplate(ObsidianTemplate::meetingTemplate());
        takeChanges();
        return finished(state->executeCommand());
    }

    [[nodiscard]] QStringList notesInTheVault() const
    {
        QStringList names = vault.names();
        names.removeOne(u"Inbox"_qs);
        names.removeOne(u"Work"_qs);
        return names;
    }
};

TEST_F(CommandExecutionTest, TextWithoutACommandStays)
{
    EXPECT_FALSE(executeText(u"buy milk"_qs));
    EXPECT_EQ(state->text(), u"buy milk"_qs);
    EXPECT_THAT(takeChanges(), IsEmpty());
    EXPECT_THAT(notesInTheVault(), IsEmpty());
    EXPECT_THAT(log.shown, IsEmpty());
}

TEST_F(CommandExecutionTest, SuccessClearsTheText)
{
    EXPECT_TRUE(executeText(u"/new_note milk"_qs));
    EXPECT_THAT(notesInTheVault(), ElementsAre(u"milk - 2024-03-05 144607.md"_qs));
    EXPECT_EQ(state->text(), QString());
    EXPECT_TRUE(state->forceTextUpdate());
    EXPECT_EQ(state->fields().currentTemplate, std::nullopt);
    EXPECT_THAT(takeChanges(), ElementsAre(u"text = "_qs, u"forceTextUpdate = true"_qs,
                                           u"currentTemplate = none"_qs));
}

TEST_F(CommandExecutionTest, ListOfNotesClearsTheTextToo)
{
    EXPECT_TRUE(executeText(u"/recent"_qs));
    EXPECT_EQ(state->text(), QString());
    EXPECT_TRUE(state->forceTextUpdate());
    EXPECT_THAT(takeEvents(), ElementsAre(u"2 notes"_qs));
}

TEST_F(CommandExecutionTest, SuccessLeavesTheListAndTheFolder)
{
    type(u"/recent /ne"_qs);
    ASSERT_TRUE(state->fields().showDropdown);
    state->handleCommandClick({0, 7});
    takeChanges();
    EXPECT_TRUE(finished(state->executeCommand()));
    EXPECT_THAT(takeChanges(), ElementsAre(u"text = "_qs));
    EXPECT_TRUE(state->fields().showDropdown);
    EXPECT_EQ(state->fields().currentFolderName, u"All Folders"_qs);
}

TEST_F(CommandExecutionTest, EmptyListIsASuccess)
{
    EXPECT_TRUE(executeText(u"/search_notes zz"_qs));
    EXPECT_EQ(state->text(), QString());
    EXPECT_THAT(takeEvents(), ElementsAre(u"0 notes"_qs, u"No notes found matching 'zz'"_qs));
}

TEST_F(CommandExecutionTest, FailureKeepsTheTextAndTheTemplate)
{
    edge.files.failAt(1, ENOSPC);
    EXPECT_FALSE(executeText(u"/new_note milk"_qs));
    EXPECT_EQ(state->text(), u"/new_note milk"_qs);
    EXPECT_FALSE(state->forceTextUpdate());
    EXPECT_EQ(state->fields().currentTemplate, ObsidianTemplate::meetingTemplate());
    EXPECT_THAT(takeChanges(), IsEmpty());
}

TEST_F(CommandExecutionTest, FailedListKeepsTheText)
{
    settings.setObsidianFolderPath(std::nullopt);
    EXPECT_FALSE(executeText(u"/recent"_qs));
    EXPECT_EQ(state->text(), u"/recent"_qs);
}

TEST_F(CommandExecutionTest, NewNoteGoesBeforeRecent)
{
    EXPECT_TRUE(executeText(u"x /recent y /new_note"_qs));
    EXPECT_THAT(notesInTheVault(), ElementsAre(u"x -recent y - 2024-03-05 144607.md"_qs));
}

TEST_F(CommandExecutionTest, SearchGoesBeforeRecent)
{
    EXPECT_TRUE(executeText(u"/recent /search_notes zz"_qs));
    EXPECT_THAT(takeEvents(),
                ElementsAre(u"0 notes"_qs, u"No notes found matching '/recent  zz'"_qs));
}

TEST_F(CommandExecutionTest, CommandHasTheTextOfItsStart)
{
    state->setText(u"/new_note milk"_qs);
    auto executing = state->executeCommand();
    state->setText(u"/new_note bread"_qs);
    EXPECT_TRUE(finished(std::move(executing)));
    EXPECT_THAT(notesInTheVault(), ElementsAre(u"milk - 2024-03-05 144607.md"_qs));
    EXPECT_EQ(state->text(), QString()); // what was typed meanwhile goes as well
}

TEST_F(CommandExecutionTest, StateThatIsGoneMeanwhileIsLeftAlone)
{
    state->setText(u"/new_note milk"_qs);
    auto executing = state->executeCommand();
    state.reset();
    EXPECT_TRUE(finished(std::move(executing)));
    EXPECT_THAT(notesInTheVault(), ElementsAre(u"milk - 2024-03-05 144607.md"_qs));
}

TEST_F(CommandExecutionTest, SearchWaitsForAPause)
{
    type(u"/search_notes #tasks"_qs);
    pass(299ms);
    EXPECT_THAT(takeEvents(), IsEmpty());
    EXPECT_EQ(state->searchQuery(), u"#tasks"_qs);
    pass(1ms);
    EXPECT_THAT(takeEvents(), ElementsAre(u"2 notes"_qs));
    EXPECT_EQ(state->searchQuery(), std::nullopt);
    pass(1s);
    EXPECT_THAT(takeEvents(), IsEmpty()) << "once";
    EXPECT_EQ(state->text(), u"/search_notes #tasks"_qs);
}

TEST_F(CommandExecutionTest, EachEditOfASearchBeginsTheWaitAnew)
{
    type(u"/search_notes #tasks"_qs);
    pass(200ms);
    type(u"/search_notes zz"_qs);
    EXPECT_EQ(state->searchQuery(), u"zz"_qs);
    pass(299ms);
    EXPECT_THAT(takeEvents(), IsEmpty());
    pass(1ms);
    EXPECT_THAT(takeEvents(), ElementsAre(u"0 notes"_qs, u"No notes found matching 'zz'"_qs));
    type(u"/search_notes zz"_qs);
    EXPECT_EQ(state->searchQuery(), u"zz"_qs) << "also without a change";
}

TEST_F(CommandExecutionTest, EditOutsideASearchCancelsIt)
{
    type(u"/search_notes #tasks"_qs);
    type(u"tasks"_qs);
    EXPECT_EQ(state->searchQuery(), std::nullopt);
    pass(1s);
    EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(CommandExecutionTest, EmptyQueryCancelsASearch)
{
    type(u"/search_notes #tasks"_qs);
    type(u"/search_notes "_qs);
    EXPECT_EQ(state->searchQuery(), std::nullopt);
    pass(1s);
    EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(CommandExecutionTest, TextThatIsOnlyAssignedCancelsNothing)
{
    type(u"/search_notes #tasks"_qs);
    state->setText(u"x"_qs);
    pass(300ms);
    EXPECT_THAT(takeEvents(), ElementsAre(u"2 notes"_qs));
}

TEST_F(CommandExecutionTest, WaitingSearchRunsThoughTheStateIsGone)
{
    type(u"/search_notes #tasks"_qs);
    state.reset();
    pass(300ms);
    EXPECT_THAT(takeEvents(), ElementsAre(u"2 notes"_qs));
}

TEST_F(CommandExecutionTest, CancelledSearchStaysSoThoughTheStateIsGone)
{
    type(u"/search_notes #tasks"_qs);
    type(u"x"_qs);
    state.reset();
    pass(300ms);
    EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(CommandExecutionTest, SuccessCancelsAWaitingSearch)
{
    type(u"/search_notes #tasks"_qs);
    EXPECT_TRUE(finished(state->executeCommand()));
    EXPECT_EQ(state->searchQuery(), std::nullopt);
    EXPECT_THAT(takeEvents(), ElementsAre(u"2 notes"_qs));
    pass(1s);
    EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(CommandExecutionTest, FailureLeavesAWaitingSearchAlone)
{
    settings.setObsidianFolderPath(std::nullopt);
    type(u"/search_notes #tasks"_qs);
    EXPECT_FALSE(finished(state->executeCommand()));
    EXPECT_EQ(state->searchQuery(), u"#tasks"_qs);
}

} // namespace

} // namespace jotwell
