#include "Services/Index/NoteScan.h"

#include <algorithm>
#include <span>

namespace jotwell {

namespace {

using Notes = std::vector<const FileMetadata*>;

// Shards that a thread takes at a time: many enough to look ahead in, few enough to share fairly.
constexpr std::size_t shareSize = 4;
static_assert(NoteMap::shardCount % shareSize == 0);

// How many notes ahead a record and what it points to are fetched.
constexpr std::size_t recordsAhead = 16;
constexpr std::size_t textsAhead = 4;
constexpr qsizetype cacheLine = 64;

void fetchRecord(const FileMetadata& note)
{
    __builtin_prefetch(&note.path);
    __builtin_prefetch(&note.cleanedContent);
}

void fetchContent(const FileMetadata& note, NoteScan::Reads reads)
{
    __builtin_prefetch(note.path.constData());
    if (reads == NoteScan::Reads::names)
        return;
    // Once begun, a text is fetched by the processor itself.
    constexpr qsizetype beginning = 8 * cacheLine;
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
    Notes notes;
    for (;;) {
        const std::size_t shard = m_nextShard.fetch_add(shareSize, std::memory_order_relaxed);
        if (shard >= NoteMap::shardCount)
            return newest;
        notes.clear();
        for (const auto& records : std::span(m_notes.shards()).subspan(shard, shareSize)) {
            for (const FileMetadataPtr& record : records)
                notes.push_back(record.get());
        }
        for (std::size_t i = 0; i < notes.size(); ++i) {
            if (i + recordsAhead < notes.size())
                fetchRecord(*notes[i + recordsAhead]);
            if (i + textsAhead < notes.size())
                fetchContent(*notes[i + textsAhead], m_reads);
            if (newest.wouldTake(*notes[i]) && m_matches(*notes[i]))
                newest.take(*notes[i]);
        }
    }
}

} // namespace jotwell
