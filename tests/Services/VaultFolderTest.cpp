#include "Services/VaultFolder.h"

#include "QtPrinters.h"
#include "Services/ScratchFolder.h"
#include "Support/FolderWalk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const QDateTime noon = QDateTime::fromString(u"2024-03-05T12:00:00Z"_qs, Qt::ISODate);

class VaultFolderTest : public testing::Test {
protected:
    /// A note that changed so many seconds behind noon.
    void putNote(const QString& name, int seconds) const
    {
        m_vault.put(name);
        m_vault.setChanged(name, noon.addSecs(seconds));
    }

    /// Paths of the recent notes, relative to the vault.
    [[nodiscard]] QStringList recent(qsizetype count = 10) const
    {
        QStringList names;
        for (const NoteSearchResult& each : recentNotesBelow(m_vault.path(), count))
            names.append(each.filePath.sliced(m_vault.path().size() + 1));
        return names;
    }

    ScratchFolder m_vault;
};

TEST_F(VaultFolderTest, FolderIsValid)
{
    EXPECT_TRUE(validateFolder(m_vault.path()));
    EXPECT_TRUE(validateFolder(m_vault.path() + u'/'));
}

TEST_F(VaultFolderTest, LinkToAFolderIsValid)
{
    m_vault.makeFolder(u"real"_qs);
    m_vault.makeLink(u"link"_qs, m_vault.pathOf(u"real"_qs));
    EXPECT_TRUE(validateFolder(m_vault.pathOf(u"link"_qs)));
}

TEST_F(VaultFolderTest, WhatIsNotThereIsNotFound)
{
    m_vault.makeLink(u"dangling"_qs, m_vault.pathOf(u"gone"_qs));
    m_vault.put(u"file"_qs);
    for (const QString& name : {u"gone"_qs, u"dangling"_qs, u"file/below"_qs}) {
        const QString path = m_vault.pathOf(name);
        EXPECT_EQ(validateFolder(path).error(),
                  (ObsidianError{ObsidianError::Kind::folderNotFound, path}));
    }
}

TEST_F(VaultFolderTest, WhatIsNoFolderIsInvalid)
{
    m_vault.put(u"file"_qs);
    m_vault.makeFifo(u"fifo"_qs);
    m_vault.makeLink(u"link"_qs, m_vault.pathOf(u"file"_qs));
    for (const QString& name : {u"file"_qs, u"fifo"_qs, u"link"_qs}) {
        const QString path = m_vault.pathOf(name);
        EXPECT_EQ(validateFolder(path).error(),
                  (ObsidianError{ObsidianError::Kind::invalidPath, path}));
    }
}

TEST_F(VaultFolderTest, RecentNotesComeNewestFirst)
{
    putNote(u"middle.md"_qs, 2);
    putNote(u"old.md"_qs, 1);
    putNote(u"new.md"_qs, 3);
    EXPECT_THAT(recent(), ElementsAre(u"new.md"_qs, u"middle.md"_qs, u"old.md"_qs));
}

TEST_F(VaultFolderTest, RecentNotesGoByLessThanASecond)
{
    m_vault.put(u"a.md"_qs);
    m_vault.put(u"b.md"_qs);
    m_vault.setChanged(u"a.md"_qs, noon.addMSecs(1));
    m_vault.setChanged(u"b.md"_qs, noon.addMSecs(2));
    EXPECT_THAT(recent(), ElementsAre(u"b.md"_qs, u"a.md"_qs));
}

TEST_F(VaultFolderTest, RecentNotesOfAllFoldersMeet)
{
    putNote(u"top.md"_qs, 2);
    putNote(u"a/b/c/deep.md"_qs, 3);
    putNote(u"a/below.md"_qs, 1);
    EXPECT_THAT(recent(), ElementsAre(u"a/b/c/deep.md"_qs, u"top.md"_qs, u"a/below.md"_qs));
}

TEST_F(VaultFolderTest, NotesOfEqualDateStayInTheOrderOfTheWalk)
{
    for (int each = 0; each < 40; ++each)
        putNote(u"%1/%2.md"_qs.arg(each % 7).arg(each), 0);
    QStringList walked;
    const auto visit = [&](const FolderEntry& entry) {
        if (!entry.isFolder())
            walked.append(QString::fromUtf8(entry.path()).sliced(m_vault.path().size() + 1));
    };
    ASSERT_TRUE(walkFolder(m_vault.path(), visit));
    ASSERT_EQ(walked.size(), 40);
    EXPECT_EQ(recent(40), walked);
    EXPECT_EQ(recent(11), walked.first(11));
}

