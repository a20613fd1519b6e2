#include "Services/TopLevelFolders.h"

#include "Fakes/FakeClock.h"
#include "Fakes/FakeFileSystems.h"
#include "QtPrinters.h"
#include "Services/ScratchFolder.h"
#include "Services/Unprivileged.h"
#include "Support/TextUnits.h"

#include <QDir>
#include <QFileInfo>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include <sys/stat.h>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// What a plain listing gives, with each entry looked at by its path.
QStringList reference(const QString& folder)
{
    QStringList names =
        QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Unsorted);
    names.removeIf(
        [&folder](const QString& name) { return !QFileInfo(folder + u'/' + name).isDir(); });
    std::sort(names.begin(), names.end(), precedesByCodePoint);
    return names;
}

FileStatus statusOf(const QString& path)
{
    return *fileStatus(path.toUtf8(), Links::follow);
}

/// With a clock that is an hour ahead of the file system's, so that a listing is kept at once.
class TopLevelFoldersTest : public testing::Test {
protected:
    TopLevelFoldersTest() { m_clock.set(std::chrono::system_clock::now() + std::chrono::hours(1)); }

    [[nodiscard]] QStringList list() { return m_folders.below(m_vault.path()); }
    /// Fails the test unless the answer is that of a plain listing.
    void expectSame(const QString& folder)
    {
        EXPECT_EQ(m_folders.below(folder), reference(folder)) << qPrintable(folder);
    }
    void expectSame() { expectSame(m_vault.path()); }
    [[nodiscard]] bool isKept()
    {
        const QStringList first = list();
        const QStringList second = list();
        return first.constData() == second.constData();
    }

    /// Comes back when a change can't fall into the tick of the last listing any more.
    void passTick() const
    {
        const qint64 last = statusOf(m_vault.path()).changeTime;
        const ScratchFolder elsewhere;
        do
            elsewhere.put(u"tick"_qs);
        while (statusOf(elsewhere.pathOf(u"tick"_qs)).changeTime <= last);
    }

    ScratchFolder m_vault;
    ScratchFolder m_elsewhere;
    FakeClock m_clock;
    FakeFileSystems m_fileSystems;
    TopLevelFolders m_folders{m_clock, m_fileSystems};
};

TEST_F(TopLevelFoldersTest, FoldersAreSortedByCodePoint)
{
    const QStringList sorted{u"A"_qs, u"B"_qs,      u"a"_qs,         u"b"_qs,
                             u"ä"_qs, u"\uffee"_qs, u"\U0001F4C1"_qs};
    for (const int each : {3, 6, 0, 5, 4, 2, 1})
        m_vault.makeFolder(sorted.at(each));
    EXPECT_EQ(list(), sorted);
    m_vault.makeLink(u"a link"_qs, m_elsewhere.path());
    passTick();
    EXPECT_THAT(list(), ElementsAre(u"A"_qs, u"B"_qs, u"a"_qs, u"a link"_qs, u"b"_qs, u"ä"_qs,
                                    u"\uffee"_qs, u"\U0001F4C1"_qs));
}

TEST_F(TopLevelFoldersTest, OnlyVisibleFoldersOfTheTopLevelAreListed)
{
    m_vault.makeFolder(u"Inbox/below"_qs);
    m_vault.makeFolder(u".obsidian"_qs);
    m_vault.makeFolder(u"folder.md"_qs);
    m_vault.makeLink(u".link"_qs, m_elsewhere.path());
    m_vault.put(u"note.md"_qs);
    m_vault.makeFifo(u"fifo"_qs);
    ASSERT_EQ(::mkdir((m_vault.path().toUtf8() + "/no \xff text").constData(), 0700), 0);
    EXPECT_THAT(list(), ElementsAre(u"Inbox"_qs, u"folder.md"_qs));
    expectSame();
}

TEST_F(TopLevelFoldersTest, LinksToFoldersAreListed)
{
    m_vault.makeFolder(u"real"_qs);
    m_vault.put(u"note.md"_qs);
    m_vault.makeLink(u"toFolder"_qs, m_vault.pathOf(u"real"_qs));
    m_vault.makeLink(u"toNote"_qs, m_vault.pathOf(u"note.md"_qs));
    m_vault.makeLink(u"dangling"_qs, m_vault.pathOf(u"gone"_qs));
    m_vault.makeLink(u"round"_qs, m_vault.pathOf(u"round"_qs));
    EXPECT_THAT(list(), ElementsAre(u"real"_qs, u"toFolder"_qs));
}

TEST_F(TopLevelFoldersTest, WhatCannotBeListedHasNoFolders)
{
    m_vault.put(u"file"_qs);
    EXPECT_THAT(m_folders.below(m_vault.pathOf(u"gone"_qs)), IsEmpty());
    EXPECT_THAT(m_folders.below(m_vault.pathOf(u"file"_qs)), IsEmpty());
    EXPECT_THAT(m_folders.below(QString()), IsEmpty());
}

