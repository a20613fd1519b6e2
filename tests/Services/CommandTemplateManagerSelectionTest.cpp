#include "Services/InputFixture.h"

#include <gmock/gmock.h>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using namespace std::chrono_literals;

using InputSelectionTest = CommandTemplateStateTest;

ObsidianTemplate named(const QString& name)
{
    return {QUuid::createUuid(), name, QString(), true, TemplateType::regular()};
}

TEST_F(InputSelectionTest, RecentIsPutInAndRunAtOnce)
{
    type(u"/re"_qs);
    EXPECT_TRUE(state->handleEnterKey());
    EXPECT_EQ(state->text(), u"/recent  $All Folders "_qs);
    EXPECT_EQ(state->fields().currentFolderName, u"All Folders"_qs);
    EXPECT_EQ(dropdown(), u"closed"_qs);
    EXPECT_THAT(takeEvents(), IsEmpty()) << "not inside the call";
    pass(0ms);
    EXPECT_THAT(takeEvents(), ElementsAre(u"2 notes"_qs));
    EXPECT_EQ(state->text(), u"/recent  $All Folders "_qs) << "it stays";
}

TEST_F(InputSelectionTest, RecentIsAssignedInOrder)
{
    type(u"/re"_qs);
    takeChanges();
    state->handleEnterKey();
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"text = /recent  $All Folders "_qs,
                            u"currentFolderName = All Folders"_qs, u"forceTextUpdate = true"_qs,
                            u"showDropdown = false"_qs, u"dropdownType = none"_qs,
                            u"selectedCommand = none"_qs));
}

TEST_F(InputSelectionTest, ClickedRecentIsAssignedInOrder)
{
    state->setText(u"a /x \t b "_qs);
    state->handleCommandClick({2, 2});
    takeChanges();
    state->selectItem(Command::recentNotes);
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"selectedCommand = /recent"_qs, u"text = a /recent  $All Folders b"_qs,
                            u"currentFolderName = All Folders"_qs, u"forceTextUpdate = true"_qs,
                            u"clickedCommandRange = none"_qs, u"showDropdown = false"_qs,
                            u"dropdownType = none"_qs, u"selectedCommand = none"_qs));
    pass(0ms);
    EXPECT_THAT(takeEvents(), ElementsAre(u"Folder not found: All Folders b"_qs, u"2 notes"_qs));
}

TEST_F(InputSelectionTest, NewNoteIsPutInWithTheLastUsedTemplate)
{
    type(u"/ne"_qs);
    EXPECT_TRUE(state->handleEnterKey());
    EXPECT_EQ(state->text(), u"/new_note  $Daily Note"_qs);
    EXPECT_EQ(state->fields().currentTemplate->name, u"Daily Note"_qs);
    EXPECT_EQ(dropdown(), u"closed"_qs);
    EXPECT_EQ(scheduler.pendingCount(), 0u) << "nothing runs";
}

TEST_F(InputSelectionTest, NewNoteIsAssignedInOrder)
{
    type(u" /ne"_qs);
    takeChanges();
    state->handleEnterKey();
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"currentTemplate = Daily Note"_qs,
                            u"text =  /new_note  $Daily Note "_qs,
                            u"text = /new_note  $Daily Note"_qs, u"forceTextUpdate = true"_qs,
                            u"showDropdown = false"_qs, u"dropdownType = none"_qs,
                            u"selectedCommand = none"_qs));
}

TEST_F(InputSelectionTest, SearchIsPutInWithoutABlankBehind)
{
    type(u"/se"_qs);
    state->setCurrentTemplate(named(u"Any"_qs));
    EXPECT_TRUE(state->handleEnterKey());
    EXPECT_EQ(state->text(), u"/search_notes"_qs);
    EXPECT_EQ(state->fields().currentTemplate, std::nullopt);
    EXPECT_TRUE(state->forceTextUpdate());
}

TEST_F(InputSelectionTest, BlanksAtTheEndsGoAndLineEndsStay)
{
    type(u"\n /se"_qs);
    EXPECT_TRUE(state->handleEnterKey());
    EXPECT_EQ(state->text(), u"\n /search_notes"_qs);
    type(u"\u00a0 a /se"_qs);
    EXPECT_TRUE(state->handleEnterKey());
    EXPECT_EQ(state->text(), u"a /search_notes"_qs);
}

