#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// What can't be done with less than these system calls: the references for whatever goes through a
// whole vault. The notes are all files below the folder that end in ".md", but for hidden ones.

namespace jotwell::bench {

struct BareNote {
    std::string path;
    std::int64_t modificationTime = 0; ///< nanoseconds since 1970
};

/// Lists the folders and asks for every note's status, on one thread. Gives the number of notes.
[[nodiscard]] std::size_t listAndStat(const std::string& vault);

/// The same, and keeps the `count` notes that changed last, newest first.
[[nodiscard]] std::vector<BareNote> newestNotes(const std::string& vault, std::size_t count);

struct BareReading {
    std::size_t noteCount = 0;
    std::size_t byteCount = 0;
    std::uint64_t digest = 0;
};

/// Lists the folders and reads and hashes every note, on all cores.
[[nodiscard]] BareReading readAndHash(const std::string& vault);

/// The texts of all notes.
[[nodiscard]] std::vector<std::string> noteTexts(const std::string& vault);

} // namespace jotwell::bench
