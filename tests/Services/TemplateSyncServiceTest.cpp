#include "Services/TemplateSyncService.h"

#include "Models/Uuid.h"
#include "Services/TemplateSyncFixture.h"

#include <QDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(TemplateSyncServiceTest, FirstReaderFindsTheListFilledAndTheFolderWatched)
{
    m_folder.put(u"Meeting.md"_qs, "# {{title}}");
    start();
    EXPECT_THAT(names(), ElementsAre(u"Meeting"_qs));
    EXPECT_THAT(m_edge.folders.watched(), ElementsAre(m_folder.path()));
    ASSERT_TRUE(m_service->folderMonitor());
    EXPECT_EQ(m_service->folderMonitor()->path(), m_folder.path());
}

TEST_F(TemplateSyncServiceTest, FileIsASyncedTemplate)
{
    m_folder.put(u"Meeting.md"_qs, "---\ntags: a\n---\n# {{title}}\n");
    start();
    const ObsidianTemplate meeting = named(u"Meeting"_qs);
    EXPECT_EQ(meeting.content, u"---\ntags: a\n---\n# {{title}}\n"_qs);
    EXPECT_TRUE(meeting.showInDropdown);
    EXPECT_EQ(meeting.type, TemplateType::synced(m_folder.pathOf(u"Meeting.md"_qs)));
}

struct FileRow {
    const char* name;
    QString file;
    std::optional<QString> templateName;
};

class FileOfTheFolder : public TemplateSyncServiceTest,
                        public testing::WithParamInterface<FileRow> {};

const FileRow fileRows[] = {
    {"LosesItsExtension", u"Meeting.md"_qs, u"Meeting"_qs},
    {"LosesTheLastExtensionOnly", u"a.b.md"_qs, u"a.b"_qs},
    {"LosesThreeCharactersOnly", u"a.md.md"_qs, u"a.md"_qs},
    {"UpperCaseExtensionIsLeftOut", u"notes.MD"_qs, std::nullopt},
    {"OtherExtensionIsLeftOut", u"a.markdown"_qs, std::nullopt},
    {"NoExtensionIsLeftOut", u"md"_qs, std::nullopt},
    {"BackupIsLeftOut", u"a.md~"_qs, std::nullopt},
    {"HiddenCounts", u".hidden.md"_qs, u".hidden"_qs},
    {"ExtensionAloneIsAnEmptyName", u".md"_qs, QString()},
    {"BlanksStay", u" a b .md"_qs, u" a b "_qs},
    {"EmojiStays", u"\U0001F4A1.md"_qs, u"\U0001F4A1"_qs},
};

