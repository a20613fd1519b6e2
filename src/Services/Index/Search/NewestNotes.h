#pragma once

#include "Services/Index/FileMetadata.h"

#include <vector>

namespace jotwell {

/// The newest of the notes that it is shown, in whatever order that happens; of equally new ones
/// those whose paths come first. The notes aren't its own: they must live as long. One thread at a
/// time.
class NewestNotes {
public:
    explicit NewestNotes(std::size_t limit) : m_limit(limit) {}

    /// Whether the note would be among the newest, as far as they are known.
    [[nodiscard]] bool wouldTake(const FileMetadata& note) const;
    /// A note is to be shown once.
    void take(const FileMetadata& note);
    void takeAll(const NewestNotes& others);

    /// Newest first.
    [[nodiscard]] std::vector<const FileMetadata*> sorted() const;

private:
    std::size_t m_limit;
    std::vector<const FileMetadata*> m_heap; ///< the oldest at its front
};

} // namespace jotwell
