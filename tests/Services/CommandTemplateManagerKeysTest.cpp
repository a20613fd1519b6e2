#include "Services/InputFixture.h"

#include <gmock/gmock.h>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using InputKeysTest = CommandTemplateStateTest;

TEST_F(InputKeysTest, ArrowsMoveTheSelectionAndStopAtTheEnds)
{
    type(u"/"_qs);
    EXPECT_TRUE(state->handleArrowKey(ArrowDirection::down));
    EXPECT_EQ(dropdown(), u"command: /new_note, /search_notes*, /recent"_qs);
    EXPECT_TRUE(state->handleArrowKey(ArrowDirection::down));
    EXPECT_EQ(dropdown(), u"command: /new_note, /search_notes, /recent*"_qs);
    EXPECT_THAT(takeEvents(), ElementsAre(u"scroll down"_qs, u"scroll down"_qs));
    takeChanges();
    EXPECT_TRUE(state->handleArrowKey(ArrowDirection::down));
    EXPECT_THAT(takeChanges(), IsEmpty());
    EXPECT_THAT(takeEvents(), IsEmpty());
    EXPECT_TRUE(state->handleArrowKey(ArrowDirection::up));
    EXPECT_TRUE(state->handleArrowKey(ArrowDirection::up));
    EXPECT_EQ(dropdown(), u"command: /new_note*, /search_notes, /recent"_qs);
    EXPECT_THAT(takeEvents(), ElementsAre(u"scroll up"_qs, u"scroll up"_qs));
    EXPECT_TRUE(state->handleArrowKey(ArrowDirection::up));
    EXPECT_THAT(takeEvents(), IsEmpty());
}

TEST_F(InputKeysTest, ArrowsMoveInEveryList)
{
    useTemplates({u"A"_qs, u"B"_qs});
    type(u"/new_note $"_qs);
    state->handleArrowKey(ArrowDirection::down);
    EXPECT_EQ(dropdown(), u"template: A, B*"_qs);
    type(u"/recent $"_qs);
    state->handleArrowKey(ArrowDirection::down);
    EXPECT_EQ(dropdown(), u"folder: All Folders, Inbox*, Work"_qs);
    type(u"#"_qs);
    state->handleArrowKey(ArrowDirection::down);
    EXPECT_EQ(dropdown(), u"hashtag: #tasks, #work*"_qs);
    state->handleArrowKey(ArrowDirection::up);
    EXPECT_EQ(dropdown(), u"hashtag: #tasks*, #work"_qs);
}

TEST_F(InputKeysTest, ArrowsAreNotForAClosedList)
{
    type(u"hello"_qs);
    EXPECT_FALSE(state->handleArrowKey(ArrowDirection::down));
    EXPECT_FALSE(state->handleArrowKey(ArrowDirection::up));
}

TEST_F(InputKeysTest, ArrowsAreNotForAnEmptyList)
{
    type(u"/new_note  $zz"_qs);
    ASSERT_TRUE(state->fields().showDropdown);
    EXPECT_FALSE(state->handleArrowKey(ArrowDirection::down));
}

TEST_F(InputKeysTest, ArrowsAreNotForRowsThatArentShown)
{
    type(u"#"_qs);
    state->closeDropdowns();
    state->handleHashtagClick({0, 1});
    state->setText(u"x"_qs);
    ASSERT_TRUE(state->handleArrowKey(ArrowDirection::down));
    state->closeDropdowns();
    EXPECT_FALSE(state->handleArrowKey(ArrowDirection::down));
}

TEST_F(InputKeysTest, SelectionThatIsNoRowGoesToTheFirst)
{
    useTemplates({u"A"_qs, u"B"_qs});
    type(u"/new_note  $"_qs);
    ASSERT_TRUE(state->handleArrowKey(ArrowDirection::down));
    takeEvents();
    useTemplates({u"C"_qs, u"D"_qs});
    state->setText(u"x"_qs);
    state->updateTemplateDropdown(); // takes the rows alone
    EXPECT_EQ(dropdown(), u"template: C, D"_qs);
    EXPECT_TRUE(state->handleArrowKey(ArrowDirection::up));
    EXPECT_EQ(dropdown(), u"template: C*, D"_qs);
    EXPECT_THAT(takeEvents(), ElementsAre(u"scroll"_qs)) << "without a direction";
}

TEST_F(InputKeysTest, SelectionIsARowByItsIdentifier)
{
    useTemplates({u"A"_qs, u"B"_qs});
    type(u"/new_note  $"_qs);
    ObsidianTemplates renamed = settings.obsidianTemplates();
    renamed.first().name = u"Z"_qs;
    settings.setObsidianTemplates(renamed);
    state->handleTextChange();
    ASSERT_EQ(state->fields().selectedTemplate->name, u"A"_qs);
    EXPECT_TRUE(state->handleArrowKey(ArrowDirection::down));
    EXPECT_EQ(state->fields().selectedTemplate->name, u"B"_qs);
}