TEST_F(InputSelectionTest, RowsMayChangeWhileOneIsChosen)
{
    type(u"note #"_qs);
    QList<CommandTemplateState::Item> shown = state->dropdownItems();
    QObject::connect(state.get(), &CommandTemplateState::changed, state.get(),
                     [&shown] { shown = {}; });
    state->selectItem(shown.first());
    EXPECT_EQ(state->text(), u"note #tasks "_qs);
}

TEST_F(InputSelectionTest, SearchIsAssignedInOrder)
{
    state->setText(u"a /se b"_qs);
    state->setCurrentTemplate(named(u"Any"_qs));
    state->handleCommandClick({2, 3});
    takeChanges();
    state->selectItem(Command::searchNotes);
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"selectedCommand = /search_notes"_qs, u"text = a /search_notes  b"_qs,
                            u"currentTemplate = none"_qs, u"forceTextUpdate = true"_qs,
                            u"clickedCommandRange = none"_qs, u"showDropdown = false"_qs,
                            u"dropdownType = none"_qs, u"selectedCommand = none"_qs));
}

TEST_F(InputSelectionTest, SearchBehindAWord)
{
    type(u"hello /se"_qs);
    state->selectItem(Command::searchNotes);
    EXPECT_EQ(state->text(), u"hello /search_notes"_qs);
}

TEST_F(InputSelectionTest, SearchInPlaceOfANewNoteDropsTheParameter)
{
    state->setText(u"/new_note  $Daily Note hello"_qs);
    state->setCurrentTemplate(named(u"Daily Note"_qs));
    state->handleCommandClick({0, 9});
    takeChanges();
    state->selectItem(Command::searchNotes);
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"selectedCommand = /search_notes"_qs, u"text = /search_notes hello"_qs,
                            u"currentTemplate = none"_qs, u"forceTextUpdate = true"_qs,
                            u"clickedCommandRange = none"_qs, u"showDropdown = false"_qs,
                            u"dropdownType = none"_qs, u"selectedCommand = none"_qs));
}

TEST_F(InputSelectionTest, RecentInPlaceOfANewNoteIsNotRun)
{
    state->setText(u"/new_note  $Daily Note hello"_qs);
    state->handleCommandClick({0, 9});
    state->selectItem(Command::recentNotes);
    EXPECT_EQ(state->text(), u"/recent hello"_qs);
    EXPECT_EQ(state->fields().currentFolderName, std::nullopt);
    EXPECT_EQ(scheduler.pendingCount(), 0u);
}

TEST_F(InputSelectionTest, RecentTypedBesideANewNoteIsNotRun)
{
    type(u"/new_note  $Daily Note /re"_qs);
    state->handleEnterKey();
    EXPECT_EQ(state->text(), u"/new_note /recent"_qs);
    EXPECT_EQ(scheduler.pendingCount(), 0u);
    state->handleTextChange();
    EXPECT_EQ(state->text(), u"/new_note /recent  $All Folders"_qs) << "the parameter comes then";
}

TEST_F(InputSelectionTest, RecentInPlaceOfAWordThatBeginsLikeNewIsNotRun)
{
    type(u"/new"_qs);
    state->selectItem(Command::recentNotes);
    EXPECT_EQ(state->text(), u"/recent"_qs);
    EXPECT_EQ(scheduler.pendingCount(), 0u);
}

TEST_F(InputSelectionTest, CommandWithoutATokenOnlyClosesTheList)
{
    type(u"/re"_qs);
    state->setText(u"/re "_qs);
    takeChanges();
    state->selectItem(Command::newNote);
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"selectedCommand = /new_note"_qs, u"showDropdown = false"_qs,
                            u"dropdownType = none"_qs, u"selectedCommand = none"_qs));
    EXPECT_EQ(state->text(), u"/re "_qs);
}

TEST_F(InputSelectionTest, LastOfTwoEqualTokensIsReplaced)
{
    type(u"/se /se"_qs);
    state->handleEnterKey();
    EXPECT_EQ(state->text(), u"/se /search_notes"_qs);
}

TEST_F(InputSelectionTest, TemplateTakesTheTypedParametersPlace)
{
    type(u"/new_note  $Da"_qs);
    takeChanges();
    EXPECT_TRUE(state->handleEnterKey());
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"currentTemplate = Daily Note"_qs, u"text = /new_note  $Daily Note"_qs,
                            u"forceTextUpdate = true"_qs, u"showDropdown = false"_qs,
                            u"dropdownType = none"_qs, u"selectedTemplate = none"_qs));
    EXPECT_EQ(settings.lastUsedTemplateId(), settings.obsidianTemplates().first().id);
}

