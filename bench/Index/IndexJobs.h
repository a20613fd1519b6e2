#pragma once

#include "Report.h"

#include <QString>

#include <cstddef>
#include <string>

namespace jotwell::bench {

class IndexUnderTest;

/// Where the jobs find their vault, and how often they run.
struct VaultUnderTest {
    QString path;
    QString scratch; ///< a folder on the disk, for databases
    std::size_t noteCount = 0;

    /// Enough rounds to take about as long in small vaults as in large ones.
    [[nodiscard]] int rounds(int inLargest, int inSmallest) const;
    [[nodiscard]] std::string bytes() const { return path.toStdString(); }
};

// The jobs of the index, each by turns with its reference. They print what they find, and what they
// find wrong ends the program. Main thread, with an event loop to run.

/// The cleaning of texts, on one thread.
void measureCleaning(const VaultUnderTest& vault);
/// Until the maps are full.
void measureBuild(const VaultUnderTest& vault);
/// Leaves `index` built and stored. Also how long the main thread is held meanwhile.
void measureStore(const VaultUnderTest& vault, IndexUnderTest& index, const QString& dataFolder);

// These take such an index.

void measureSearches(const VaultUnderTest& vault, IndexUnderTest& index);
void measureNameSearches(const VaultUnderTest& vault, IndexUnderTest& index);
void measureScan(const VaultUnderTest& vault, IndexUnderTest& index);
/// How long the main thread is held while a full index is built anew.
void measureRebuild(const VaultUnderTest& vault, IndexUnderTest& index);

/// How long the main thread has to wait for a core while others work and it doesn't.
void measureIdleHold(const VaultUnderTest& vault);

void measureRecentNotes(const VaultUnderTest& vault);

/// For a process of its own.
void measureMemory(const VaultUnderTest& vault);

} // namespace jotwell::bench
