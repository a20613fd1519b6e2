#pragma once

#include "Services/Index/NoteMap.h"
#include "Services/Index/Search/NewestNotes.h"

#include <atomic>
#include <functional>
#include <vector>

namespace jotwell {

/// One search's way through all notes of a map. Several threads may go it together: each takes its
/// share until nothing is left. Which notes are found doesn't depend on how many they are.
class NoteScan {
public:
    using Matches = std::function<bool(const FileMetadata&)>;
    /// What `Matches` looks at, to have it at hand in time.
    enum class Reads { names, texts };

    /// Keeps the `limit` newest matches. `matches` is called on all threads at once.
    NoteScan(NoteMap notes, Matches matches, Reads reads, std::size_t limit);

    /// Searches what no other thread has taken, and gives the newest of what it found there. They
    /// live as long as the scan. Any thread.
    [[nodiscard]] NewestNotes searchShare();

private:
    using Notes = std::vector<const FileMetadata*>;

    /// Empty when nothing is left.
    [[nodiscard]] Notes nextShare();
    void fetchAhead(const Notes& notes, std::size_t index) const;

    const NoteMap m_notes;
    const Matches m_matches;
    const Reads m_reads;
    const std::size_t m_limit;
    std::atomic<std::size_t> m_nextShard = 0;
};

} // namespace jotwell
