#include "Services/InputFixture.h"

#include <QDir>

#include <gmock/gmock.h>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using InputListsTest = CommandTemplateStateTest;

TEST_F(InputListsTest, SelectedCommandIsKeptWhileItFits)
{
    type(u"/"_qs);
    state->handleArrowKey(ArrowDirection::down);
    type(u"/s"_qs);
    EXPECT_EQ(dropdown(), u"command: /search_notes*"_qs);
    type(u"/"_qs);
    EXPECT_EQ(dropdown(), u"command: /new_note, /search_notes*, /recent"_qs);
    type(u"/r"_qs);
    EXPECT_EQ(dropdown(), u"command: /search_notes*, /recent"_qs) << "both hold an r";
    type(u"/re"_qs);
    EXPECT_EQ(dropdown(), u"command: /recent*"_qs);
}

TEST_F(InputListsTest, SelectedTemplateIsKeptWhileItFits)
{
    useTemplates({u"Daily Note"_qs, u"Diary"_qs, u"Meeting"_qs});
    type(u"/new_note  $"_qs);
    state->handleArrowKey(ArrowDirection::down);
    type(u"/new_note  $d"_qs);
    EXPECT_EQ(dropdown(), u"template: Daily Note, Diary*"_qs);
    type(u"/new_note  $m"_qs);
    EXPECT_EQ(dropdown(), u"template: Meeting*"_qs);
    type(u"/new_note  $mm"_qs);
    EXPECT_EQ(state->fields().selectedTemplate, std::nullopt);
    EXPECT_EQ(dropdown(), u"template: "_qs);
}

TEST_F(InputListsTest, SelectedTemplateIsKeptByItsIdentifierAsItWas)
{
    type(u"/new_note  $"_qs);
    takeChanges();
    ObsidianTemplates renamed = settings.obsidianTemplates();
    renamed.first().name = u"Renamed"_qs;
    settings.setObsidianTemplates(renamed);
    type(u"/new_note  $r"_qs);
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"text = /new_note  $r"_qs, u"filteredTemplates = Renamed"_qs));
    EXPECT_EQ(state->fields().selectedTemplate->name, u"Daily Note"_qs);
}

TEST_F(InputListsTest, TemplateOfTheSameNameIsAnother)
{
    useTemplates({u"Same"_qs, u"Same"_qs});
    type(u"/new_note  $"_qs);
    state->handleArrowKey(ArrowDirection::down);
    type(u"/new_note  $s"_qs);
    EXPECT_EQ(state->fields().selectedTemplate, settings.obsidianTemplates().last());
}

TEST_F(InputListsTest, SelectedFolderIsKeptWhileItFits)
{
    type(u"/recent  $"_qs);
    state->handleArrowKey(ArrowDirection::down);
    type(u"/recent  $o"_qs);
    EXPECT_EQ(dropdown(), u"folder: All Folders, Inbox*, Work"_qs);
    type(u"/recent  $w"_qs);
    EXPECT_EQ(dropdown(), u"folder: Work*"_qs);
    type(u"/recent  $ww"_qs);
    EXPECT_EQ(dropdown(), u"folder: "_qs);
    EXPECT_EQ(state->fields().selectedFolder, std::nullopt);
}

TEST_F(InputListsTest, SelectedTagIsKeptWhileItFits)
{
    type(u"#"_qs);
    state->handleArrowKey(ArrowDirection::down);
    type(u"#w"_qs);
    EXPECT_EQ(dropdown(), u"hashtag: #work*"_qs);
    type(u"#"_qs);
    EXPECT_EQ(dropdown(), u"hashtag: #tasks, #work*"_qs);
    type(u"#t"_qs);
    EXPECT_EQ(dropdown(), u"hashtag: #tasks*"_qs);
}