TEST_F(InputSelectionTest, TemplateTakesTheClickedParametersPlace)
{
    const ObsidianTemplate plan = named(u"Plan"_qs);
    state->setText(u"/new_note  $Daily Note hello $x"_qs);
    state->handleTemplateClick({11, 11});
    takeChanges();
    state->selectItem(plan);
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"selectedTemplate = Plan"_qs, u"currentTemplate = Plan"_qs,
                            u"text = /new_note  $Plan hello $x"_qs, u"forceTextUpdate = true"_qs,
                            u"showDropdown = false"_qs, u"dropdownType = none"_qs,
                            u"selectedTemplate = none"_qs, u"clickedTemplateRange = none"_qs));
    EXPECT_EQ(settings.lastUsedTemplateId(), plan.id);
}

TEST_F(InputSelectionTest, TemplateWithoutATokenIsTheLastUsedAllTheSame)
{
    const ObsidianTemplate plan = named(u"Plan"_qs);
    state->setText(u"$x"_qs);
    state->selectItem(plan);
    EXPECT_EQ(state->text(), u"$x"_qs);
    EXPECT_FALSE(state->forceTextUpdate());
    EXPECT_EQ(state->fields().currentTemplate, plan);
    EXPECT_EQ(settings.lastUsedTemplateId(), plan.id);
}

TEST_F(InputSelectionTest, FolderTakesTheTypedParametersPlaceAndRuns)
{
    type(u"/recent  $In"_qs);
    takeChanges();
    EXPECT_TRUE(state->handleEnterKey());
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"currentFolderName = Inbox"_qs, u"text = /recent  $Inbox"_qs,
                            u"forceTextUpdate = true"_qs, u"showDropdown = false"_qs,
                            u"dropdownType = none"_qs, u"selectedFolder = none"_qs));
    EXPECT_THAT(takeEvents(), IsEmpty());
    pass(0ms);
    EXPECT_THAT(takeEvents(), ElementsAre(u"1 notes"_qs));
    EXPECT_EQ(state->text(), u"/recent  $Inbox"_qs);
}

TEST_F(InputSelectionTest, FolderTakesTheClickedParametersPlaceAndRuns)
{
    state->setText(u"/recent  $Inbox"_qs);
    state->handleTemplateClick({9, 6});
    takeChanges();
    state->selectItem(FolderItem{u"Work"_qs});
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"selectedFolder = Work"_qs, u"currentFolderName = Work"_qs,
                            u"text = /recent  $Work"_qs, u"forceTextUpdate = true"_qs,
                            u"showDropdown = false"_qs, u"dropdownType = none"_qs,
                            u"selectedFolder = none"_qs, u"clickedTemplateRange = none"_qs));
    pass(0ms);
    EXPECT_THAT(takeEvents(), ElementsAre(u"1 notes"_qs));
}

TEST_F(InputSelectionTest, FolderWithoutATokenRunsAllTheSame)
{
    state->setText(u"x"_qs);
    state->selectItem(FolderItem{u"Work"_qs});
    EXPECT_EQ(state->text(), u"x"_qs);
    EXPECT_FALSE(state->forceTextUpdate());
    pass(0ms);
    EXPECT_THAT(takeEvents(), ElementsAre(u"2 notes"_qs));
}

TEST_F(InputSelectionTest, RunHasTheTextOfItsStart)
{
    type(u"/recent  $In"_qs);
    state->handleEnterKey();
    state->setText(u"/recent  $Nowhere"_qs);
    pass(0ms);
    EXPECT_THAT(takeEvents(), ElementsAre(u"1 notes"_qs));
}

TEST_F(InputSelectionTest, RunHappensThoughTheStateIsGone)
{
    type(u"/recent  $In"_qs);
    state->handleEnterKey();
    state.reset();
    pass(0ms);
    EXPECT_THAT(takeEvents(), ElementsAre(u"1 notes"_qs));
}

TEST_F(InputSelectionTest, RunEndsThoughTheStateIsGoneMeanwhile)
{
    type(u"/recent  $In"_qs);
    state->handleEnterKey();
    scheduler.advance(0ms);
    state.reset();
    settle();
    EXPECT_THAT(takeEvents(), ElementsAre(u"1 notes"_qs));
}

