#include "Services/Index/Search/NoteScan.h"

#include <algorithm>
#include <span>

namespace jotwell {

namespace {

// Shards that a thread takes at a time: many enough to look ahead in, few enough to share fairly.
constexpr std::size_t shardsPerShare = 4;
static_assert(NoteMap::shardCount % shardsPerShare == 0);

// How many notes ahead a record and what it points to are fetched: they lie wherever there was room
// for them.
constexpr std::size_t recordsAhead = 24;
constexpr std::size_t pathsAhead = 10;
constexpr std::size_t textsAhead = 4;

// Once begun, a text is fetched by those who search it.
constexpr qsizetype beginning = 512;
constexpr qsizetype cacheLine = 64;

void fetchRecord(const FileMetadata& note)
{
    __builtin_prefetch(&note.path);
    __builtin_prefetch(&note.cleanedContent);
    __builtin_prefetch(&note.cleanedContent + 1);
}

void fetchPath(const FileMetadata& note)
{
    __builtin_prefetch(note.path.constData());
    __builtin_prefetch(note.path.constData() + note.path.size());
}

void fetchText(const FileMetadata& note)
{
    for (qsizetype at = 0; at < std::min(beginning, note.cleanedContent.size()); at += cacheLine)
        __builtin_prefetch(note.cleanedContent.constData() + at);
}

} // namespace

NoteScan::NoteScan(NoteMap notes, Matches matches, Reads reads, std::size_t limit)
    : m_notes(std::move(notes)), m_matches(std::move(matches)), m_reads(reads), m_limit(limit)
{
}

NewestNotes NoteScan::searchShare()
{
    NewestNotes newest(m_limit);
    for (Notes notes = nextShare(); !notes.empty(); notes = nextShare()) {
        for (std::size_t i = 0; i < notes.size(); ++i) {
            fetchAhead(notes, i);
            if (newest.wouldTake(*notes[i]) && m_matches(*notes[i]))
                newest.take(*notes[i]);
        }
    }
    return newest;
}

NoteScan::Notes NoteScan::nextShare()
{
    Notes notes;
    while (notes.empty()) {
        const std::size_t first = m_nextShard.fetch_add(shardsPerShare, std::memory_order_relaxed);
        if (first >= NoteMap::shardCount)
            break;
        for (const auto& shard : std::span(m_notes.shards()).subspan(first, shardsPerShare)) {
            for (const FileMetadataPtr& record : shard)
                notes.push_back(record.get());
        }
    }
    return notes;
}

void NoteScan::fetchAhead(const Notes& notes, std::size_t index) const
{
    if (index + recordsAhead < notes.size())
        fetchRecord(*notes[index + recordsAhead]);
    if (index + pathsAhead < notes.size())
        fetchPath(*notes[index + pathsAhead]);
    if (m_reads == Reads::texts && index + textsAhead < notes.size())
        fetchText(*notes[index + textsAhead]);
}

} // namespace jotwell
