#include "Services/InputFixture.h"

#include <gmock/gmock.h>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct TypingRow {
    const char* name;
    QString typed;
    QString text; ///< that has become of it
    QString dropdown;
    QString carried = {}; ///< template and folder
    QString query = {};
};

class Typing : public CommandTemplateStateTest, public testing::WithParamInterface<TypingRow> {};

const QString closed = u"closed"_qs;
const QString allCommandRows = u"command: /new_note*, /search_notes, /recent"_qs;

TypingRow unchanged(const char* name, const QString& text, const QString& dropdown,
                    const QString& query = {})
{
    return {name, text, text, dropdown, {}, query};
}

const TypingRow typingRows[] = {
    unchanged("NothingIsClosed", QString(), closed),
    unchanged("SlashOffersAllCommands", u"/"_qs, allCommandRows),
    unchanged("BeginOfACommand", u"/re"_qs, u"command: /recent*"_qs),
    unchanged("PartOfTwoCommands", u"/no"_qs, u"command: /new_note*, /search_notes"_qs),
    unchanged("NoCommand", u"/zz"_qs, closed),
    unchanged("SlashBehindAWord", u"hello /"_qs, allCommandRows),
    unchanged("BlankBehindTheSlash", u"hello / "_qs, closed),
    unchanged("LineEndBehindTheSlash", u"/re\n"_qs, closed),
    {"NewNote", u"/new_note"_qs, u"/new_note  $Daily Note"_qs, u"command: /new_note*"_qs,
     u"Daily Note"_qs},
    {"NewNoteAndABlank", u"/new_note "_qs, u"/new_note  $Daily Note "_qs, closed, u"Daily Note"_qs},
    {"NewNoteAndALetter", u"/new_notes"_qs, u"/new_note  $Daily Notes"_qs, closed,
     u"Daily Note"_qs},
    {"Recent", u"/recent"_qs, u"/recent  $All Folders"_qs, closed, u"All Folders"_qs},
    {"RecentAndABlank", u"/recent "_qs, u"/recent  $All Folders "_qs, closed, u"All Folders"_qs},
    {"RecentAndALetter", u"/recentx"_qs, u"/recent  $All Foldersx"_qs, closed, u"All Folders"_qs},
    unchanged("BeginOfAFolder", u"/recent  $In"_qs, u"folder: Inbox*"_qs),
    unchanged("DollarOffersAllFolders", u"/recent  $"_qs, u"folder: All Folders*, Inbox, Work"_qs),
    unchanged("NoFolder", u"/recent  $zz"_qs, u"folder: "_qs),
    unchanged("WholeFolder", u"/recent  $Inbox"_qs, closed),
    unchanged("WholeFolderAnywhere", u"/recent  $Inbox $Wo"_qs, closed),
    unchanged("BeginOfATemplate", u"/new_note  $Da"_qs, u"template: Daily Note*"_qs),
    unchanged("NoTemplate", u"/new_note  $zz"_qs, u"template: "_qs),
    unchanged("WholeTemplate", u"/new_note  $Daily Note"_qs, closed),
    unchanged("SecondWordOfATemplate", u"/new_note  $Daily N"_qs, closed),
    unchanged("TemplateAndFolderGiveTemplates", u"/recent /new_note $"_qs,
              u"template: Daily Note*"_qs),
    unchanged("WholeTemplateLeavesTheFolders", u"/recent $Daily Note /new_note"_qs,
              u"command: /new_note*"_qs),
    unchanged("DollarWithoutACommand", u"cost $5"_qs, closed),
    unchanged("DollarKeepsAParameterAway", u"cost $5 /recent"_qs, u"command: /recent*"_qs),
    unchanged("DollarKeepsATemplateAway", u"cost $5 /new_note"_qs, u"command: /new_note*"_qs),
    unchanged("OpenDollarBeforeTheCommand", u"$5/recent"_qs, u"folder: "_qs),
    unchanged("SearchAlone", u"/search_notes"_qs, closed),
    unchanged("SearchForBlanks", u"/search_notes \n"_qs, closed),
    unchanged("Search", u"/search_notes cats"_qs, closed, u"cats"_qs),
    unchanged("SearchForATag", u"/search_notes #ta"_qs, u"hashtag: #tasks*"_qs, u"#ta"_qs),
    unchanged("SearchForNoTag", u"/search_notes #zz"_qs, closed, u"#zz"_qs),
    unchanged("SearchOffersNoCommands", u"/search_notes /re"_qs, closed, u"/re"_qs),
    unchanged("SearchOffersNoTemplates", u"/search_notes /new_note $"_qs, closed,
              u"/new_note $"_qs),
    unchanged("SearchGivesNoTemplate", u"/search_notes /new_note"_qs, closed, u"/new_note"_qs),
    {"SearchGivesAFolder", u"/search_notes /recent"_qs, u"/search_notes /recent  $All Folders"_qs,
     closed, u"All Folders"_qs, u"/recent  $All Folders"_qs},
    {"BothCommandsShareOneParameter", u"/new_note /recent"_qs,
     u"/new_note /recent  $All Folders"_qs, closed, u"All Folders"_qs},
    unchanged("BeginOfATag", u"note #ta"_qs, u"hashtag: #tasks*"_qs),
    unchanged("HashOffersAllTags", u"note #"_qs, u"hashtag: #tasks*, #work"_qs),
    unchanged("BlankEndsATag", u"note #tag "_qs, closed),
    unchanged("CommaEndsATag", u"note #tag, more"_qs, closed),
    unchanged("HashWithinAWord", u"a#tag"_qs, closed),
    unchanged("NoTag", u"note #zz"_qs, closed),
    unchanged("TagBeforeTemplate", u"/new_note $ #ta"_qs, u"hashtag: #tasks*"_qs),
    unchanged("NoTagLeavesTheTemplatesClosed", u"/new_note #zz$"_qs, closed),
};

