#include "Services/ObsidianService.h"

#include "Services/NoteServices.h"

#include <QSemaphore>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class RecentNotesTest : public ObsidianServiceTest {
protected:
    /// Notes of ever later dates.
    void putNotes(const QStringList& names) const
    {
        QDateTime moment = QDateTime::fromString(u"2024-03-05T12:00:00Z"_qs, Qt::ISODate);
        for (const QString& each : names) {
            vault.put(each);
            vault.setChanged(each, moment);
            moment = moment.addSecs(1);
        }
    }

    [[nodiscard]] QStringList fileNames(const ObsidianService::Notes& found) const
    {
        QStringList names;
        for (const NoteSearchResult& each : found.value())
            names.append(each.fileName);
        return names;
    }

    auto recent() { return fileNames(finished(notes.getRecentNotes())); }
    auto recentIn(const std::optional<QString>& folder)
    {
        return fileNames(finished(notes.getRecentNotesInTopFolder(folder)));
    }
};

TEST_F(RecentNotesTest, AreOfTheWholeVaultAndSilent)
{
    putNotes({u"a.md"_qs, u"Inbox/b.md"_qs});
    EXPECT_THAT(recent(), ElementsAre(u"b"_qs, u"a"_qs));
    EXPECT_THAT(log.shown, IsEmpty());
}

TEST_F(RecentNotesTest, AreAsManyAsTheSettingSays)
{
    QStringList names;
    for (int each = 0; each < 25; ++each)
        names.append(QString::number(each) + u".md"_qs);
    putNotes(names);
    for (const auto& [stored, shown] : {std::pair(0, 10), {-3, 10}, {3, 3}, {1, 1}, {1000, 25}}) {
        settings.setRecentFilesCount(stored);
        EXPECT_EQ(recent().size(), shown) << stored;
        EXPECT_EQ(recentIn(QString()).size(), shown) << stored;
    }
}

TEST_F(RecentNotesTest, OfAnEmptyVaultAreNoFailure)
{
    EXPECT_THAT(recent(), IsEmpty());
    EXPECT_THAT(log.shown, IsEmpty());
}

TEST_F(RecentNotesTest, OfAFolderAreOnlyThose)
{
    putNotes({u"Inbox/a.md"_qs, u"Inbox/deep/b.md"_qs, u"c.md"_qs, u"Other/d.md"_qs});
    EXPECT_THAT(recentIn(u"Inbox"_qs), ElementsAre(u"b"_qs, u"a"_qs));
    EXPECT_THAT(log.shown, IsEmpty());
}

TEST_F(RecentNotesTest, OfAFolderReachDownBySlashes)
{
    putNotes({u"Inbox/a.md"_qs, u"Inbox/deep/b.md"_qs});
    EXPECT_THAT(recentIn(u"Inbox/deep"_qs), ElementsAre(u"b"_qs));
}

TEST_F(RecentNotesTest, OfALinkedFolderAreListed)
{
    const ScratchFolder elsewhere;
    elsewhere.put(u"a.md"_qs);
    vault.makeLink(u"Linked"_qs, elsewhere.path());
    EXPECT_THAT(recentIn(u"Linked"_qs), ElementsAre(u"a"_qs));
}

TEST_F(RecentNotesTest, OfNoFolderOrAllFoldersAreOfTheWholeVault)
{
    putNotes({u"All Folders/a.md"_qs, u"b.md"_qs});
    EXPECT_THAT(recentIn(std::nullopt), ElementsAre(u"b"_qs, u"a"_qs));
    EXPECT_THAT(recentIn(u"All Folders"_qs), ElementsAre(u"b"_qs, u"a"_qs));
    EXPECT_THAT(log.shown, IsEmpty());
}

TEST_F(RecentNotesTest, OfAMissingFolderAreOfTheWholeVaultWithAWarning)
{
    putNotes({u"a.md"_qs, u"Inbox/b.md"_qs});
    for (const QString& folder : {u"Gone"_qs, u"a.md"_qs, u"inbox"_qs, u"all folders"_qs}) {
        log.shown.clear();
        EXPECT_THAT(recentIn(folder), ElementsAre(u"b"_qs, u"a"_qs));
        EXPECT_THAT(log.shown, ElementsAre(ShownToast{ToastType::warning, 2.0,
                                                      u"Folder not found: "_qs + folder}));
    }
}

TEST_F(RecentNotesTest, PathsOfAVaultWithATrailingSlashHaveNoSecondOne)
{
    settings.setObsidianFolderPath(vault.path() + u'/');
    putNotes({u"Inbox/a.md"_qs});
    for (const std::optional<QString>& folder :
         {std::optional<QString>(), std::optional(QString()), std::optional(u"Inbox"_qs)}) {
        const auto found = finished(notes.getRecentNotesInTopFolder(folder));
        ASSERT_EQ(found->size(), 1);
        EXPECT_EQ(found->first().filePath, vault.pathOf(u"Inbox/a.md"_qs));
    }
}