TEST_F(InputKeysTest, NoSelectionGoesToTheFirst)
{
    type(u"#"_qs);
    state->selectItem(Command::newNote); // closes the list
    state->updateFolderDropdown();
    state->handleTemplateClick({0, 0});
    EXPECT_EQ(dropdown(), u"template: Daily Note*"_qs);
}

TEST_F(InputKeysTest, RowsThatArentThereCantBeSelected)
{
    type(u"/no"_qs);
    takeChanges();
    state->selectItemAtIndex(2, ArrowDirection::down);
    state->selectItemAtIndex(-1, ArrowDirection::up);
    state->selectItemAtIndex(std::numeric_limits<qsizetype>::max(), std::nullopt);
    EXPECT_THAT(takeChanges(), IsEmpty());
    EXPECT_THAT(takeEvents(), IsEmpty());
    state->selectItemAtIndex(1, std::nullopt);
    EXPECT_THAT(takeChanges(), ElementsAre(u"selectedCommand = /search_notes"_qs));
    EXPECT_THAT(takeEvents(), ElementsAre(u"scroll"_qs));
    state->selectItemAtIndex(1, ArrowDirection::up);
    EXPECT_THAT(takeEvents(), ElementsAre(u"scroll up"_qs)) << "also for the selected row";
}

TEST_F(InputKeysTest, RowIsSelectedBeforeTheListScrolls)
{
    type(u"/"_qs);
    QString selected;
    QObject::connect(state.get(), &CommandTemplateState::scrollToSelectedItem, state.get(),
                     [&] { selected = rawValue(*state->fields().selectedCommand); });
    state->handleArrowKey(ArrowDirection::down);
    EXPECT_EQ(selected, u"/search_notes"_qs);
}

TEST_F(InputKeysTest, EnterIsNotForAClosedList)
{
    type(u"hello"_qs);
    EXPECT_FALSE(state->handleEnterKey());
    EXPECT_EQ(state->text(), u"hello"_qs);
}

TEST_F(InputKeysTest, EnterIsNotForAnEmptyList)
{
    type(u"/new_note  $zz"_qs);
    EXPECT_FALSE(state->handleEnterKey());
    EXPECT_EQ(state->text(), u"/new_note  $zz"_qs);
    EXPECT_TRUE(state->fields().showDropdown);
}

TEST_F(InputKeysTest, EnterTakesASelectionThatIsNoRowAnyMore)
{
    useTemplates({u"A"_qs});
    type(u"/new_note  $"_qs);
    const ObsidianTemplate selected = *state->fields().selectedTemplate;
    useTemplates({u"B"_qs});
    state->setText(u"x"_qs);
    state->updateTemplateDropdown(); // takes the rows alone
    EXPECT_TRUE(state->handleEnterKey());
    EXPECT_EQ(state->fields().currentTemplate, selected);
}

TEST_F(InputKeysTest, EnterIsNotForAListThatIsntShown)
{
    index.clearIndex();
    state->handleHashtagClick({0, 1});
    ASSERT_EQ(state->fields().dropdownType, DropdownType::hashtag);
    EXPECT_FALSE(state->handleEnterKey());
    EXPECT_FALSE(state->handleArrowKey(ArrowDirection::down));
}

TEST_F(InputKeysTest, CommandClickOffersAllCommands)
{
    state->setText(u"/recent"_qs);
    takeChanges();
    state->handleCommandClick({0, 7});
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"clickedCommandRange = 0+7"_qs, u"showDropdown = true"_qs,
                            u"dropdownType = command"_qs,
                            u"filteredCommands = /new_note, /search_notes, /recent"_qs,
                            u"selectedCommand = /new_note"_qs));
}

TEST_F(InputKeysTest, CommandClickForgetsAClickedParameterAndKeepsAClickedTag)
{
    state->handleHashtagClick({1, 1});
    state->handleTemplateClick({2, 2});
    takeChanges();
    state->handleCommandClick({0, 7});
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"clickedCommandRange = 0+7"_qs, u"dropdownType = command"_qs,
                            u"filteredCommands = /new_note, /search_notes, /recent"_qs,
                            u"selectedCommand = /new_note"_qs, u"selectedTemplate = none"_qs,
                            u"clickedTemplateRange = none"_qs));
    EXPECT_NE(state->fields().clickedHashtagRange, std::nullopt);
    EXPECT_NE(state->fields().selectedHashtag, std::nullopt);
}

TEST_F(InputKeysTest, TemplateClickOffersAllTemplates)
{
    useTemplates({u"Daily Note"_qs, u"Plan"_qs});
    type(u"/new_note $zz"_qs);
    takeChanges();
    state->handleTemplateClick({10, 3});
    EXPECT_THAT(takeChanges(), ElementsAre(u"clickedTemplateRange = 10+3"_qs,
                                           u"filteredTemplates = Daily Note, Plan"_qs,
                                           u"selectedTemplate = Daily Note"_qs));
}

