#include "Services/CommandFixture.h"

#include <QSemaphore>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(CommandServiceTest, FindsTheFirstCommandInTheOrderOfTheCommands)
{
    EXPECT_EQ(commands.findCommand(u"x /recent y /new_note"_qs), Command::newNote);
    EXPECT_EQ(commands.findCommand(u"buy milk"_qs), std::nullopt);
}

TEST_F(CommandServiceTest, NewNoteTakesTheWholeTextAndDeliversNoList)
{
    settings.setObsidianTemplates({regular(u"Bare"_qs, u"{{content}}"_qs)});
    EXPECT_TRUE(execute(Command::newNote, u"milk  a\t/new_note $Inbox #tag\n\nbread"_qs));
    EXPECT_EQ(onlyNote(), "milk  a\t $Inbox #tag\n\nbread");
    EXPECT_THAT(events, ElementsAre(u"Note created successfully!"_qs));
}

struct TemplateRow {
    const char* name;
    QString text;
    QByteArray note;
};

class NewNote : public CommandServiceTest, public testing::WithParamInterface<TemplateRow> {
protected:
    NewNote()
    {
        ObsidianTemplate hidden = regular(u"Hidden"_qs, u"hidden"_qs);
        hidden.showInDropdown = false;
        settings.setObsidianTemplates({regular(u"Last"_qs, u"last used"_qs),
                                       regular(u"Daily Note"_qs, u"daily"_qs),
                                       regular(u"Daily Note"_qs, u"second daily"_qs),
                                       regular(u"\u00dcbung"_qs, u"precomposed"_qs), hidden});
        synced = {
            {QUuid(), u"Synced"_qs, u"synced"_qs, true, TemplateType::synced(u"/t/Synced.md"_qs)}};
    }
};

const TemplateRow templateRows[] = {
    {"WithoutDollarHasTheLastUsedTemplate", u"/new_note Daily Note"_qs, "last used"},
    {"FindsTheFirstTemplateOfTheName", u"/new_note  $Daily Note"_qs, "daily"},
    {"FindsAHiddenTemplate", u"/new_note $Hidden"_qs, "hidden"},
    {"FindsNoSyncedTemplate", u"/new_note $Synced"_qs, "last used"},
    {"FindsTheNameBeforeASymbol", u"/new_note  $Daily Note, hello"_qs, "daily"},
    {"FindsTheNameBeforeBlanks", u"/new_note  $Daily Note \t"_qs, "daily"},
    {"TakesFurtherWordsIntoTheName", u"/new_note  $Daily Note hello world"_qs, "last used"},
    {"TakesALineEndIntoTheName", u"/new_note  $Daily Note\n"_qs, "last used"},
    {"WantsTheExactCase", u"/new_note $daily note"_qs, "last used"},
    {"WantsTheExactSpelling", u"/new_note $U\u0308bung"_qs, "last used"},
    {"WantsTheWholeName", u"/new_note $Daily"_qs, "last used"},
    {"LooksAtTheFirstDollarOnly", u"/new_note $Inbox $Daily Note"_qs, "last used"},
};

TEST_P(NewNote, OfATextWithAParameter)
{
    EXPECT_TRUE(execute(Command::newNote, GetParam().text));
    EXPECT_EQ(onlyNote(), GetParam().note);
}