TEST_P(Typing, OpensTheListForTheEndOfTheText)
{
    type(GetParam().typed);
    EXPECT_EQ(state->text(), GetParam().text);
    EXPECT_EQ(dropdown(), GetParam().dropdown);
    EXPECT_EQ(state->forceTextUpdate(), GetParam().typed != GetParam().text);
    const auto& fields = state->fields();
    const QString name = fields.currentTemplate ? fields.currentTemplate->name : QString();
    EXPECT_EQ(name + fields.currentFolderName.value_or(QString()), GetParam().carried);
    EXPECT_EQ(state->searchQuery().value_or(QString()), GetParam().query);
    EXPECT_EQ(fields.showDropdown, fields.dropdownType != DropdownType::none);
}

INSTANTIATE_TEST_SUITE_P(Rows, Typing, testing::ValuesIn(typingRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(CommandTemplateStateTest, StartsWithNothing)
{
    EXPECT_EQ(dropdown(), closed);
    for (int field = 0; field <= int(CommandTemplateField::selectedFolder); ++field) {
        EXPECT_THAT(wordsOf(state->fields(), CommandTemplateField(field)),
                    testing::AnyOf(u"false"_qs, u"none"_qs, QString()));
    }
    EXPECT_EQ(state->searchQuery(), std::nullopt);
    EXPECT_THAT(state->dropdownItems(), IsEmpty());
    EXPECT_EQ(state->selectedItem(), std::nullopt);
}

TEST_F(CommandTemplateStateTest, TellsOfChangesOnly)
{
    state->setText(u"a"_qs);
    state->setText(u"a"_qs);
    state->setForceTextUpdate(true);
    state->setForceTextUpdate(true);
    state->setCurrentTemplate(ObsidianTemplate::meetingTemplate());
    state->setCurrentTemplate(ObsidianTemplate::meetingTemplate());
    EXPECT_THAT(takeChanges(), ElementsAre(u"text = a"_qs, u"forceTextUpdate = true"_qs,
                                           u"currentTemplate = Meeting"_qs));
}

TEST_F(CommandTemplateStateTest, CommandListIsOpenedBeforeItsRowIsSelected)
{
    type(u"/re"_qs);
    EXPECT_THAT(takeChanges(), ElementsAre(u"text = /re"_qs, u"filteredCommands = /recent"_qs,
                                           u"showDropdown = true"_qs, u"dropdownType = command"_qs,
                                           u"selectedCommand = /recent"_qs));
}

TEST_F(CommandTemplateStateTest, FolderParameterIsPutInBeforeItsNameIsKept)
{
    type(u"/recent"_qs);
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"text = /recent"_qs, u"text = /recent  $All Folders"_qs,
                            u"currentFolderName = All Folders"_qs, u"forceTextUpdate = true"_qs));
}

