#include "Services/Index/Vault/VaultListing.h"

#include "QtPrinters.h"
#include "Services/ScratchFolder.h"
#include "Services/Unprivileged.h"

#include <QDir>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <climits>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class VaultListingTest : public testing::Test {
protected:
    /// The notes that both listings find, relative to the vault, sorted.
    [[nodiscard]] QStringList listed(const QString& slashes = {}) const
    {
        const auto notes = findMarkdownFiles(vault.path() + slashes);
        const auto withStatus = findMarkdownFilesWithStatus(vault.path() + slashes);
        EXPECT_TRUE(notes && withStatus);
        std::vector<QByteArray> paths;
        for (const ListedNote& note : *withStatus)
            paths.push_back(note.path);
        EXPECT_EQ(paths, *notes);
        QStringList names;
        for (const QByteArray& path : *notes) {
            EXPECT_TRUE(path.startsWith(vault.path().toUtf8() + '/')) << path.constData();
            names.append(QString::fromUtf8(path).sliced(vault.path().size() + 1));
        }
        names.sort();
        return names;
    }

    ScratchFolder vault;
};

TEST_F(VaultListingTest, AnEmptyVaultHasNoNotes)
{
    EXPECT_THAT(listed(), IsEmpty());
}

TEST_F(VaultListingTest, NotesOfAllFoldersAreListed)
{
    for (const QString& name : {u"x.md"_qs, u"a/y.md"_qs, u"a/b c/\u00fc \U0001F4C1.md"_qs})
        vault.put(name);
    vault.makeFolder(u"empty"_qs);
    EXPECT_THAT(listed(), ElementsAre(u"a/b c/\u00fc \U0001F4C1.md"_qs, u"a/y.md"_qs, u"x.md"_qs));
}

TEST_F(VaultListingTest, PathsHaveSingleSlashesHoweverTheVaultEnds)
{
    vault.put(u"a/x.md"_qs);
    for (const QString& slashes : {u""_qs, u"/"_qs, u"//"_qs})
        EXPECT_THAT(listed(slashes), ElementsAre(u"a/x.md"_qs));
}

TEST_F(VaultListingTest, OnlyTheExactExtensionCounts)
{
    for (const QString& name : {u"a.MD"_qs, u"b.Md"_qs, u"c.md~"_qs, u"d.markdown"_qs, u"md"_qs,
                                u"e.md.txt"_qs, u"fmd"_qs, u"g.md "_qs, u"h.md."_qs})
        vault.put(name);
    EXPECT_THAT(listed(), IsEmpty());
    vault.put(u"g..md"_qs);
    vault.put(u" .md"_qs);
    EXPECT_THAT(listed(), ElementsAre(u" .md"_qs, u"g..md"_qs));
}

TEST_F(VaultListingTest, HiddenNotesAndFoldersAreSkipped)
{
    for (const QString& name :
         {u".md"_qs, u".x.md"_qs, u"..md"_qs, u".trash/x.md"_qs, u"a/.obsidian/plugins/x.md"_qs})
        vault.put(name);
    EXPECT_THAT(listed(), IsEmpty());
}

TEST_F(VaultListingTest, AFolderWithTheExtensionIsListedAndWalked)
{
    vault.put(u"y.md/x.md"_qs);
    EXPECT_THAT(listed(), ElementsAre(u"y.md"_qs, u"y.md/x.md"_qs));
}

TEST_F(VaultListingTest, LinksAreListedButNotFollowed)
{
    const ScratchFolder elsewhere;
    elsewhere.put(u"folder/inside.md"_qs);
    elsewhere.put(u"note"_qs);
    vault.makeLink(u"note.md"_qs, elsewhere.pathOf(u"note"_qs));
    vault.makeLink(u"dangling.md"_qs, elsewhere.pathOf(u"gone"_qs));
    vault.makeLink(u"folder"_qs, elsewhere.pathOf(u"folder"_qs));
    vault.makeLink(u"folder.md"_qs, elsewhere.pathOf(u"folder"_qs));
    vault.makeLink(u"round"_qs, vault.path());
    EXPECT_THAT(listed(), ElementsAre(u"dangling.md"_qs, u"folder.md"_qs, u"note.md"_qs));
}