INSTANTIATE_TEST_SUITE_P(Rows, NewNote, testing::ValuesIn(templateRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(CommandServiceTest, FailedNoteIsFalseWithTheNoteServicesToastAlone)
{
    edge.files.failAt(1, ENOSPC);
    EXPECT_FALSE(execute(Command::newNote, u"/new_note a"_qs));
    EXPECT_THAT(events, ElementsAre(u"Can't create a note: No space left on device"_qs));
}

TEST_F(CommandServiceTest, RecentNotesWithoutDollarAreOfTheWholeVault)
{
    vault.put(u"a.md"_qs);
    vault.put(u"Inbox/b.md"_qs);
    EXPECT_TRUE(execute(Command::recentNotes, u"/recent"_qs));
    EXPECT_THAT(events, ElementsAre(u"2 notes"_qs));
}

TEST_F(CommandServiceTest, RecentNotesOfAllFoldersAreOfTheWholeVault)
{
    vault.put(u"a.md"_qs);
    vault.put(u"Inbox/b.md"_qs);
    EXPECT_TRUE(execute(Command::recentNotes, u"/recent  $All Folders"_qs));
    EXPECT_THAT(events, ElementsAre(u"2 notes"_qs));
}

TEST_F(CommandServiceTest, RecentNotesOfAFolderAreOnlyThose)
{
    vault.put(u"a.md"_qs);
    vault.put(u"In box/b.md"_qs);
    EXPECT_TRUE(execute(Command::recentNotes, u"/recent  $In box "_qs));
    EXPECT_THAT(events, ElementsAre(u"1 notes"_qs));
}

TEST_F(CommandServiceTest, FolderNameTakesATrailingWordIn)
{
    vault.put(u"Inbox/b.md"_qs);
    EXPECT_TRUE(execute(Command::recentNotes, u"/recent  $Inbox please"_qs));
    EXPECT_THAT(events, ElementsAre(u"Folder not found: Inbox please"_qs, u"1 notes"_qs));
}

TEST_F(CommandServiceTest, EmptyListIsDeliveredBeforeTheToast)
{
    EXPECT_TRUE(execute(Command::recentNotes, u"/recent"_qs));
    EXPECT_THAT(events, ElementsAre(u"0 notes"_qs, u"No recent notes found"_qs));
    EXPECT_THAT(log.shown,
                ElementsAre(ShownToast{ToastType::warning, 2.0, u"No recent notes found"_qs}));
}

TEST_F(CommandServiceTest, FailedListIsFalseAndNotDelivered)
{
    settings.setObsidianFolderPath(std::nullopt);
    EXPECT_FALSE(execute(Command::recentNotes, u"/recent"_qs));
    EXPECT_THAT(events, ElementsAre(u"Set up this command first in the app settings"_qs));
}

TEST_F(CommandServiceTest, LaterListenerReplacesTheEarlierOne)
{
    int delivered = 0;
    commands.setOnSearchResults([&](const NoteSearchResults&) { ++delivered; });
    EXPECT_TRUE(execute(Command::recentNotes, u"/recent"_qs));
    EXPECT_EQ(delivered, 1);
    EXPECT_THAT(events, ElementsAre(u"No recent notes found"_qs));
}

TEST_F(CommandServiceTest, ListenerMayPutAnotherInItsPlace)
{
    QStringList order;
    const QString first = u"the first, which must live to its end"_qs;
    commands.setOnSearchResults([this, &order, first](const NoteSearchResults&) {
        commands.setOnSearchResults([&order](const NoteSearchResults&) { order.append(u"2"_qs); });
        order.append(first);
    });
    EXPECT_TRUE(execute(Command::recentNotes, u"/recent"_qs));
    EXPECT_TRUE(execute(Command::recentNotes, u"/recent"_qs));
    EXPECT_THAT(order, ElementsAre(first, u"2"_qs));
}

TEST_F(CommandServiceTest, WithoutAListenerTheToastComesAllTheSame)
{
    commands.setOnSearchResults({});
    EXPECT_TRUE(execute(Command::recentNotes, u"/recent"_qs));
    EXPECT_THAT(events, ElementsAre(u"No recent notes found"_qs));
}

TEST_F(CommandServiceTest, TextIsReadInTheBackground)
{
    edge.background.setMaxThreadCount(1);
    QSemaphore busy;
    edge.background.start([&busy] { busy.acquire(); });
    auto running = commands.executeCommand(Command::recentNotes, u"/recent"_qs);
    EXPECT_THAT(events, IsEmpty());
    busy.release();
    EXPECT_TRUE(finished(std::move(running)));
    EXPECT_THAT(events, ElementsAre(u"0 notes"_qs, u"No recent notes found"_qs));
}

} // namespace

} // namespace jotwell
