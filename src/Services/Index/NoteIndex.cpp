#include "Services/Index/NoteIndex.h"

#include "Support/TextUnits.h"

#include <algorithm>
#include <utility>

namespace jotwell {

namespace {

bool hasMoreNotes(const TagCount& left, const TagCount& right)
{
    if (left.count != right.count)
        return left.count > right.count;
    return precedesByCodePoint(left.tag, right.tag);
}

} // namespace

void NoteIndex::add(FileMetadataPtr record)
{
    const FileMetadata& added = *record;
    if (const FileMetadataPtr old = m_notes.insert(std::move(record)))
        forgetTags(*old);
    for (const QString& tag : added.allTags())
        m_tagToFiles[tag].insert(&added);
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
    return {std::exchange(m_notes, NoteMap()), std::exchange(m_tagToFiles, Tags())};
}

void NoteIndex::forgetTags(const FileMetadata& record)
{
    for (const QString& tag : record.allTags()) {
        const auto found = m_tagToFiles.find(tag);
        if (found == m_tagToFiles.end())
            continue;
        found->remove(&record);
        if (found->isEmpty())
            m_tagToFiles.erase(found);
    }
}

QList<TagCount> NoteIndex::getAllTagsWithCounts() const
{
    QList<TagCount> all;
    for (auto each = m_tagToFiles.begin(); each != m_tagToFiles.end(); ++each)
        all.append({each.key(), each->size()});
    std::sort(all.begin(), all.end(), hasMoreNotes);
    return all;
}

QList<TagCount> NoteIndex::searchTags(const QString& prefix) const
{
    const QString wanted = prefix.toLower();
    QList<TagCount> found;
    for (auto each = m_tagToFiles.begin(); each != m_tagToFiles.end(); ++each) {
        if (!each.key().isEmpty() && each.key().startsWith(wanted))
            found.append({each.key(), each->size()});
    }
    std::sort(found.begin(), found.end(), [&wanted](const TagCount& left, const TagCount& right) {
        if ((left.tag == wanted) != (right.tag == wanted))
            return left.tag == wanted;
        return hasMoreNotes(left, right);
    });
    return found;
}

} // namespace jotwell