TEST_F(VaultFolderTest, OnlyTheFirstOfTheRecentNotesCount)
{
    for (int each = 0; each < 25; ++each)
        putNote(u"%1.md"_qs.arg(each), each);
    EXPECT_THAT(recent(3), ElementsAre(u"24.md"_qs, u"23.md"_qs, u"22.md"_qs));
    EXPECT_EQ(recent(25).size(), 25);
    EXPECT_EQ(recent(std::numeric_limits<qsizetype>::max()).size(), 25);
    EXPECT_EQ(recent(0).size(), 0);
}

TEST_F(VaultFolderTest, OnlyTheExactExtensionIsANote)
{
    for (const QString& name : {u"a.MD"_qs, u"b.Md"_qs, u"c.md~"_qs, u"d.markdown"_qs, u"md"_qs,
                                u"e.md.txt"_qs, u"fmd"_qs})
        m_vault.put(name);
    EXPECT_THAT(recent(), IsEmpty());
    m_vault.put(u"g..md"_qs);
    EXPECT_THAT(recent(), ElementsAre(u"g..md"_qs));
}

TEST_F(VaultFolderTest, HiddenNotesAndFoldersDoNotCount)
{
    m_vault.put(u".md"_qs);
    m_vault.put(u".hidden.md"_qs);
    m_vault.put(u".trash/a.md"_qs);
    m_vault.put(u".obsidian/plugins/a.md"_qs);
    EXPECT_THAT(recent(), IsEmpty());
}

TEST_F(VaultFolderTest, FolderWithTheExtensionCountsAndIsEntered)
{
    putNote(u"book.md/chapter.md"_qs, 1);
    m_vault.setChanged(u"book.md"_qs, noon.addSecs(2));
    EXPECT_THAT(recent(), ElementsAre(u"book.md"_qs, u"book.md/chapter.md"_qs));
}

TEST_F(VaultFolderTest, WhatIsNoFileCountsWithoutBeingOpened)
{
    m_vault.makeFifo(u"fifo.md"_qs);
    EXPECT_THAT(recent(), ElementsAre(u"fifo.md"_qs));
}

TEST_F(VaultFolderTest, LinksCountByTheirOwnDateAndAreNotEntered)
{
    const ScratchFolder elsewhere;
    elsewhere.put(u"folder/inside.md"_qs);
    elsewhere.put(u"note.md"_qs);
    elsewhere.setChanged(u"note.md"_qs, noon.addYears(1));
    m_vault.makeLink(u"note.md"_qs, elsewhere.pathOf(u"note.md"_qs));
    m_vault.makeLink(u"dangling.md"_qs, elsewhere.pathOf(u"gone.md"_qs));
    m_vault.makeLink(u"folder"_qs, elsewhere.pathOf(u"folder"_qs));
    m_vault.makeLink(u"round"_qs, m_vault.path());
    m_vault.setChanged(u"note.md"_qs, noon);
    m_vault.setChanged(u"dangling.md"_qs, noon.addSecs(1));
    EXPECT_THAT(recent(), ElementsAre(u"dangling.md"_qs, u"note.md"_qs));
}

TEST_F(VaultFolderTest, FolderThatCannotBeListedGivesNoNotes)
{
    m_vault.put(u"file.md"_qs);
    EXPECT_TRUE(recentNotesBelow(m_vault.pathOf(u"gone"_qs), 10).isEmpty());
    EXPECT_TRUE(recentNotesBelow(m_vault.pathOf(u"file.md"_qs), 10).isEmpty());
    EXPECT_TRUE(recentNotesBelow(QString(), 10).isEmpty());
}

TEST_F(VaultFolderTest, RecentNoteTellsNameAndPath)
{
    m_vault.put(u"Inbox/a plan.v2.md"_qs);
    const NoteSearchResults notes = recentNotesBelow(m_vault.path() + u'/', 10);
    ASSERT_EQ(notes.size(), 1);
    EXPECT_EQ(notes.first().fileName, u"a plan.v2"_qs);
    EXPECT_EQ(notes.first().filePath, m_vault.pathOf(u"Inbox/a plan.v2.md"_qs));
    EXPECT_EQ(notes.first().fileURL, QUrl::fromLocalFile(notes.first().filePath));
    EXPECT_EQ(notes.first().snippet, std::nullopt);
    EXPECT_EQ(notes.first().relevanceScore, std::nullopt);
    EXPECT_FALSE(notes.first().isFullTextResult);
}

} // namespace

} // namespace jotwell
