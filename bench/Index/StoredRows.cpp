#include "Index/StoredRows.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <chrono>

namespace jotwell::bench {

namespace {

std::int64_t secondsOf(Clock::TimePoint time)
{
    return std::chrono::duration_cast<std::chrono::seconds>(time.time_since_epoch()).count();
}

BareRow rowOf(const FileMetadata& record)
{
    const QJsonDocument tags(QJsonArray::fromStringList(record.allTags()));
    BareRow row;
    row.path = record.path;
    row.title = record.title().toByteArray();
    row.content = record.fullContent;
    row.cleanedContent = record.cleanedContent;
    row.tagsJson = tags.toJson(QJsonDocument::Compact);
    row.modificationDate = secondsOf(record.modificationDate);
    row.fileSize = record.fileSize;
    row.contentHash = hashText(record.contentHash).toUtf8();
    row.wordCount = static_cast<int>(record.wordCount);
    row.indexedDate = secondsOf(record.indexedDate);
    return row;
}

} // namespace

std::vector<BareRow> rowsOf(const NoteMap& notes)
{
    std::vector<BareRow> rows;
    rows.reserve(static_cast<std::size_t>(notes.size()));
    notes.forEach([&rows](const FileMetadataPtr& record) { rows.push_back(rowOf(*record)); });
    return rows;
}

} // namespace jotwell::bench