class RecentNotesInTheBackground : public RecentNotesTest {
protected:
    RecentNotesInTheBackground() { edge.background.setMaxThreadCount(1); }

    /// Lets the background do what it has been asked for, and the main thread ask for more, which
    /// then waits for `goOn`.
    void passOneStep()
    {
        edge.background.start([this] {
            m_isHeld.release();
            m_goesOn.acquire();
        });
        m_isHeld.acquire();
        QCoreApplication::processEvents();
    }
    void goOn() { m_goesOn.release(); }

private:
    QSemaphore m_isHeld;
    QSemaphore m_goesOn;
};

TEST_F(RecentNotesInTheBackground, AreListedOnceTheVaultIsFound)
{
    auto listing = notes.getRecentNotes();
    passOneStep();
    vault.put(u"a.md"_qs);
    goOn();
    EXPECT_EQ(finished(std::move(listing))->size(), 1);
}

TEST_F(RecentNotesInTheBackground, AreListedOnceTheFolderIsFound)
{
    vault.makeFolder(u"Inbox"_qs);
    auto listing = notes.getRecentNotesInTopFolder(u"Inbox"_qs);
    passOneStep();
    goOn();
    passOneStep();
    vault.put(u"Inbox/a.md"_qs);
    goOn();
    EXPECT_EQ(finished(std::move(listing))->size(), 1);
}

TEST_F(ObsidianServiceTest, VaultFoldersAreListedSortedAndWithoutAllFolders)
{
    for (const QString& name : {u"b"_qs, u"A"_qs, u"a"_qs, u".hidden"_qs})
        vault.makeFolder(name);
    EXPECT_THAT(notes.listVaultFolders(), ElementsAre(u"A"_qs, u"a"_qs, u"b"_qs));
}

TEST_F(ObsidianServiceTest, VaultFoldersFollowTheSetting)
{
    edge.clock.set(std::chrono::system_clock::now() + std::chrono::hours(1)); // keeps listings
    const ScratchFolder other;
    vault.makeFolder(u"a"_qs);
    other.makeFolder(u"b"_qs);
    EXPECT_THAT(notes.listVaultFolders(), ElementsAre(u"a"_qs));
    settings.setObsidianFolderPath(other.path());
    EXPECT_THAT(notes.listVaultFolders(), ElementsAre(u"b"_qs));
    settings.setObsidianFolderPath(std::nullopt);
    EXPECT_THAT(notes.listVaultFolders(), IsEmpty());
}

struct UrlRow {
    const char* name;
    QString path;
    QString encoded;
};

class OpenedNote : public ObsidianServiceTest, public testing::WithParamInterface<UrlRow> {};

const UrlRow urlRows[] = {
    {"Blank", u"/my vault/a b.md"_qs, u"/my%20vault/a%20b.md"_qs},
    {"AmpersandAndPlusStay", u"/v/a&b+c.md"_qs, u"/v/a&b+c.md"_qs},
    {"AllOfAscii", uR"(/ !"#$%&'()*+,-./0123456789:;<=>?@AZ[\]^_`az{|}~)"_qs,
     uR"(/%20!%22%23$%25&'()*+,-./0123456789:;%3C=%3E?@AZ%5B%5C%5D%5E_%60az%7B%7C%7D~)"_qs},
    {"ControlCharacters", u"/v/a\nb\tc\u007f.md"_qs, u"/v/a%0Ab%09c%7F.md"_qs},
    {"AlreadyEncodedIsEncodedAgain", u"/v/a%20b.md"_qs, u"/v/a%2520b.md"_qs},
    {"Umlaut", u"/v/\u00e4.md"_qs, u"/v/%C3%A4.md"_qs},
    {"Decomposed", u"/v/a\u0308.md"_qs, u"/v/a%CC%88.md"_qs},
    {"Emoji", u"/v/\U0001F600.md"_qs, u"/v/%F0%9F%98%80.md"_qs},
};

TEST_P(OpenedNote, IsHandedOverByItsEncodedPath)
{
    finished(notes.openNoteInObsidian(NoteSearchResult::forPath(GetParam().path)));
    EXPECT_THAT(edge.workspace.opened,
                ElementsAre(u"obsidian://open?path="_qs + GetParam().encoded));
}

INSTANTIATE_TEST_SUITE_P(Rows, OpenedNote, testing::ValuesIn(urlRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(ObsidianServiceTest, NoteIsOpenedByItsUrlAndNotItsPath)
{
    NoteSearchResult note = NoteSearchResult::forPath(u"/v/a.md"_qs);
    note.filePath = u"/elsewhere.md"_qs;
    finished(notes.openNoteInObsidian(note));
    EXPECT_THAT(edge.workspace.opened, ElementsAre(u"obsidian://open?path=/v/a.md"_qs));
}

} // namespace

} // namespace jotwell
