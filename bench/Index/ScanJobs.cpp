#include "Index/HoldProbe.h"
#include "Index/IndexJobs.h"
#include "Index/IndexUnderTest.h"
#include "Index/TimedTask.h"
#include "Reference/BareVault.h"
#include "Samples.h"

#include "Services/VaultFolder.h"

#include <chrono>

namespace jotwell::bench {

namespace {

constexpr int recentCount = 50;

Samples::Clock::duration timeToScan(const VaultUnderTest& vault, IndexUnderTest& index)
{
    return timedRun([&] { return index.service().scanForChanges(vault.path, true); });
}

template <typename Work>
Samples::Clock::duration timeOf(Work work)
{
    const auto begin = Samples::Clock::now();
    work();
    return Samples::Clock::now() - begin;
}

} // namespace

void measureScan(const VaultUnderTest& vault, IndexUnderTest& index)
{
    Samples ours;
    Samples bare;
    Samples onMainThread;
    for (int round = vault.rounds(9, 41); round > 0; --round) {
        bare.add(timeOf([&] {
            require(listAndStat(vault.bytes()) == vault.noteCount, "the reference lists all notes");
        }));
        const std::int64_t before = threadWork();
        ours.add(timeToScan(vault, index));
        onMainThread.add(std::chrono::nanoseconds(threadWork() - before));
    }
    ours.print("scan");
    bare.print("scan reference");
    onMainThread.print("scan on the main thread");

    const HoldProbe probe;
    for (int round = 0; round < 3; ++round)
        timeToScan(vault, index);
    printHolds("scan", probe);
}

void measureRecentNotes(const VaultUnderTest& vault)
{
    Samples ours;
    Samples bare;
    for (int round = vault.rounds(9, 41); round > 0; --round) {
        std::vector<BareNote> newest;
        NoteSearchResults recent;
        bare.add(timeOf([&] { newest = newestNotes(vault.bytes(), recentCount); }));
        ours.add(timeOf([&] { recent = recentNotesBelow(vault.path, recentCount); }));
        require(recent.size() == recentCount, "there are recent notes");
        require(recent.last().filePath.toStdString() == newest.back().path,
                "both find the same notes");
    }
    ours.print("recent notes");
    bare.print("recent notes reference");
}

} // namespace jotwell::bench