TEST_F(InputListsTest, SelectedTagIsKeptByItsNameThoughItsCountChanges)
{
    type(u"#"_qs);
    vault.put(u"c.md"_qs, "#tasks");
    finished(index.buildIndex(vault.path()));
    takeChanges();
    type(u"#t"_qs);
    EXPECT_THAT(takeChanges(), ElementsAre(u"text = #t"_qs, u"filteredHashtags = #tasks"_qs));
    EXPECT_EQ(state->fields().selectedHashtag->count, 2);
    EXPECT_EQ(state->fields().filteredHashtags.first().count, 3);
}

TEST_F(InputListsTest, SelectionOfAnotherListStaysWhereNothingForgetsIt)
{
    type(u"/recent $W"_qs);
    type(u"/new_note $D"_qs);
    EXPECT_EQ(state->fields().selectedFolder, FolderItem{u"Work"_qs});
    type(u"/recent $W"_qs);
    EXPECT_EQ(state->fields().selectedTemplate->name, u"Daily Note"_qs);
    type(u"/re"_qs);
    EXPECT_EQ(state->fields().selectedFolder, FolderItem{u"Work"_qs});
    state->handleCommandClick({0, 3});
    EXPECT_EQ(state->fields().selectedFolder, FolderItem{u"Work"_qs});
}

TEST_F(InputListsTest, SelectedTagStaysBehindEveryOtherList)
{
    type(u"#t"_qs);
    for (const QString& text : {u"/recent $W"_qs, u"/new_note $D"_qs, u"/re"_qs}) {
        type(text);
        EXPECT_NE(state->fields().selectedHashtag, std::nullopt) << qPrintable(text);
    }
}

TEST_F(InputListsTest, TagListForgetsTheTemplateBeforeTheFolder)
{
    type(u"/new_note $D"_qs);
    type(u"/recent $W"_qs);
    takeChanges();
    type(u"#t"_qs);
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"text = #t"_qs, u"filteredHashtags = #tasks"_qs,
                            u"dropdownType = hashtag"_qs, u"selectedTemplate = none"_qs,
                            u"selectedFolder = none"_qs, u"selectedHashtag = #tasks"_qs));
}

TEST_F(InputListsTest, ClosingForgetsAllSelectionsInOneOrderAndThenTheClicks)
{
    type(u"#t"_qs);
    type(u"/new_note $D"_qs);
    type(u"/recent $W"_qs);
    takeChanges();
    state->closeDropdowns();
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"showDropdown = false"_qs, u"dropdownType = none"_qs,
                            u"selectedTemplate = none"_qs, u"selectedFolder = none"_qs,
                            u"selectedHashtag = none"_qs));
    state->setText(u"/new_note $D"_qs);
    state->handleHashtagClick({1, 1});
    state->handleTemplateClick({2, 2});
    takeChanges();
    state->closeDropdowns();
    EXPECT_THAT(takeChanges(),
                ElementsAre(u"showDropdown = false"_qs, u"dropdownType = none"_qs,
                            u"selectedTemplate = none"_qs, u"selectedHashtag = none"_qs,
                            u"clickedTemplateRange = none"_qs, u"clickedHashtagRange = none"_qs));
}

TEST_F(InputListsTest, FolderOfTheNameForAllIsARowToo)
{
    vault.makeFolder(u"All Folders"_qs);
    type(u"/recent  $"_qs);
    const QStringList before = takeChanges();
    EXPECT_TRUE(before.contains(u"filteredFolders = All Folders, All Folders, Inbox, Work"_qs));
    // Rows are told apart by their names, so the way down always begins at the first of the two.
    EXPECT_TRUE(state->handleArrowKey(ArrowDirection::down));
    EXPECT_TRUE(state->handleArrowKey(ArrowDirection::down));
    EXPECT_EQ(state->fields().selectedFolder, FolderItem{u"All Folders"_qs});
    EXPECT_THAT(takeEvents(), ElementsAre(u"scroll down"_qs, u"scroll down"_qs));
}

