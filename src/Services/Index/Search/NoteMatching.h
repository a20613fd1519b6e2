#pragma once

#include "Services/Index/NoteIndex.h"
#include "Services/Index/Search/IndexSearchResult.h"
#include "Services/Index/Search/LowercaseMatcher.h"

#include <QStringList>

#include <vector>

namespace jotwell {

// What makes a note a match of a search, and a match a result. Any thread.

/// The words of a search, those first that are the least likely to be found.
[[nodiscard]] std::vector<LowercaseMatcher> matchersOf(const QStringList& terms);

/// Whether the file's name holds every term.
[[nodiscard]] bool nameHolds(const FileMetadata& note, const std::vector<LowercaseMatcher>& terms);

/// Whether each term is in the text or in the title.
[[nodiscard]] bool contentHolds(const FileMetadata& note,
                                const std::vector<LowercaseMatcher>& terms);

/// The notes that a search for several tags looks at: of the notes of the first tag those of every
/// further one; but whenever none is left, the next tag begins anew with its own.
[[nodiscard]] NoteIndex::Records taggedNotes(const QList<NoteIndex::Records>& notesOfTags);

/// Without a snippet.
[[nodiscard]] IndexSearchResult resultOf(const FileMetadata& note, MatchType matchType);

} // namespace jotwell
