#include "Services/Index/Vault/VaultScan.h"

#include "Fakes/FakeClock.h"
#include "Fakes/FakeFileSystems.h"
#include "QtPrinters.h"
#include "Services/Index/Vault/VaultListing.h"
#include "Services/LogCapture.h"
#include "Services/ScratchFolder.h"
#include "Services/Unprivileged.h"

#include <QHash>
#include <QSet>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cerrno>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace jotwell {

void PrintTo(const NoteChange& change, std::ostream* out)
{
    constexpr std::array names{"new", "date", "size", "content"};
    *out << change.path.constData() << " (" << names.at(static_cast<size_t>(change.kind)) << ")";
}

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
using Kind = NoteChange::Kind;

constexpr ContentHash falseHash = 4711;

class VaultScanTest : public testing::Test {
protected:
    VaultScanTest()
    {
        // So that all that is done to the file system now has settled.
        clock.set(std::chrono::system_clock::now() + 2 * FileReadings::settlingTime);
    }

    [[nodiscard]] QByteArray pathOf(const QString& name) const
    {
        return vault.pathOf(name).toUtf8();
    }
    [[nodiscard]] NoteChange change(const QString& name, Kind kind) const
    {
        return {pathOf(name), kind};
    }

    void put(const QString& name, const QByteArray& bytes) const { vault.put(name, bytes); }
    void index(const QString& name)
    {
        const auto record = extractMetadata(pathOf(name), clock, readings);
        ASSERT_TRUE(record);
        notes.insert(record);
    }
    void putIndexed(const QString& name, const QByteArray& bytes = "text")
    {
        put(name, bytes);
        index(name);
    }
    /// As if the file had had these bytes all the time.
    void putInPlace(const QString& name, const QByteArray& bytes) const
    {
        const QByteArray path = pathOf(name);
        struct stat before = {};
        ASSERT_EQ(::stat(path.constData(), &before), 0);
        put(name, bytes);
        const timespec times[2] = {before.st_mtim, before.st_mtim};
        ASSERT_EQ(::utimensat(AT_FDCWD, path.constData(), times, 0), 0);
    }
    /// Makes the readings lie, which shows whether they are believed.
    void rememberFalsely(const QString& name)
    {
        readings.remember(pathOf(name), *fileStatus(pathOf(name)), falseHash, readings.now());
    }
    void setModified(const QString& name, std::chrono::nanoseconds behindRecord)
    {
        const auto time = notes.find(pathOf(name))->modificationDate + behindRecord;
        const auto count = std::chrono::nanoseconds(time.time_since_epoch()).count();
        const timespec stamp{count / 1'000'000'000, count % 1'000'000'000};
        const timespec both[2] = {stamp, stamp};
        ASSERT_EQ(::utimensat(AT_FDCWD, pathOf(name).constData(), both, AT_SYMLINK_NOFOLLOW), 0);
    }

    [[nodiscard]] ScanFindings findings(bool checkContent = true, quint64 slice = 0)
    {
        const auto found = compareVault(vault.path(), checkContent, notes, readings, slice);
        EXPECT_TRUE(found);
        return found.value_or(ScanFindings{});
    }
    [[nodiscard]] std::vector<NoteChange> changes(bool checkContent = true)
    {
        return findings(checkContent).changes;
    }
    [[nodiscard]] std::optional<Kind> changeOfNote(const QString& name, bool checkContent = true)
    {
        const QByteArray path = pathOf(name);
        return changeOf(path, fileStatus(path), notes.find(path), checkContent, readings);
    }

    ScratchFolder vault;
    FakeClock clock;
    FakeFileSystems fileSystems;
    FileReadings readings{clock, fileSystems};
    NoteMap notes;
    LogCapture log;
};

TEST_F(VaultScanTest, AnUnchangedVaultHasNoFindings)
{
    putIndexed(u"a.md"_qs);
    putIndexed(u"b/c.md"_qs);
    for (quint64 slice = 0; slice < 1000; ++slice) {
        const ScanFindings found = findings(true, slice);
        EXPECT_THAT(found.changes, IsEmpty());
        EXPECT_THAT(found.missing, IsEmpty());
    }
    EXPECT_THAT(findings(false).changes, IsEmpty());
}

TEST_F(VaultScanTest, AVaultThatCannotBeListedHasNoneAtAll)
{
    putIndexed(u"a.md"_qs);
    EXPECT_FALSE(compareVault(vault.pathOf(u"gone"_qs), true, notes, readings, 0));
}

