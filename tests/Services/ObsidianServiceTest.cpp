#include "Services/ObsidianService.h"

#include "Services/NoteServices.h"

#include <QSemaphore>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(ObsidianServiceTest, NoteIsWrittenToTheTopOfTheVault)
{
    vault.makeFolder(u"Inbox"_qs);
    EXPECT_TRUE(create(u"/new_note milk\nbread"_qs));
    EXPECT_THAT(vault.names(), ElementsAre(u"Inbox"_qs, dated(u"milk"_qs)));
    EXPECT_EQ(vault.bytesOf(dated(u"milk"_qs)), "milk\nbread");
    EXPECT_THAT(log.shown, ElementsAre(noteCreated()));
}

struct TitleRow {
    const char* name;
    QString title;
    QString fileTitle;
};

class NoteWithTitle : public ObsidianServiceTest, public testing::WithParamInterface<TitleRow> {};

const TitleRow titleRows[] = {
    {"EachForbiddenCharacter", u"a/b?c%d*e:f|g\"h<i>j"_qs, u"a-b-c-d-e-f-g-h-i-j"_qs},
    {"OnlyForbiddenCharacters", u"???"_qs, u"---"_qs},
    {"PathOutOfTheVault", u"../../etc/passwd"_qs, u"..-..-etc-passwd"_qs},
    {"TwoDots", u".."_qs, u".."_qs},
    {"LeadingDot", u".hidden"_qs, u".hidden"_qs},
    {"Backslash", u"a\\b"_qs, u"a\\b"_qs},
    {"Tag", u"#work $5 v1.2"_qs, u"#work $5 v1.2"_qs},
    {"Emoji", u"\U0001F469\u200D\U0001F4BB idea"_qs, u"\U0001F469\u200D\U0001F4BB idea"_qs},
    {"RightToLeft", u"\u05e9\u05dc\u05d5\u05dd \u202eabc"_qs,
     u"\u05e9\u05dc\u05d5\u05dd \u202eabc"_qs},
    {"ControlCharacters", u"a\u0001b\u001bc\u007fd\te"_qs, u"a\u0001b\u001bc\u007fd\te"_qs},
    {"Decomposed", u"a\u0308"_qs, u"a\u0308"_qs},
    {"NonCharacter", u"a\ufffe\uffffb"_qs, u"a\ufffe\uffffb"_qs},
    {"LongestThatFits", QString(232, u'x'), QString(232, u'x')},
    {"LongestThatFitsInEmoji", u"\U0001F600"_qs.repeated(58), u"\U0001F600"_qs.repeated(58)},
};

TEST_P(NoteWithTitle, HasItsFile)
{
    const QString content = GetParam().title + u" \nbody"_qs;
    EXPECT_TRUE(create(u"/new_note "_qs + content));
    EXPECT_THAT(vault.names(), ElementsAre(dated(GetParam().fileTitle)));
    EXPECT_EQ(vault.bytesOf(dated(GetParam().fileTitle)), content.toUtf8());
    EXPECT_THAT(log.shown, ElementsAre(noteCreated()));
}