TEST_F(CommandTemplateStateTest, TemplateIsKeptBeforeItsParameterIsPutIn)
{
    type(u"/new_note"_qs);
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"text = /new_note"_qs, u"currentTemplate = Daily Note"_qs,
                            u"text = /new_note  $Daily Note"_qs, u"forceTextUpdate = true"_qs,
                            u"filteredCommands = /new_note"_qs, u"showDropdown = true"_qs,
                            u"dropdownType = command"_qs, u"selectedCommand = /new_note"_qs));
}

TEST_F(CommandTemplateStateTest, TemplateListTakesThePlaceOfTheCommands)
{
    type(u"/new_note"_qs);
    takeChanges();
    type(u"/new_note  $Da"_qs);
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"text = /new_note  $Da"_qs, u"filteredTemplates = Daily Note"_qs,
                            u"dropdownType = template"_qs, u"selectedCommand = none"_qs,
                            u"selectedTemplate = Daily Note"_qs));
    type(u"/new_note  $Da /"_qs);
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"text = /new_note  $Da /"_qs,
                            u"filteredCommands = /new_note, /search_notes, /recent"_qs,
                            u"dropdownType = command"_qs, u"selectedTemplate = none"_qs,
                            u"selectedCommand = /new_note"_qs));
}

TEST_F(CommandTemplateStateTest, FolderListTakesThePlaceOfTheCommands)
{
    type(u"/rec"_qs);
    takeChanges();
    type(u"/recent $W"_qs);
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"text = /recent $W"_qs, u"filteredFolders = Work"_qs,
                            u"dropdownType = folder"_qs, u"selectedCommand = none"_qs,
                            u"selectedFolder = Work"_qs));
}

TEST_F(CommandTemplateStateTest, HashtagListTakesThePlaceOfAllOthers)
{
    type(u"/recent $W"_qs);
    takeChanges();
    type(u"/recent $W #t"_qs);
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"text = /recent $W #t"_qs, u"filteredHashtags = #tasks"_qs,
                            u"dropdownType = hashtag"_qs, u"selectedFolder = none"_qs,
                            u"selectedHashtag = #tasks"_qs));
}

TEST_F(CommandTemplateStateTest, HashtagListForgetsTheCommandAndTheTemplate)
{
    type(u"/"_qs);
    takeChanges();
    type(u"#t"_qs);
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"text = #t"_qs, u"filteredHashtags = #tasks"_qs,
                            u"dropdownType = hashtag"_qs, u"selectedCommand = none"_qs,
                            u"selectedHashtag = #tasks"_qs));
    type(u"/new_note $D"_qs);
    takeChanges();
    type(u"#t"_qs);
    EXPECT_THAT(takeChanges(), ElementsAre(u"text = #t"_qs, u"dropdownType = hashtag"_qs,
                                           u"selectedTemplate = none"_qs));
}

TEST_F(CommandTemplateStateTest, ClosingKeepsTheRows)
{
    type(u"/recent $W"_qs);
    takeChanges();
    state->closeDropdowns();
    EXPECT_THAT(takeChanges(), ElementsAre(u"showDropdown = false"_qs, u"dropdownType = none"_qs,
                                           u"selectedFolder = none"_qs));
    EXPECT_EQ(state->fields().filteredFolders.size(), 1);
    EXPECT_THAT(state->dropdownItems(), IsEmpty());
}

TEST_F(CommandTemplateStateTest, ClosingForgetsInOneOrder)
{
    state->handleHashtagClick({1, 1});
    state->handleCommandClick({2, 2});
    state->handleTemplateClick({3, 3});
    state->handleCommandClick({2, 2});
    takeChanges();
    state->closeDropdowns();
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"showDropdown = false"_qs, u"dropdownType = none"_qs,
                            u"selectedCommand = none"_qs, u"selectedHashtag = none"_qs,
                            u"clickedCommandRange = none"_qs, u"clickedHashtagRange = none"_qs));
    state->handleTemplateClick({3, 3});
    takeChanges();
    state->closeDropdowns();
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"showDropdown = false"_qs, u"dropdownType = none"_qs,
                            u"selectedTemplate = none"_qs, u"clickedTemplateRange = none"_qs));
}