TEST_F(TopLevelFoldersTest, ListingIsKeptWhileNothingChanges)
{
    m_vault.makeFolder(u"Inbox"_qs);
    EXPECT_TRUE(isKept());
    m_vault.put(u"Inbox/a.md"_qs); // below the top
    EXPECT_TRUE(isKept());
}

TEST_F(TopLevelFoldersTest, ListingIsKeptOnlyBehindTheTickOfTheLastChange)
{
    m_vault.makeFolder(u"Inbox"_qs);
    const std::chrono::nanoseconds changed(statusOf(m_vault.path()).changeTime);
    const Clock::TimePoint settled(changed + TopLevelFolders::settlingTime);
    m_clock.set(settled);
    EXPECT_FALSE(isKept());
    m_clock.advance(std::chrono::nanoseconds(1));
    EXPECT_TRUE(isKept());
}

TEST_F(TopLevelFoldersTest, ListingThatIsNewIsReadAnewWithinTheSameTick)
{
    m_clock.set(std::chrono::system_clock::now());
    for (int each = 0; each < 100; ++each) {
        m_vault.makeFolder(QString::number(each));
        EXPECT_EQ(list().size(), each + 1);
    }
}

TEST_F(TopLevelFoldersTest, ListingIsNotKeptWhereTimesCannotBeTrusted)
{
    m_vault.makeFolder(u"Inbox"_qs);
    m_fileSystems.keepsTimes = false;
    EXPECT_FALSE(isKept());
}

struct ChangeRow {
    const char* name;
    void (*change)(const ScratchFolder& vault, const ScratchFolder& elsewhere);
};

class ChangedVault : public TopLevelFoldersTest, public testing::WithParamInterface<ChangeRow> {
protected:
    ChangedVault()
    {
        m_vault.makeFolder(u"a"_qs);
        m_vault.makeFolder(u"b"_qs);
        m_vault.put(u"note.md"_qs);
        m_elsewhere.makeFolder(u"folder/inside"_qs);
        m_elsewhere.put(u"file"_qs);
        m_vault.makeLink(u"link"_qs, m_elsewhere.pathOf(u"folder"_qs));
        m_vault.makeLink(u"dangling"_qs, m_elsewhere.pathOf(u"gone"_qs));
    }
};

const ChangeRow changeRows[] = {
    {"Nothing", [](const auto&, const auto&) {}},
    {"FolderCreated", [](const auto& vault, const auto&) { vault.makeFolder(u"c"_qs); }},
    {"FolderRemoved", [](const auto& vault, const auto&) { QDir(vault.path()).rmdir(u"b"_qs); }},
    {"FolderRenamed", [](const auto& vault, const auto&) { vault.rename(u"b"_qs, u"B"_qs); }},
    {"FolderHidden", [](const auto& vault, const auto&) { vault.rename(u"b"_qs, u".b"_qs); }},
    {"FolderMovedIn",
     [](const auto& vault, const auto& elsewhere) {
         QDir().rename(elsewhere.pathOf(u"folder"_qs), vault.pathOf(u"moved"_qs));
     }},
    {"FolderReplacedByFile",
     [](const auto& vault, const auto&) {
         QDir(vault.path()).rmdir(u"b"_qs);
         vault.put(u"b"_qs);
     }},
    {"FileReplacedByFolder",
     [](const auto& vault, const auto&) {
         vault.remove(u"note.md"_qs);
         vault.makeFolder(u"note.md"_qs);
     }},
    {"FileReplacedByLink",
     [](const auto& vault, const auto& elsewhere) {
         vault.remove(u"note.md"_qs);
         vault.makeLink(u"note.md"_qs, elsewhere.path());
     }},
    {"LinkRetargeted",
     [](const auto& vault, const auto& elsewhere) {
         vault.remove(u"link"_qs);
         vault.makeLink(u"link"_qs, elsewhere.pathOf(u"file"_qs));
     }},
    {"TargetRemoved",
     [](const auto&, const auto& elsewhere) { elsewhere.rename(u"folder"_qs, u"away"_qs); }},
    {"TargetMade", [](const auto&, const auto& elsewhere) { elsewhere.makeFolder(u"gone"_qs); }},
    {"TargetBecameAFile",
     [](const auto&, const auto& elsewhere) {
         elsewhere.rename(u"folder"_qs, u"away"_qs);
         elsewhere.put(u"folder"_qs);
     }},
    {"TargetUnreachable",
     [](const auto&, const auto& elsewhere) { ::chmod(qPrintable(elsewhere.path()), 0); }},
    {"VaultReplaced",
     [](const auto& vault, const auto& elsewhere) {
         QDir().rename(vault.path(), elsewhere.pathOf(u"old"_qs));
         QDir().rename(elsewhere.pathOf(u"folder"_qs), vault.path());
     }},
    {"VaultReplacedByFile",
     [](const auto& vault, const auto& elsewhere) {
         QDir().rename(vault.path(), elsewhere.pathOf(u"old"_qs));
         QFile::rename(elsewhere.pathOf(u"file"_qs), vault.path());
     }},
    {"VaultUnreadable",
     [](const auto& vault, const auto&) { ::chmod(qPrintable(vault.path()), 0); }},
    {"VaultReadableButNotEntered",
     [](const auto& vault, const auto&) { ::chmod(qPrintable(vault.path()), 0400); }},
};