TEST_P(FileOfTheFolder, IsNamedByItsFile)
{
    m_folder.put(GetParam().file, "x");
    start();
    if (GetParam().templateName)
        EXPECT_THAT(names(), ElementsAre(*GetParam().templateName));
    else
        EXPECT_THAT(names(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Rows, FileOfTheFolder, testing::ValuesIn(fileRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct BytesRow {
    const char* name;
    QByteArray bytes;
    std::optional<QString> content;
};

class BytesOfAFile : public TemplateSyncServiceTest,
                     public testing::WithParamInterface<BytesRow> {};

const BytesRow bytesRows[] = {
    {"Empty", "", u""_qs},
    {"LineEndsStay", "a\r\nb\rc\n", u"a\r\nb\rc\n"_qs},
    {"ByteOrderMarkStays", "\xef\xbb\xbfx", u"\ufeffx"_qs},
    {"NulStays", QByteArray("a\0b", 3), u"a"_qs + QChar(u'\0') + u"b"_qs},
    {"Emoji", "\xf0\x9f\x98\x80", u"\U0001F600"_qs},
    {"Latin1IsNoText", "caf\xe9", std::nullopt},
    {"CutShortIsNoText", "\xf0\x9f\x98", std::nullopt},
    {"SurrogateIsNoText", "\xed\xa0\x80", std::nullopt},
    {"Utf16IsNoText", QByteArray("\xff\xfe\x61\x00", 4), std::nullopt},
};

TEST_P(BytesOfAFile, AreTakenWholeOrNotAtAll)
{
    m_folder.put(u"a.md"_qs, GetParam().bytes);
    m_folder.put(u"other.md"_qs, "other");
    start();
    if (!GetParam().content)
        EXPECT_THAT(names(), ElementsAre(u"other"_qs));
    else
        EXPECT_EQ(named(u"a"_qs).content, GetParam().content);
    EXPECT_EQ(named(u"other"_qs).content, u"other"_qs);
}

INSTANTIATE_TEST_SUITE_P(Rows, BytesOfAFile, testing::ValuesIn(bytesRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(TemplateSyncServiceTest, WhatIsNoFileIsLeftOutAndNeverWaitedFor)
{
    m_folder.makeFolder(u"folder.md"_qs);
    m_folder.makeFifo(u"fifo.md"_qs);
    m_folder.makeLink(u"dangling.md"_qs, m_folder.pathOf(u"gone"_qs));
    m_folder.put(u"below/deep.md"_qs, "x");
    m_folder.put(u"file.md"_qs, "x");
    start();
    EXPECT_THAT(names(), ElementsAre(u"file"_qs));
}

TEST_F(TemplateSyncServiceTest, LinkToAFileIsATemplateOfItsOwnPath)
{
    const ScratchFolder elsewhere;
    elsewhere.put(u"original.md"_qs, "linked");
    m_folder.makeLink(u"link.md"_qs, elsewhere.pathOf(u"original.md"_qs));
    start();
    EXPECT_EQ(named(u"link"_qs).content, u"linked"_qs);
    EXPECT_EQ(named(u"link"_qs).type, TemplateType::synced(m_folder.pathOf(u"link.md"_qs)));
}

TEST_F(TemplateSyncServiceTest, NamesAreSortedByCodePoint)
{
    const QStringList sorted{u"A"_qs,      u"B"_qs,      u"a"_qs,      u"a b"_qs,       u"b"_qs,
                             u"\u00e4"_qs, u"\ue000"_qs, u"\uffee"_qs, u"\U0001F600"_qs};
    for (const int each : {8, 4, 0, 7, 3, 6, 2, 5, 1})
        m_folder.put(sorted.at(each) + u".md"_qs);
    start();
    EXPECT_EQ(names(), sorted);
}

TEST_F(TemplateSyncServiceTest, NamesAreSortedWithoutTheirExtension)
{
    m_folder.put(u"a.md"_qs);
    m_folder.put(u"a!.md"_qs);
    m_folder.put(u"a-.md"_qs);
    start();
    EXPECT_THAT(names(), ElementsAre(u"a"_qs, u"a!"_qs, u"a-"_qs));
}

TEST_F(TemplateSyncServiceTest, EmptyFolderIsAnEmptyListUnderWatch)
{
    start();
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_THAT(m_edge.folders.watched(), ElementsAre(m_folder.path()));
}

TEST_F(TemplateSyncServiceTest, WithoutAFolderThereIsNeitherListNorWatch)
{
    m_folder.put(u"a.md"_qs); // no path is not the current folder
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(m_folder.path()));
    for (const std::optional<QString>& path :
         {std::optional<QString>(), std::optional(QString())}) {
        m_settings.setTemplatesFolderPath(path);
        start();
        EXPECT_THAT(names(), IsEmpty());
        EXPECT_THAT(m_edge.folders.watched(), IsEmpty());
        EXPECT_EQ(m_service->folderMonitor(), nullptr);
    }
    QDir::setCurrent(before);
}

TEST_F(TemplateSyncServiceTest, FolderThatCannotBeListedIsAnEmptyList)
{
    m_folder.put(u"file.md"_qs);
    for (const QString& name : {u"gone"_qs, u"file.md"_qs}) {
        m_settings.setTemplatesFolderPath(m_folder.pathOf(name));
        start();
        EXPECT_THAT(names(), IsEmpty());
    }
}

TEST_F(TemplateSyncServiceTest, FolderThatCannotBeWatchedIsLoadedAllTheSame)
{
    m_edge.folders.canWatch = false;
    m_folder.put(u"a.md"_qs);
    start();
    EXPECT_THAT(names(), ElementsAre(u"a"_qs));
    m_folder.put(u"b.md"_qs);
    m_service->loadSyncedTemplates();
    EXPECT_THAT(names(), ElementsAre(u"a"_qs, u"b"_qs));
}

TEST_F(TemplateSyncServiceTest, TrailingSlashChangesNoPath)
{
    m_folder.put(u"a.md"_qs);
    start();
    const ObsidianTemplate plain = named(u"a"_qs);
    m_settings.setTemplatesFolderPath(m_folder.path() + u'/');
    m_service->loadSyncedTemplates();
    EXPECT_EQ(named(u"a"_qs), plain);
}

// A descriptor gives the folder a path that is the same on every machine. The two identifiers are
// the first 32 digits of `printf %s /proc/self/fd/900/Meeting.md | sha256sum`.
TEST_F(TemplateSyncServiceTest, IdentifierIsTheHashOfThePath)
{
    m_folder.put(u"Meeting.md"_qs);
    m_folder.put(u"\u00dcbung.md"_qs);
    const int folder = ::open(m_folder.path().toUtf8().constData(), O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(::dup2(folder, 900), 900);
    m_settings.setTemplatesFolderPath(u"/proc/self/fd/900"_qs);
    start();
    EXPECT_EQ(uuidString(named(u"Meeting"_qs).id), u"1B766277-B4C6-D79B-3FBF-A2CBFD0A9F56"_qs);
    EXPECT_EQ(uuidString(named(u"\u00dcbung"_qs).id), u"8ECC58F4-038B-86CF-85A9-4F4C6B0F7C45"_qs);
    ::close(900);
    ::close(folder);
}

TEST_F(TemplateSyncServiceTest, IdentifierSurvivesEditsAndRestarts)
{
    m_folder.put(u"a.md"_qs, "before");
    start();
    const QUuid before = named(u"a"_qs).id;
    m_folder.put(u"a.md"_qs, "after");
    start();
    EXPECT_EQ(named(u"a"_qs).content, u"after"_qs);
    EXPECT_EQ(named(u"a"_qs).id, before);
}

TEST_F(TemplateSyncServiceTest, RenamingTheFileChangesItsIdentifierAlone)
{
    m_folder.put(u"a.md"_qs);
    m_folder.put(u"b.md"_qs);
    start();
    const QUuid a = named(u"a"_qs).id;
    const QUuid b = named(u"b"_qs).id;
    m_folder.rename(u"a.md"_qs, u"c.md"_qs);
    m_service->loadSyncedTemplates();
    EXPECT_THAT(names(), ElementsAre(u"b"_qs, u"c"_qs));
    EXPECT_NE(named(u"c"_qs).id, a);
    EXPECT_EQ(named(u"b"_qs).id, b);
}

TEST_F(TemplateSyncServiceTest, MovingTheFolderChangesIdentifiersAndLosesPreferences)
{
    m_folder.put(u"old/a.md"_qs);
    m_settings.setTemplatesFolderPath(m_folder.pathOf(u"old"_qs));
    start();
    const QUuid before = named(u"a"_qs).id;
    m_settings.setSyncedTemplateShowInDropdown(before, false);
    m_folder.rename(u"old"_qs, u"new"_qs);
    m_settings.setTemplatesFolderPath(m_folder.pathOf(u"new"_qs));
    m_service->loadSyncedTemplates();
    EXPECT_NE(named(u"a"_qs).id, before);
    EXPECT_TRUE(named(u"a"_qs).showInDropdown);
}

TEST_F(TemplateSyncServiceTest, PreferencesSayWhatIsShown)
{
    m_folder.put(u"a.md"_qs);
    m_folder.put(u"b.md"_qs);
    start();
    m_settings.setSyncedTemplateShowInDropdown(named(u"a"_qs).id, false);
    m_settings.setSyncedTemplateShowInDropdown(named(u"b"_qs).id, true);
    EXPECT_TRUE(named(u"a"_qs).showInDropdown);
    m_service->loadSyncedTemplates();
    EXPECT_FALSE(named(u"a"_qs).showInDropdown);
    EXPECT_TRUE(named(u"b"_qs).showInDropdown);
    touch();
    settle();
    EXPECT_FALSE(named(u"a"_qs).showInDropdown);
}

} // namespace

} // namespace jotwell
