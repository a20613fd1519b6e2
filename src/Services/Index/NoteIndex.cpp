#include "Services/Index/NoteIndex.h"

#include <utility>

namespace jotwell {

void NoteIndex::add(FileMetadataPtr record)
{
    const FileMetadata& added = *record;
    if (const FileMetadataPtr old = m_notes.insert(std::move(record)))
        forgetTags(*old);
    for (const QString& tag : added.allTags()) {
        Records& records = m_tagToFiles[tag];
        records.insert(&added);
        m_tagCounts.set(tag, records.size());
    }
}

void NoteIndex::remove(const QByteArray& path)
{
    const FileMetadata* record = m_notes.find(path);
    if (!record)
        return;
    forgetTags(*record);
    m_notes.remove(path);
}

NoteIndex::Contents NoteIndex::takeAll()
{
    return {std::exchange(m_notes, NoteMap()), std::exchange(m_tagToFiles, Tags()),
            std::exchange(m_tagCounts, TagCounts())};
}

void NoteIndex::forgetTags(const FileMetadata& record)
{
    for (const QString& tag : record.allTags()) {
        const auto found = m_tagToFiles.find(tag);
        if (found == m_tagToFiles.end())
            continue;
        found->remove(&record);
        m_tagCounts.set(tag, found->size());
        if (found->isEmpty())
            m_tagToFiles.erase(found);
    }
}

QList<TagCount> NoteIndex::getAllTagsWithCounts(qsizetype limit) const
{
    return m_tagCounts.all(limit);
}

QList<TagCount> NoteIndex::searchTags(const QString& prefix, qsizetype limit) const
{
    return m_tagCounts.beginningWith(prefix.toLower(), limit);
}

} // namespace jotwell