// With the vault and with what lies beside it in the hands of an ordinary user, and listed before.
TEST_P(ChangedVault, IsSeenAtOnce)
{
    ASSERT_EQ(::chmod(qPrintable(m_elsewhere.path()), 0777), 0);
    expectSame();
    passTick();
    GetParam().change(m_vault, m_elsewhere);
    {
        const Unprivileged user(m_vault.path());
        expectSame();
        expectSame();
    }
    ::chmod(qPrintable(m_elsewhere.path()), 0700);
    ::chmod(qPrintable(m_vault.path()), 0700);
}

INSTANTIATE_TEST_SUITE_P(Rows, ChangedVault, testing::ValuesIn(changeRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(TopLevelFoldersTest, VaultThatIsGoneHasNoneUntilItIsBack)
{
    m_vault.makeFolder(u"a"_qs);
    EXPECT_THAT(list(), ElementsAre(u"a"_qs));
    const QString away = m_elsewhere.pathOf(u"away"_qs);
    QDir().rename(m_vault.path(), away);
    EXPECT_THAT(list(), IsEmpty());
    QDir().rename(away, m_vault.path());
    EXPECT_THAT(list(), ElementsAre(u"a"_qs));
}

TEST_F(TopLevelFoldersTest, EachVaultHasItsOwn)
{
    m_vault.makeFolder(u"a"_qs);
    m_elsewhere.makeFolder(u"b"_qs);
    for (int round = 0; round < 2; ++round) {
        EXPECT_THAT(list(), ElementsAre(u"a"_qs));
        EXPECT_THAT(m_folders.below(m_elsewhere.path()), ElementsAre(u"b"_qs));
    }
}

TEST_F(TopLevelFoldersTest, VaultThatIsALinkIsTheOneItLeadsTo)
{
    m_vault.makeFolder(u"a/inside a"_qs);
    m_vault.makeFolder(u"b/inside b"_qs);
    const QString link = m_elsewhere.pathOf(u"vault"_qs);
    m_elsewhere.makeLink(u"vault"_qs, m_vault.pathOf(u"a"_qs));
    EXPECT_THAT(m_folders.below(link), ElementsAre(u"inside a"_qs));
    m_elsewhere.remove(u"vault"_qs);
    m_elsewhere.makeLink(u"vault"_qs, m_vault.pathOf(u"b"_qs));
    EXPECT_THAT(m_folders.below(link), ElementsAre(u"inside b"_qs));
}

TEST_F(TopLevelFoldersTest, VaultIsFoundByItsOwnPathWhenALinkToItGoes)
{
    m_vault.makeFolder(u"a"_qs);
    m_vault.makeLink(u"link"_qs, m_vault.pathOf(u"a"_qs));
    m_elsewhere.makeLink(u"vault"_qs, m_vault.path());
    expectSame(m_elsewhere.pathOf(u"vault"_qs));
    m_elsewhere.remove(u"vault"_qs);
    EXPECT_THAT(list(), ElementsAre(u"a"_qs, u"link"_qs));
}

TEST_F(TopLevelFoldersTest, AnyRowOfChangesIsFollowed)
{
    std::mt19937 random(42);
    const auto anyName = [&random] {
        return QString(QChar(static_cast<char16_t>(u'a' + random() % 4)));
    };
    const QDir vault(m_vault.path());
    for (int round = 0; round < 300; ++round) {
        const QString name = anyName();
        switch (random() % 5) {
        case 0:
            vault.mkdir(name);
            break;
        case 1:
            QDir(vault.filePath(name)).removeRecursively();
            break;
        case 2:
            QFile::rename(vault.filePath(name), vault.filePath(anyName()));
            break;
        case 3:
            QFile::remove(vault.filePath(name));
            break;
        default:
            QFile::link(vault.filePath(anyName()), vault.filePath(name));
        }
        expectSame();
        passTick();
    }
}

} // namespace

} // namespace jotwell