TEST_F(VaultScanTest, NotesWithoutARecordAreNew)
{
    putIndexed(u"a.md"_qs);
    put(u"b.md"_qs, "text");
    put(u"c/d.md"_qs, "caf\xe9");
    vault.makeFolder(u"folder.md"_qs);
    vault.makeLink(u"dangling.md"_qs, u"gone"_qs);
    const auto expected = UnorderedElementsAre(
        change(u"b.md"_qs, Kind::isNew), change(u"c/d.md"_qs, Kind::isNew),
        change(u"folder.md"_qs, Kind::isNew), change(u"dangling.md"_qs, Kind::isNew));
    EXPECT_THAT(changes(true), expected);
    EXPECT_THAT(changes(false), expected);
    EXPECT_EQ(changeOfNote(u"b.md"_qs), Kind::isNew);
    EXPECT_EQ(changeOf(pathOf(u"gone.md"_qs), SystemError{ENOENT}, nullptr, false, readings),
              Kind::isNew);
}

TEST_F(VaultScanTest, ALaterDateIsAChange)
{
    putIndexed(u"a.md"_qs);
    setModified(u"a.md"_qs, std::chrono::nanoseconds(1));
    EXPECT_THAT(changes(true), ElementsAre(change(u"a.md"_qs, Kind::dateChanged)));
    EXPECT_THAT(changes(false), ElementsAre(change(u"a.md"_qs, Kind::dateChanged)));
    EXPECT_EQ(changeOfNote(u"a.md"_qs, false), Kind::dateChanged);
}

TEST_F(VaultScanTest, AnEarlierDateByItselfIsNone)
{
    putIndexed(u"a.md"_qs);
    setModified(u"a.md"_qs, -std::chrono::hours(1));
    EXPECT_THAT(changes(true), IsEmpty());
    EXPECT_THAT(changes(false), IsEmpty());
}

TEST_F(VaultScanTest, AnotherSizeIsAChange)
{
    putIndexed(u"longer.md"_qs);
    putIndexed(u"shorter.md"_qs);
    putInPlace(u"longer.md"_qs, "texts");
    putInPlace(u"shorter.md"_qs, "tex");
    for (const bool checkContent : {true, false}) {
        EXPECT_THAT(changes(checkContent),
                    UnorderedElementsAre(change(u"longer.md"_qs, Kind::sizeChanged),
                                         change(u"shorter.md"_qs, Kind::sizeChanged)));
    }
}

TEST_F(VaultScanTest, TheDateCountsBeforeTheSize)
{
    putIndexed(u"a.md"_qs);
    put(u"a.md"_qs, "another text");
    setModified(u"a.md"_qs, std::chrono::seconds(1));
    EXPECT_THAT(changes(), ElementsAre(change(u"a.md"_qs, Kind::dateChanged)));
}

TEST_F(VaultScanTest, TheSizeCountsAlsoWithAnEarlierDate)
{
    putIndexed(u"a.md"_qs);
    put(u"a.md"_qs, "another text");
    setModified(u"a.md"_qs, -std::chrono::seconds(1));
    EXPECT_THAT(changes(), ElementsAre(change(u"a.md"_qs, Kind::sizeChanged)));
}

TEST_F(VaultScanTest, OtherBytesOfTheSameSizeAndDateAreAChange)
{
    putIndexed(u"a.md"_qs);
    EXPECT_THAT(changes(), IsEmpty());
    putInPlace(u"a.md"_qs, "TEXT");
    EXPECT_THAT(changes(true), ElementsAre(change(u"a.md"_qs, Kind::contentChanged)));
    EXPECT_THAT(changes(true), ElementsAre(change(u"a.md"_qs, Kind::contentChanged)));
    EXPECT_THAT(changes(false), IsEmpty());
}

TEST_F(VaultScanTest, OtherBytesWithAnEarlierDateAreAChange)
{
    putIndexed(u"a.md"_qs);
    put(u"a.md"_qs, "TEXT");
    setModified(u"a.md"_qs, -std::chrono::hours(1));
    EXPECT_THAT(changes(true), ElementsAre(change(u"a.md"_qs, Kind::contentChanged)));
    EXPECT_THAT(changes(false), IsEmpty());
}

TEST_F(VaultScanTest, AFileThatTookTheNotesPlaceIsCompared)
{
    putIndexed(u"a.md"_qs);
    const qint64 time = fileStatus(pathOf(u"a.md"_qs))->modificationTime;
    const timespec both[2] = {{time / 1'000'000'000, time % 1'000'000'000},
                              {time / 1'000'000'000, time % 1'000'000'000}};
    put(u"other"_qs, "TEXT");
    ASSERT_EQ(::utimensat(AT_FDCWD, pathOf(u"other"_qs).constData(), both, 0), 0);
    ASSERT_EQ(::rename(pathOf(u"other"_qs).constData(), pathOf(u"a.md"_qs).constData()), 0);
    EXPECT_THAT(changes(), ElementsAre(change(u"a.md"_qs, Kind::contentChanged)));
}