INSTANTIATE_TEST_SUITE_P(Rows, NoteWithTitle, testing::ValuesIn(titleRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(ObsidianServiceTest, NulBelowTheTitleIsText)
{
    const QString content = u"a\nb"_qs + QChar(u'\0') + u"c"_qs;
    EXPECT_TRUE(create(content));
    EXPECT_EQ(vault.bytesOf(dated(u"a"_qs)), content.toUtf8());
}

TEST_F(ObsidianServiceTest, PasteOfTenMegabytesIsWrittenWhole)
{
    const QString paste = u"0123456789 $Other \U0001F600 #tag\n"_qs.repeated(300'000);
    EXPECT_TRUE(create(u"/new_note big\n"_qs + paste + u"end"_qs));
    EXPECT_EQ(vault.bytesOf(dated(u"big"_qs)), (u"big\n"_qs + paste + u"end"_qs).toUtf8());
}

TEST_F(ObsidianServiceTest, EmptyNoteIsWrittenAndNamedAfterTheTime)
{
    settings.setObsidianTemplates({ObsidianTemplate::defaultTemplate()});
    EXPECT_TRUE(finished(notes.createNote(u"/new_note"_qs, std::nullopt)));
    EXPECT_THAT(vault.names(), ElementsAre(dated(u"Note 14-46"_qs)));
    const QString note = QString::fromUtf8(vault.bytesOf(dated(u"Note 14-46"_qs)));
    EXPECT_EQ(QString(note).replace(u'\u202f', u' '),
              u"# Note 14:46\n\n\n\n---\nCreated: Mar 5, 2024, 2:46 PM"_qs);
}

TEST_F(ObsidianServiceTest, WithoutATemplateTheLastUsedOneIsTaken)
{
    const ObsidianTemplate first = regular(u"First"_qs, u"first {{content}}"_qs);
    const ObsidianTemplate last = regular(u"Last"_qs, u"last {{title}}: {{content}}"_qs);
    settings.setObsidianTemplates({first, last});
    settings.setLastUsedTemplateId(last.id);
    EXPECT_TRUE(finished(notes.createNote(u"a\nb"_qs, std::nullopt)));
    EXPECT_EQ(vault.bytesOf(dated(u"a"_qs)), "last a: a\nb");
}

TEST_F(ObsidianServiceTest, GivenTemplateGoesBeforeTheLastUsedOne)
{
    settings.setObsidianTemplates({regular(u"First"_qs, u"first"_qs)});
    EXPECT_TRUE(finished(notes.createNote(u"a"_qs, regular(u"Given"_qs, u"given"_qs))));
    EXPECT_EQ(vault.bytesOf(dated(u"a"_qs)), "given");
}

TEST_F(ObsidianServiceTest, NamesOfHiddenAndSyncedTemplatesAreTakenOutToo)
{
    ObsidianTemplate hidden = regular(u"Hidden"_qs, u""_qs);
    hidden.showInDropdown = false;
    settings.setObsidianTemplates({hidden});
    synced = {{QUuid(), u"Synced"_qs, u""_qs, true, TemplateType::synced(u"/t/Synced.md"_qs)}};
    EXPECT_TRUE(create(u"a $Hidden"_qs));
    EXPECT_EQ(vault.bytesOf(dated(u"a"_qs)), "a");
    EXPECT_TRUE(create(u"b $Synced"_qs));
    EXPECT_EQ(vault.bytesOf(dated(u"b"_qs)), "b");
}

TEST_F(ObsidianServiceTest, LaterNoteOfTheSameSecondTakesTheFile)
{
    EXPECT_TRUE(create(u"a\nfirst"_qs));
    EXPECT_TRUE(create(u"a\nsecond"_qs));
    EXPECT_THAT(vault.names(), ElementsAre(dated(u"a"_qs)));
    EXPECT_EQ(vault.bytesOf(dated(u"a"_qs)), "a\nsecond");
}

TEST_F(ObsidianServiceTest, NoteOfTheNextSecondHasAFileOfItsOwn)
{
    EXPECT_TRUE(create(u"a"_qs));
    edge.clock.advance(std::chrono::seconds(1));
    EXPECT_TRUE(create(u"a"_qs));
    EXPECT_THAT(vault.names(),
                ElementsAre(u"a - 2024-03-05 144607.md"_qs, u"a - 2024-03-05 144608.md"_qs));
}

TEST_F(ObsidianServiceTest, CreationChangesNoSetting)
{
    const QStringList before = edge.defaults.keys();
    EXPECT_TRUE(create(u"a"_qs));
    EXPECT_EQ(edge.defaults.keys(), before);
    EXPECT_THAT(edge.workspace.opened, IsEmpty());
}

TEST_F(ObsidianServiceTest, CreationWaitsForNothingOnTheMainThread)
{
    edge.background.setMaxThreadCount(1);
    QSemaphore busy;
    edge.background.start([&busy] { busy.acquire(); });
    auto creating = notes.createNote(u"a"_qs, std::nullopt);
    EXPECT_THAT(vault.names(), IsEmpty());
    EXPECT_THAT(log.shown, IsEmpty());
    busy.release();
    EXPECT_TRUE(finished(std::move(creating)));
    EXPECT_THAT(vault.names(), ElementsAre(dated(u"a"_qs)));
    EXPECT_THAT(log.shown, ElementsAre(noteCreated()));
}

TEST_F(ObsidianServiceTest, TwoNotesAtOnceLeaveOneWhole)
{
    const QByteArray first = "a\n" + QByteArray(500'000, 'x');
    const QByteArray second = "a\n" + QByteArray(500'000, 'y');
    const ObsidianTemplate bare = regular(u"Bare"_qs, u"{{content}}"_qs);
    auto one = notes.createNote(QString::fromUtf8(first), bare);
    auto other = notes.createNote(QString::fromUtf8(second), bare);
    EXPECT_TRUE(finished(std::move(one)));
    EXPECT_TRUE(finished(std::move(other)));
    EXPECT_THAT(vault.names(), ElementsAre(dated(u"a"_qs)));
    EXPECT_THAT(vault.bytesOf(dated(u"a"_qs)), testing::AnyOf(first, second));
    EXPECT_THAT(log.shown, ElementsAre(noteCreated(), noteCreated()));
}

TEST_F(ObsidianServiceTest, VaultBehindALinkIsWritten)
{
    vault.makeFolder(u"real"_qs);
    vault.makeLink(u"link"_qs, vault.pathOf(u"real"_qs));
    settings.setObsidianFolderPath(vault.pathOf(u"link"_qs));
    EXPECT_TRUE(create(u"a"_qs));
    EXPECT_EQ(vault.bytesOf(u"real/"_qs + dated(u"a"_qs)), "a");
}

TEST_F(ObsidianServiceTest, VaultWithATrailingSlashIsWritten)
{
    settings.setObsidianFolderPath(vault.path() + u'/');
    EXPECT_TRUE(create(u"a"_qs));
    EXPECT_EQ(vault.bytesOf(dated(u"a"_qs)), "a");
}

} // namespace

} // namespace jotwell