TEST_F(CommandTemplateStateTest, EditBesideAClickedTokenOnlyClosesTheList)
{
    const auto expectClosing = [this](const QString& text) {
        takeChanges();
        type(text);
        EXPECT_EQ(state->text(), text);
        EXPECT_EQ(dropdown(), closed);
        EXPECT_EQ(state->fields().clickedCommandRange, std::nullopt);
        EXPECT_EQ(state->fields().clickedTemplateRange, std::nullopt);
        EXPECT_EQ(state->fields().clickedHashtagRange, std::nullopt);
    };
    state->handleTemplateClick({0, 1});
    expectClosing(u"/new_note"_qs);
    state->handleCommandClick({0, 1});
    expectClosing(u"/recent"_qs);
    type(u"/recent"_qs);
    EXPECT_EQ(state->text(), u"/recent  $All Folders"_qs) << "the next edit is one like any";
}

TEST_F(CommandTemplateStateTest, EditBesideAClickedTokenForgetsAClickedTagToo)
{
    state->handleHashtagClick({0, 1});
    state->handleTemplateClick({0, 1});
    ASSERT_NE(state->fields().clickedHashtagRange, std::nullopt);
    type(u"/x"_qs);
    EXPECT_EQ(state->fields().clickedHashtagRange, std::nullopt);
}

TEST_F(CommandTemplateStateTest, EditBesideAClickedTokenLeavesTheTimerAlone)
{
    type(u"/search_notes cats"_qs);
    state->handleCommandClick({0, 13});
    type(u"hello"_qs);
    EXPECT_EQ(state->searchQuery(), u"cats"_qs);
}

TEST_F(CommandTemplateStateTest, EditBesideAClickedTagIsOneLikeAny)
{
    state->handleHashtagClick({0, 1});
    type(u"/recent"_qs);
    EXPECT_EQ(state->text(), u"/recent  $All Folders"_qs);
}

TEST_F(CommandTemplateStateTest, FolderStaysWhenItsCommandGoesAndTheTemplateGoes)
{
    type(u"/recent"_qs);
    type(u"x"_qs);
    EXPECT_EQ(state->fields().currentFolderName, u"All Folders"_qs);
    type(u"/new_note"_qs);
    ASSERT_NE(state->fields().currentTemplate, std::nullopt);
    type(u"/new_not"_qs);
    EXPECT_EQ(state->fields().currentTemplate, std::nullopt);
    type(u"/new_note"_qs);
    type(QString());
    EXPECT_EQ(state->fields().currentTemplate, std::nullopt);
}

TEST_F(CommandTemplateStateTest, TemplateStaysWhileTheTextSearches)
{
    type(u"/new_note"_qs);
    type(u"/search_notes x"_qs);
    EXPECT_NE(state->fields().currentTemplate, std::nullopt);
}

TEST_F(CommandTemplateStateTest, TemplateOfTheTextIsTheLastUsedOne)
{
    useTemplates({u"Daily Note"_qs, u"Plan"_qs});
    settings.setLastUsedTemplateId(settings.obsidianTemplates().last().id);
    type(u"a /new_note b"_qs);
    EXPECT_EQ(state->text(), u"a /new_note  $Plan b"_qs);
}

TEST_F(CommandTemplateStateTest, DecidesByTheTextAsItHasBecome)
{
    type(u"/new_note a #ta"_qs);
    EXPECT_EQ(state->text(), u"/new_note  $Daily Note a #ta"_qs);
    EXPECT_EQ(dropdown(), u"hashtag: #tasks*"_qs);
    type(u"a /recent /new_note"_qs);
    EXPECT_EQ(state->text(), u"a /recent  $All Folders /new_note"_qs);
    EXPECT_EQ(dropdown(), u"command: /new_note*"_qs);
}

} // namespace

} // namespace jotwell