TEST_F(VaultScanTest, ANoteThatBecameUnreadableKeepsItsRecord)
{
    putIndexed(u"a.md"_qs);
    ASSERT_EQ(::chmod(pathOf(u"a.md"_qs).constData(), 0), 0);
    const Unprivileged user(vault.path());
    const ScanFindings found = findings();
    EXPECT_THAT(found.changes, IsEmpty());
    EXPECT_THAT(found.missing, IsEmpty());
}

TEST_F(VaultScanTest, ANoteThatBecameNoTextKeepsItsRecord)
{
    putIndexed(u"a.md"_qs);
    putInPlace(u"a.md"_qs, "caf\xe9");
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_TRUE(log.errors().isEmpty());
}

TEST_F(VaultScanTest, ANoteThatVanishesBeforeItIsReadKeepsItsRecord)
{
    putIndexed(u"a.md"_qs);
    putInPlace(u"a.md"_qs, "TEXT");
    const QByteArray path = pathOf(u"a.md"_qs);
    const auto status = fileStatus(path);
    vault.remove(u"a.md"_qs);
    EXPECT_EQ(changeOf(path, status, notes.find(path), true, readings), std::nullopt);
}

TEST_F(VaultScanTest, WithoutAStatusTheBytesDecide)
{
    putIndexed(u"same.md"_qs);
    putIndexed(u"other.md"_qs);
    putIndexed(u"gone.md"_qs);
    put(u"other.md"_qs, "another text");
    vault.remove(u"gone.md"_qs);
    const auto without = [this](const QString& name, bool checkContent) {
        const QByteArray path = pathOf(name);
        return changeOf(path, SystemError{EIO}, notes.find(path), checkContent, readings);
    };
    EXPECT_EQ(without(u"same.md"_qs, true), std::nullopt);
    EXPECT_EQ(without(u"other.md"_qs, true), Kind::contentChanged);
    EXPECT_EQ(without(u"other.md"_qs, false), std::nullopt);
    EXPECT_EQ(without(u"gone.md"_qs, true), std::nullopt);
}

TEST_F(VaultScanTest, AChangedTargetOfALinkIsAChange)
{
    const ScratchFolder elsewhere;
    elsewhere.put(u"note"_qs, "text");
    vault.makeLink(u"a.md"_qs, elsewhere.pathOf(u"note"_qs));
    index(u"a.md"_qs);
    EXPECT_THAT(changes(), IsEmpty());
    elsewhere.put(u"note"_qs, "a much longer text");
    EXPECT_THAT(changes(true), ElementsAre(change(u"a.md"_qs, Kind::contentChanged)));
    EXPECT_THAT(changes(false), IsEmpty());
}

TEST_F(VaultScanTest, EachChangeComesOnceInTheOrderOfTheListing)
{
    for (int each = 0; each < 300; ++each) {
        const QString name = u"%1/%2.md"_qs.arg(each % 25).arg(each);
        if (each % 3 == 0)
            put(name, "text");
        else
            putIndexed(name);
        if (each % 3 == 1)
            put(name, "another text");
    }
    std::vector<NoteChange> expected;
    const auto listing = findMarkdownFiles(vault.path());
    for (const QByteArray& path : *listing) {
        const auto kind = changeOf(path, fileStatus(path), notes.find(path), true, readings);
        if (kind)
            expected.push_back({path, *kind});
    }
    ASSERT_EQ(expected.size(), 200U);
    EXPECT_EQ(changes(), expected);
}

TEST_F(VaultScanTest, NotesThatAreNotListedAreMissing)
{
    putIndexed(u"a.md"_qs);
    putIndexed(u"b.md"_qs);
    putIndexed(u"c/d.md"_qs);
    vault.remove(u"b.md"_qs);
    vault.rename(u"c"_qs, u".c"_qs);
    const ScanFindings found = findings();
    EXPECT_THAT(found.changes, IsEmpty());
    EXPECT_THAT(found.missing, UnorderedElementsAre(pathOf(u"b.md"_qs), pathOf(u"c/d.md"_qs)));
}

TEST_F(VaultScanTest, ARenamedNoteIsNewAndMissing)
{
    putIndexed(u"a.md"_qs);
    vault.rename(u"a.md"_qs, u"b.md"_qs);
    const ScanFindings found = findings();
    EXPECT_THAT(found.changes, ElementsAre(change(u"b.md"_qs, Kind::isNew)));
    EXPECT_THAT(found.missing, ElementsAre(pathOf(u"a.md"_qs)));
}

TEST_F(VaultScanTest, AnEmptiedVaultMissesAll)
{
    putIndexed(u"a.md"_qs);
    vault.remove(u"a.md"_qs);
    EXPECT_THAT(findings().missing, ElementsAre(pathOf(u"a.md"_qs)));
}