TEST_F(InputKeysTest, TemplateClickForgetsACommandAndAFolder)
{
    state->setText(u"/recent $x"_qs);
    state->handleTemplateClick({8, 2});
    state->handleCommandClick({0, 7});
    state->setText(u"/new_note $x"_qs);
    takeChanges();
    state->handleTemplateClick({10, 2});
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"clickedTemplateRange = 10+2"_qs, u"dropdownType = template"_qs,
                            u"filteredTemplates = Daily Note"_qs,
                            u"selectedTemplate = Daily Note"_qs, u"selectedFolder = none"_qs,
                            u"selectedCommand = none"_qs, u"clickedCommandRange = none"_qs));
}

TEST_F(InputKeysTest, TemplateClickWithoutTemplatesOpensAnEmptyList)
{
    useTemplates({});
    state->handleTemplateClick({0, 1});
    EXPECT_EQ(dropdown(), u"template: "_qs);
    EXPECT_EQ(state->fields().selectedTemplate, std::nullopt);
}

TEST_F(InputKeysTest, TemplateClickBesideRecentOffersAllFolders)
{
    type(u"/new_note $Daily Note /recent $I"_qs);
    state->handleCommandClick({0, 9});
    state->handleTemplateClick({0, 9});
    state->setText(u"/new_note /recent $x"_qs);
    state->handleCommandClick({0, 9});
    takeChanges();
    state->handleTemplateClick({18, 2});
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"clickedTemplateRange = 18+2"_qs, u"dropdownType = folder"_qs,
                            u"selectedCommand = none"_qs, u"clickedCommandRange = none"_qs));
    EXPECT_EQ(dropdown(), u"folder: All Folders*, Inbox, Work"_qs);
}

TEST_F(InputKeysTest, FolderClickIsAssignedInOrder)
{
    state->setText(u"/new_note $x"_qs);
    state->handleTemplateClick({10, 2});
    state->setText(u"/recent $x"_qs);
    state->closeDropdowns();
    state->updateTemplateDropdown();
    state->handleCommandClick({0, 7});
    takeChanges();
    state->handleTemplateClick({8, 2});
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"clickedTemplateRange = 8+2"_qs, u"dropdownType = folder"_qs,
                            u"filteredFolders = All Folders, Inbox, Work"_qs,
                            u"selectedFolder = All Folders"_qs, u"selectedCommand = none"_qs,
                            u"clickedCommandRange = none"_qs));
}

TEST_F(InputKeysTest, FolderClickForgetsATemplate)
{
    state->setText(u"/new_note $x"_qs);
    state->handleTemplateClick({10, 2});
    state->setText(u"/recent $x"_qs);
    takeChanges();
    state->handleTemplateClick({8, 2});
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"clickedTemplateRange = 8+2"_qs, u"dropdownType = folder"_qs,
                            u"filteredFolders = All Folders, Inbox, Work"_qs,
                            u"selectedFolder = All Folders"_qs, u"selectedTemplate = none"_qs));
}

TEST_F(InputKeysTest, HashtagClickOffersAllTags)
{
    state->setText(u"#zz"_qs);
    takeChanges();
    state->handleHashtagClick({0, 3});
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"clickedHashtagRange = 0+3"_qs, u"dropdownType = hashtag"_qs,
                            u"filteredHashtags = #tasks, #work"_qs, u"selectedHashtag = #tasks"_qs,
                            u"showDropdown = true"_qs));
}

TEST_F(InputKeysTest, HashtagClickForgetsAllOthers)
{
    state->handleTemplateClick({1, 1});
    takeChanges();
    state->handleHashtagClick({0, 3});
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"clickedHashtagRange = 0+3"_qs, u"dropdownType = hashtag"_qs,
                            u"filteredHashtags = #tasks, #work"_qs, u"selectedHashtag = #tasks"_qs,
                            u"selectedTemplate = none"_qs, u"clickedTemplateRange = none"_qs));
    state->handleCommandClick({1, 1});
    takeChanges();
    state->handleHashtagClick({0, 3});
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"dropdownType = hashtag"_qs, u"selectedCommand = none"_qs,
                            u"clickedCommandRange = none"_qs));
    state->setText(u"/recent"_qs);
    state->handleTemplateClick({1, 1});
    takeChanges();
    state->handleHashtagClick({0, 3});
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"dropdownType = hashtag"_qs, u"selectedFolder = none"_qs,
                            u"clickedTemplateRange = none"_qs));
}

TEST_F(InputKeysTest, HashtagClickWithoutTagsOpensNothing)
{
    index.clearIndex();
    takeChanges();
    state->handleHashtagClick({0, 3});
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"clickedHashtagRange = 0+3"_qs, u"dropdownType = hashtag"_qs));
    EXPECT_EQ(dropdown(), u"closed"_qs);
}

TEST_F(InputKeysTest, HashtagClickWithoutTagsLeavesAnOpenListOpen)
{
    index.clearIndex();
    state->handleCommandClick({0, 3});
    takeChanges();
    state->handleHashtagClick({0, 3});
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"clickedHashtagRange = 0+3"_qs, u"dropdownType = hashtag"_qs));
    EXPECT_EQ(dropdown(), u"hashtag: "_qs);
    EXPECT_NE(state->fields().clickedCommandRange, std::nullopt);
}

} // namespace

} // namespace jotwell
