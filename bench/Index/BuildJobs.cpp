#include "Index/Cleaning.h"
#include "Index/HoldProbe.h"
#include "Index/IndexJobs.h"
#include "Index/IndexUnderTest.h"
#include "Index/StoredRows.h"
#include "Reference/BareStore.h"
#include "Reference/BareVault.h"
#include "Samples.h"

#include <QEventLoop>
#include <QTemporaryDir>
#include <QTimer>

#include <atomic>
#include <thread>

namespace jotwell::bench {

namespace {

constexpr int warmUpRounds = 1;
constexpr std::chrono::milliseconds busyTime(1000);

QString scratchTemplate(const VaultUnderTest& vault)
{
    return vault.scratch + QStringLiteral("/index-XXXXXX");
}

Samples::Clock::duration timeToRead(const VaultUnderTest& vault)
{
    const auto begin = Samples::Clock::now();
    const BareReading reading = readAndHash(vault.bytes());
    const auto time = Samples::Clock::now() - begin;
    require(reading.noteCount == vault.noteCount, "the reference reads all notes");
    return time;
}

Samples::Clock::duration timeToFill(const VaultUnderTest& vault)
{
    const QTemporaryDir data(scratchTemplate(vault));
    IndexUnderTest index(data.path());
    const auto time = index.fill(vault.path);
    require(index.notes().size() == static_cast<qsizetype>(vault.noteCount),
            "the index has all notes");
    return time;
}

Samples::Clock::duration timeToWrite(const QString& dataFolder, const std::vector<BareRow>& rows)
{
    const QString model = dataFolder + QStringLiteral("/TagIndex.db");
    const QString file = dataFolder + QStringLiteral("/Reference.db");
    BareStore store(file.toStdString(), model.toStdString());
    const auto begin = Samples::Clock::now();
    store.write(rows);
    return Samples::Clock::now() - begin;
}

} // namespace

void measureBuild(const VaultUnderTest& vault)
{
    const Texts texts = noteTexts(vault.bytes());
    const auto cores = std::max(1U, std::thread::hardware_concurrency());
    Samples ours;
    Samples bare;
    Samples reading;
    const int rounds = vault.rounds(3, 15);
    for (int round = 0; round < warmUpRounds + rounds; ++round) {
        const auto read = timeToRead(vault);
        const auto cleaned = timeToClean(texts);
        const auto filled = timeToFill(vault);
        if (round < warmUpRounds)
            continue;
        ours.add(filled);
        bare.add(read + cleaned / cores);
        reading.add(read);
    }
    ours.print("build");
    bare.print("build reference");
    reading.print("build reference reading");
}

void measureStore(const VaultUnderTest& vault, IndexUnderTest& index, const QString& dataFolder)
{
    Samples ours;
    Samples bare;
    for (int round = vault.rounds(0, 4); round > 0; --round) {
        const QTemporaryDir data(scratchTemplate(vault));
        IndexUnderTest other(data.path());
        other.fill(vault.path);
        ours.add(other.store());
        bare.add(timeToWrite(data.path(), rowsOf(other.notes())));
    }
    const HoldProbe probe;
    index.fill(vault.path);
    printHolds("build", probe);
    ours.add(index.store());
    printHolds("build and store", probe);
    bare.add(timeToWrite(dataFolder, rowsOf(index.notes())));
    ours.print("store");
    bare.print("store reference");
}

void measureIdleHold(const VaultUnderTest& vault)
{
    const HoldProbe probe;
    QEventLoop loop;
    QTimer::singleShot(busyTime, &loop, &QEventLoop::quit);
    std::atomic<bool> isOver = false;
    std::thread others([&] {
        while (!isOver)
            static_cast<void>(readAndHash(vault.bytes()));
    });
    loop.exec();
    isOver = true;
    others.join();
    printHolds("nothing", probe);
}

void measureRebuild(const VaultUnderTest& vault, IndexUnderTest& index)
{
    const HoldProbe probe;
    index.fill(vault.path);
    printHolds("rebuild", probe);
}

} // namespace jotwell::bench