TEST_F(VaultScanTest, ANoteOfAnUnreadableFolderIsMissing)
{
    putIndexed(u"shut/a.md"_qs);
    const QByteArray shut = pathOf(u"shut"_qs);
    ASSERT_EQ(::chmod(shut.constData(), 0), 0);
    {
        const Unprivileged user(vault.path());
        EXPECT_THAT(findings().missing, ElementsAre(pathOf(u"shut/a.md"_qs)));
    }
    ASSERT_EQ(::chmod(shut.constData(), 0700), 0);
}

TEST_F(VaultScanTest, WhatIsKnownIsNotRead)
{
    putIndexed(u"a.md"_qs);
    rememberFalsely(u"a.md"_qs);
    EXPECT_EQ(changeOfNote(u"a.md"_qs), Kind::contentChanged);
    EXPECT_EQ(changeOfNote(u"a.md"_qs, false), std::nullopt);
}

TEST_F(VaultScanTest, WhatWasReadIsKnown)
{
    putIndexed(u"a.md"_qs);
    readings.forget(pathOf(u"a.md"_qs));
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_EQ(readings.known(pathOf(u"a.md"_qs), *fileStatus(pathOf(u"a.md"_qs))),
              calculateHash("text"));
}

TEST_F(VaultScanTest, WithoutChangeTimesEverythingIsRead)
{
    fileSystems.keepsTimes = false;
    putIndexed(u"a.md"_qs);
    rememberFalsely(u"a.md"_qs);
    EXPECT_THAT(changes(), IsEmpty());
}

TEST_F(VaultScanTest, WhatChangedWithinTheMinuteIsRead)
{
    putIndexed(u"a.md"_qs);
    clock.set(fileStatus(pathOf(u"a.md"_qs))->modificationDate() + FileReadings::settlingTime);
    rememberFalsely(u"a.md"_qs);
    EXPECT_THAT(changes(), IsEmpty());
}

// A write within the tick of the one that was read: nothing of the status tells of it.
TEST_F(VaultScanTest, EveryWriteIsFoundHoweverSoon)
{
    clock.set(std::chrono::system_clock::now());
    for (int each = 0; each < 50; ++each) {
        const QByteArray bytes = QByteArray::number(1000 + each);
        putIndexed(u"a.md"_qs);
        EXPECT_THAT(changes(), IsEmpty());
        putInPlace(u"a.md"_qs, bytes);
        ASSERT_THAT(changes(), ElementsAre(change(u"a.md"_qs, Kind::contentChanged)));
    }
}

TEST_F(VaultScanTest, EachNoteIsReadAgainOnceInARound)
{
    constexpr int noteCount = 40;
    constexpr quint64 round = 720; // an hour of scans
    QHash<QByteArray, int> timesRead;
    for (int each = 0; each < noteCount; ++each)
        putIndexed(u"%1.md"_qs.arg(each));
    for (quint64 slice = 1000; slice < 1000 + round; ++slice) {
        for (int each = 0; each < noteCount; ++each)
            rememberFalsely(u"%1.md"_qs.arg(each));
        const auto found = findings(true, slice).changes;
        QSet<QByteArray> believed;
        for (const NoteChange& note : found)
            believed.insert(note.path);
        notes.forEach([&](const FileMetadataPtr& record) {
            if (!believed.contains(record->path))
                ++timesRead[record->path];
        });
    }
    EXPECT_EQ(timesRead.size(), noteCount);
    for (const int times : timesRead)
        EXPECT_EQ(times, 1);
}

// What is written through a memory map leaves a trace only once in a while.
TEST_F(VaultScanTest, TheRoundFindsAWriteWithoutATrace)
{
    put(u"a.md"_qs, "text");
    const int file = ::open(pathOf(u"a.md"_qs).constData(), O_RDWR | O_CLOEXEC);
    void* const memory = ::mmap(nullptr, 4, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    ASSERT_NE(memory, MAP_FAILED);
    ::close(file);
    auto* const bytes = static_cast<volatile char*>(memory);
    bytes[0] = 'T';
    index(u"a.md"_qs);
    const FileStatus before = *fileStatus(pathOf(u"a.md"_qs));
    bytes[0] = 'X';
    const bool leftNoTrace = *fileStatus(pathOf(u"a.md"_qs)) == before;
    std::vector<NoteChange> found;
    for (quint64 slice = 0; slice < 720 && found.empty(); ++slice)
        found = findings(true, slice).changes;
    ::munmap(memory, 4);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found.front().kind, leftNoTrace ? Kind::contentChanged : Kind::dateChanged);
}

} // namespace

} // namespace jotwell