TEST_F(InputSelectionTest, HiddenTemplatesAreNoParameters)
{
    useTemplates({u"Daily Note"_qs, u"Hidden"_qs});
    ObsidianTemplates all = settings.obsidianTemplates();
    all.last().showInDropdown = false;
    settings.setObsidianTemplates(all);
    state->setText(u"/recent  $Hidden b"_qs);
    state->handleCommandClick({0, 7});
    state->selectItem(Command::newNote);
    EXPECT_EQ(state->text(), u"/new_note  $Daily Note $Hidden b"_qs);
    state->setText(u"/new_note  $Hidden b"_qs);
    state->handleCommandClick({0, 9});
    state->selectItem(Command::searchNotes);
    EXPECT_EQ(state->text(), u"/search_notes  $Hidden b"_qs);
}

TEST_F(InputSelectionTest, OnlyAChosenTemplateIsTheLastUsedOne)
{
    type(u"/new_note"_qs);
    state->selectItem(Command::newNote);
    type(u"/ne"_qs);
    state->selectItem(Command::newNote);
    EXPECT_EQ(settings.lastUsedTemplateId(), std::nullopt);
}

TEST_F(InputSelectionTest, FolderAndTemplateOfTheTextAreForgottenByNoOther)
{
    const ObsidianTemplate plan = named(u"Plan"_qs);
    type(u"/re"_qs);
    state->setCurrentTemplate(plan);
    state->selectItem(Command::recentNotes);
    EXPECT_EQ(state->fields().currentTemplate, plan);
    state->selectItem(FolderItem{u"Work"_qs});
    EXPECT_EQ(state->fields().currentTemplate, plan);
    type(u"/se"_qs);
    state->selectItem(Command::searchNotes);
    EXPECT_EQ(state->fields().currentFolderName, u"Work"_qs);
}

TEST_F(InputSelectionTest, TagTakesTheTypedTagsPlaceWithABlankBehind)
{
    type(u"note #ta"_qs);
    takeChanges();
    EXPECT_TRUE(state->handleEnterKey());
    EXPECT_THAT(takeChanges(), ElementsAre(u"text = note #tasks "_qs, u"forceTextUpdate = true"_qs,
                                           u"showDropdown = false"_qs, u"dropdownType = none"_qs,
                                           u"selectedHashtag = none"_qs));
}

TEST_F(InputSelectionTest, TagTakesTheClickedTagsPlaceWithoutABlank)
{
    state->setText(u"note #tasks more"_qs);
    state->handleHashtagClick({5, 6});
    takeChanges();
    state->selectItem(HashtagItem{u"work"_qs, 1});
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"selectedHashtag = #work"_qs, u"text = note #work more"_qs,
                            u"forceTextUpdate = true"_qs, u"showDropdown = false"_qs,
                            u"dropdownType = none"_qs, u"selectedHashtag = none"_qs,
                            u"clickedHashtagRange = none"_qs));
}

TEST_F(InputSelectionTest, TagWithoutATokenOnlyClosesTheList)
{
    state->setText(u"note"_qs);
    state->selectItem(HashtagItem{u"work"_qs, 1});
    EXPECT_EQ(state->text(), u"note"_qs);
    EXPECT_FALSE(state->forceTextUpdate());
    EXPECT_EQ(state->fields().selectedHashtag, std::nullopt);
}

TEST_F(InputSelectionTest, SelectedFieldMayBeHandedIn)
{
    type(u"note #ta"_qs);
    state->selectItem(*state->selectedItem());
    EXPECT_EQ(state->text(), u"note #tasks "_qs);
}

TEST_F(InputSelectionTest, ListenerMayTurnTheFlagOffMeanwhile)
{
    QObject::connect(state.get(), &CommandTemplateState::changed, state.get(),
                     [this](CommandTemplateField field) {
                         if (field == CommandTemplateField::forceTextUpdate)
                             state->setForceTextUpdate(false);
                     });
    type(u"note #ta"_qs);
    state->handleEnterKey();
    EXPECT_EQ(state->text(), u"note #tasks "_qs);
    EXPECT_FALSE(state->forceTextUpdate());
    EXPECT_EQ(dropdown(), u"closed"_qs);
}

} // namespace

} // namespace jotwell