TEST_F(InputListsTest, TwentyTagsAtMost)
{
    addTags(25);
    type(u"#many"_qs);
    EXPECT_EQ(state->dropdownItems().size(), 20);
    EXPECT_EQ(Dropdown::row(state->dropdownItems().last()).displayName, u"#many00019"_qs);
    state->handleHashtagClick({0, 5});
    EXPECT_EQ(state->dropdownItems().size(), 20);
}

TEST_F(InputListsTest, TagsByTheTenThousand)
{
    addTags(10'000);
    type(u"#many0999"_qs);
    EXPECT_EQ(state->dropdownItems().size(), 10);
    type(u"#"_qs);
    EXPECT_EQ(state->dropdownItems().size(), 20);
    EXPECT_EQ(dropdown().left(25), u"hashtag: #tasks*, #many00"_qs);
}

TEST_F(InputListsTest, TagKeepsItsLineEndAndFindsNothing)
{
    type(u"#ta\n"_qs);
    EXPECT_EQ(state->getCurrentHashtagInput(), u"#ta\n"_qs);
    EXPECT_EQ(dropdown(), u"closed"_qs);
}

TEST_F(InputListsTest, CommandListUpdatedForNothingThatFitsCloses)
{
    type(u"/"_qs);
    state->updateCommandDropdown(u"/zz"_qs);
    EXPECT_EQ(dropdown(), u"closed"_qs);
    EXPECT_THAT(state->fields().filteredCommands, IsEmpty());
    state->updateCommandDropdown(u"/"_qs);
    EXPECT_EQ(dropdown(), u"command: /new_note*, /search_notes, /recent"_qs);
}

TEST_F(InputListsTest, TagListUpdatedForNothingThatFitsCloses)
{
    state->updateHashtagDropdown(u"#w"_qs);
    EXPECT_EQ(dropdown(), u"hashtag: #work*"_qs);
    state->updateHashtagDropdown(u"#zz"_qs);
    EXPECT_EQ(dropdown(), u"closed"_qs);
    EXPECT_THAT(state->fields().filteredHashtags, IsEmpty());
}

TEST_F(InputListsTest, TemplateListUpdatedWithoutAnInputOnlyTakesTheRows)
{
    state->setText(u"no command $"_qs);
    takeChanges();
    state->updateTemplateDropdown();
    EXPECT_THAT(takeChanges(), ElementsAre(u"filteredTemplates = Daily Note"_qs));
}

TEST_F(InputListsTest, FolderListUpdatedWithoutAnInputOpensWhole)
{
    state->setText(u"no command $"_qs);
    takeChanges();
    state->updateFolderDropdown();
    EXPECT_THAT(takeChanges(), ElementsAre(u"filteredFolders = All Folders, Inbox, Work"_qs,
                                           u"showDropdown = true"_qs, u"dropdownType = folder"_qs,
                                           u"selectedFolder = All Folders"_qs));
}

TEST_F(InputListsTest, HiddenTemplatesAreNotOffered)
{
    useTemplates({u"Daily Note"_qs, u"Hidden"_qs, u"Plan"_qs});
    ObsidianTemplates all = settings.obsidianTemplates();
    all[1].showInDropdown = false;
    settings.setObsidianTemplates(all);
    type(u"/new_note  $"_qs);
    EXPECT_EQ(dropdown(), u"template: Daily Note*, Plan"_qs);
    type(u"/new_note  $Hidden"_qs);
    EXPECT_FALSE(state->hasExistingTemplate());
    EXPECT_EQ(dropdown(), u"template: "_qs);
}

TEST_F(InputListsTest, SyncedTemplatesStandBehindTheUsersOwn)
{
    const ScratchFolder folder;
    folder.put(u"A synced one.md"_qs, "a");
    folder.put(u"Hidden.md"_qs, "b");
    settings.setTemplatesFolderPath(folder.path());
    templates.loadSyncedTemplates();
    for (const ObsidianTemplate& each : templates.syncedTemplates()) {
        if (each.name == u"Hidden"_qs)
            settings.setSyncedTemplateShowInDropdown(each.id, false);
    }
    templates.loadSyncedTemplates();
    type(u"/new_note  $"_qs);
    EXPECT_EQ(dropdown(), u"template: Daily Note*, A synced one"_qs);
    type(u"/new_note  $A synced one"_qs);
    EXPECT_TRUE(state->hasExistingTemplate());
}

TEST_F(InputListsTest, WholeParametersAreOfTheirKind)
{
    state->setText(u"$Daily Note"_qs);
    EXPECT_TRUE(state->hasExistingTemplate());
    EXPECT_FALSE(state->hasExistingFolderParameter());
    state->setText(u"$All Folders"_qs);
    EXPECT_FALSE(state->hasExistingTemplate());
    EXPECT_TRUE(state->hasExistingFolderParameter());
    state->setText(u"$Inboxes $Inbox"_qs);
    EXPECT_TRUE(state->hasExistingFolderParameter());
}

TEST_F(InputListsTest, PartialParametersAreOfTheirCommand)
{
    state->setText(u"/new_note $x"_qs);
    EXPECT_EQ(state->getCurrentTemplateInput(), u"$x"_qs);
    EXPECT_EQ(state->getCurrentFolderInput(), std::nullopt);
    state->setText(u"/recent $x"_qs);
    EXPECT_EQ(state->getCurrentTemplateInput(), std::nullopt);
    EXPECT_EQ(state->getCurrentFolderInput(), u"$x"_qs);
    state->setText(u"/recent $Inbox $x"_qs);
    EXPECT_EQ(state->getCurrentFolderInput(), std::nullopt);
    state->setText(u"/new_note $Daily Note $x"_qs);
    EXPECT_EQ(state->getCurrentTemplateInput(), std::nullopt);
    state->setText(u"/new_note"_qs);
    EXPECT_EQ(state->getCurrentTemplateInput(), std::nullopt);
    EXPECT_EQ(state->getCurrentCommandInput(), u"/new_note"_qs);
}

TEST_F(InputListsTest, VaultMayVanishWhileItsFoldersAreListed)
{
    type(u"/recent  $"_qs);
    ASSERT_TRUE(QDir(vault.path()).removeRecursively());
    EXPECT_TRUE(state->handleArrowKey(ArrowDirection::down)) << "the rows are those of then";
    type(u"/recent  $i"_qs);
    EXPECT_EQ(dropdown(), u"folder: "_qs);
    type(u"/recent  $"_qs);
    EXPECT_EQ(dropdown(), u"folder: All Folders*"_qs);
    settings.setObsidianFolderPath(std::nullopt);
    state->handleTemplateClick({9, 1});
    EXPECT_EQ(dropdown(), u"folder: All Folders*"_qs);
}

struct HostileRow {
    const char* name;
    QString templateName;
};

class HostileName : public CommandTemplateStateTest,
                    public testing::WithParamInterface<HostileRow> {};

const HostileRow hostileRows[] = {
    {"Pattern", u"[a-z]+(.*)\\d$"_qs},
    {"QuotedPattern", u"\\Qx\\E"_qs},
    {"OpenBracket", u"("_qs},
    {"Command", u"/new_note"_qs},
    {"Dollar", u"a$b"_qs},
    {"Emoji", u"\U0001f600 face"_qs},
    {"CombiningMark", u"Cafe\u0301"_qs},
    {"OneLetter", u"x"_qs},
    {"Megabyte", QString(1'000'000, u'm')},
};

TEST_P(HostileName, IsPutInAndKnownAgain)
{
    useTemplates({GetParam().templateName});
    type(u"/new_note x"_qs);
    EXPECT_EQ(state->text(), u"/new_note  $"_qs + GetParam().templateName + u" x"_qs);
    EXPECT_TRUE(state->hasExistingTemplate());
    EXPECT_EQ(state->getCurrentTemplateInput(), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Rows, HostileName, testing::ValuesIn(hostileRows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

} // namespace jotwell
