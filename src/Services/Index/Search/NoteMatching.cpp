#include "Services/Index/Search/NoteMatching.h"

#include "Support/TextUnits.h"

#include <algorithm>

namespace jotwell {

namespace {

using Matchers = std::vector<LowercaseMatcher>;

NoteIndex::Records intersection(const NoteIndex::Records& left, const NoteIndex::Records& right)
{
    const auto& [few, many] = std::minmax(
        left, right, [](const auto& one, const auto& other) { return one.size() < other.size(); });
    NoteIndex::Records both;
    for (const FileMetadata* note : few) {
        if (many.contains(note))
            both.insert(note);
    }
    return both;
}

// A part of the path, whose place is only looked for once the path is known to hold the term.
using PartOfPath = QByteArrayView (FileMetadata::*)() const;

bool isIn(PartOfPath part, const FileMetadata& note, const LowercaseMatcher& term)
{
    return term.isIn(note.path) && term.isIn((note.*part)());
}

} // namespace

Matchers matchersOf(const QStringList& terms)
{
    Matchers matchers(terms.begin(), terms.end());
    std::stable_sort(matchers.begin(), matchers.end(),
                     [](const LowercaseMatcher& left, const LowercaseMatcher& right) {
                         return left.termLength() > right.termLength();
                     });
    return matchers;
}

bool nameHolds(const FileMetadata& note, const Matchers& terms)
{
    return std::all_of(terms.begin(), terms.end(), [&](const LowercaseMatcher& term) {
        return isIn(&FileMetadata::fileName, note, term);
    });
}

bool contentHolds(const FileMetadata& note, const Matchers& terms)
{
    return std::all_of(terms.begin(), terms.end(), [&](const LowercaseMatcher& term) {
        return term.isIn(note.cleanedContent) || isIn(&FileMetadata::title, note, term);
    });
}

NoteIndex::Records taggedNotes(const QList<NoteIndex::Records>& notesOfTags)
{
    NoteIndex::Records notes;
    for (const NoteIndex::Records& tagged : notesOfTags)
        notes = notes.isEmpty() ? tagged : intersection(notes, tagged);
    return notes;
}

IndexSearchResult resultOf(const FileMetadata& note, MatchType matchType)
{
    IndexSearchResult result;
    result.title = textFromUtf8(note.title());
    result.path = QString::fromUtf8(note.path);
    result.tags = note.allTags();
    result.modificationDate = note.modificationDate;
    result.matchType = matchType;
    return result;
}

} // namespace jotwell