TEST_F(VaultListingTest, WhatIsNoFileIsListedToo)
{
    vault.makeFifo(u"fifo.md"_qs);
    EXPECT_THAT(listed(), ElementsAre(u"fifo.md"_qs));
}

TEST_F(VaultListingTest, NamesThatAreNoUtf8ArePassedOver)
{
    vault.put(u"x.md"_qs);
    const QByteArray folder = vault.path().toUtf8() + "/\xff";
    ASSERT_EQ(::mkdir(folder.constData(), 0700), 0);
    for (const QByteArray& path : {QByteArray(folder + "/y.md"), QByteArray(folder + ".md")}) {
        const int file = ::open(path.constData(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600);
        ASSERT_GE(file, 0);
        ::close(file);
    }
    EXPECT_THAT(listed(), ElementsAre(u"x.md"_qs));
    // What can't name them can't remove them either.
    for (const char* rest : {"/y.md", ".md"})
        EXPECT_EQ(::unlink((folder + rest).constData()), 0);
    EXPECT_EQ(::rmdir(folder.constData()), 0);
}

TEST_F(VaultListingTest, TheLongestNamesAreListed)
{
    const QString name = QString(NAME_MAX - 3, u'x') + u".md"_qs;
    vault.put(name + u'/' + name);
    EXPECT_THAT(listed(), ElementsAre(name, name + u'/' + name));
}

TEST_F(VaultListingTest, AVaultThatIsALinkIsListed)
{
    const ScratchFolder elsewhere;
    elsewhere.put(u"x.md"_qs);
    vault.makeLink(u"link"_qs, elsewhere.path());
    const auto notes = findMarkdownFiles(vault.pathOf(u"link"_qs));
    ASSERT_TRUE(notes);
    EXPECT_THAT(*notes, ElementsAre(vault.pathOf(u"link/x.md"_qs).toUtf8()));
}

TEST_F(VaultListingTest, AnUnreadableFolderIsPassedOver)
{
    vault.put(u"shut/x.md"_qs);
    vault.put(u"y.md"_qs);
    const QByteArray shut = vault.pathOf(u"shut"_qs).toUtf8();
    ASSERT_EQ(::chmod(shut.constData(), 0), 0);
    {
        const Unprivileged user(vault.path());
        EXPECT_THAT(listed(), ElementsAre(u"y.md"_qs));
    }
    ASSERT_EQ(::chmod(shut.constData(), 0700), 0);
}

TEST_F(VaultListingTest, NotesWhoseFolderMayOnlyBeListedHaveNoStatus)
{
    vault.put(u"names/x.md"_qs);
    const QByteArray names = vault.pathOf(u"names"_qs).toUtf8();
    ASSERT_EQ(::chmod(names.constData(), 0444), 0);
    {
        const Unprivileged user(vault.path());
        const auto notes = findMarkdownFilesWithStatus(vault.path());
        ASSERT_TRUE(notes);
        ASSERT_EQ(notes->size(), 1U);
        EXPECT_EQ(notes->front().status.error().code, EACCES);
    }
    ASSERT_EQ(::chmod(names.constData(), 0700), 0);
}

TEST_F(VaultListingTest, FailsIfTheVaultItselfCannotBeListed)
{
    vault.put(u"file"_qs);
    vault.makeFolder(u"shut"_qs);
    ASSERT_EQ(::chmod(vault.pathOf(u"shut"_qs).toUtf8().constData(), 0), 0);
    const Unprivileged user(vault.path());
    for (const auto& [path, code] :
         {std::pair(vault.pathOf(u"gone"_qs), ENOENT), std::pair(vault.pathOf(u"file"_qs), ENOTDIR),
          std::pair(vault.pathOf(u"shut"_qs), EACCES), std::pair(QString(), ENOENT)}) {
        EXPECT_EQ(findMarkdownFiles(path).error().code, code) << path.toStdString();
        EXPECT_EQ(findMarkdownFilesWithStatus(path).error().code, code) << path.toStdString();
    }
}

TEST_F(VaultListingTest, TheStatusIsThatOfTheEntryItself)
{
    vault.put(u"a/x.md"_qs, "text");
    vault.makeLink(u"link.md"_qs, vault.pathOf(u"a/x.md"_qs));
    vault.makeLink(u"dangling.md"_qs, u"gone"_qs);
    const auto notes = findMarkdownFilesWithStatus(vault.path());
    ASSERT_EQ(notes->size(), 3U);
    for (const ListedNote& note : *notes) {
        ASSERT_TRUE(note.status) << note.path.constData();
        EXPECT_EQ(*note.status, *fileStatus(note.path)) << note.path.constData();
    }
}

TEST_F(VaultListingTest, TheOrderIsTheFileSystems)
{
    for (int each = 0; each < 100; ++each)
        vault.put(u"%1.md"_qs.arg(each));
    std::vector<QByteArray> expected;
    DIR* listing = ::opendir(vault.path().toUtf8().constData());
    while (const dirent* entry = ::readdir(listing)) {
        if (entry->d_name[0] != '.')
            expected.push_back(vault.path().toUtf8() + '/' + entry->d_name);
    }
    ::closedir(listing);
    EXPECT_EQ(*findMarkdownFiles(vault.path()), expected);
}

TEST_F(VaultListingTest, PathsTakeNoMoreRoomThanTheyNeed)
{
    vault.put(u"a/"_qs + QString(100, u'x') + u".md"_qs);
    vault.put(u"b.md"_qs);
    const auto notes = findMarkdownFiles(vault.path());
    for (const QByteArray& path : *notes)
        EXPECT_EQ(path.capacity(), path.size());
}

/// Folders within folders, far deeper than a path can name, with a note in each tenth.
class DeepFolders {
public:
    static constexpr int depth = 10'000;
    static constexpr int step = 10;

    explicit DeepFolders(const QString& top)
        : m_folder(::open(top.toUtf8().constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        for (int level = 1; level <= depth; ++level) {
            EXPECT_EQ(::mkdirat(m_folder, "d", 0700), 0);
            enter("d");
            if (level % step == 0)
                ::close(::openat(m_folder, "x.md", O_CREAT | O_WRONLY | O_CLOEXEC, 0600));
        }
    }
    ~DeepFolders()
    {
        for (int level = depth; level >= 1; --level) {
            ::unlinkat(m_folder, "x.md", 0);
            enter("..");
            EXPECT_EQ(::unlinkat(m_folder, "d", AT_REMOVEDIR), 0);
        }
        ::close(m_folder);
    }
    DeepFolders(const DeepFolders&) = delete;
    DeepFolders& operator=(const DeepFolders&) = delete;

private:
    void enter(const char* name)
    {
        const int next = ::openat(m_folder, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        ::close(m_folder);
        m_folder = next;
    }

    int m_folder;
};

TEST(DeepVaultListingTest, NoDepthIsTooMuch)
{
    // In memory where that is to be had: a disk takes long for so many folders.
    const QString memory = u"/dev/shm"_qs;
    const QTemporaryDir vault((QDir(memory).exists() ? memory : QDir::tempPath()) + u"/deep"_qs);
    const DeepFolders folders(vault.path());
    const auto notes = findMarkdownFiles(vault.path());
    ASSERT_TRUE(notes);
    // All in folders that a path can name, each level of it taking two bytes.
    const qsizetype nameable = (PATH_MAX - 1 - vault.path().toUtf8().size()) / 2;
    EXPECT_EQ(notes->size(), static_cast<size_t>(nameable / DeepFolders::step));
    EXPECT_EQ(findMarkdownFilesWithStatus(vault.path())->size(), notes->size());
}

} // namespace

} // namespace jotwell
