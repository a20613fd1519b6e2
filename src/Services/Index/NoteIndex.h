#pragma once

#include "Services/Index/NoteMap.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

#include <utility>

namespace jotwell {

/// A tag and the number of notes that hold it.
struct TagCount {
    QString tag;
    qsizetype count = 0;

    bool operator==(const TagCount&) const = default;
};

/// The maps in memory: every note by its path, and the notes of every tag. The two agree at all
/// times: a tag lists a note exactly when the note's record has the tag, and no tag lists none.
/// Main thread.
class NoteIndex {
public:
    using Records = QSet<const FileMetadata*>;

    [[nodiscard]] const NoteMap& notes() const { return m_notes; }
    /// The records listed belong to `notes`.
    [[nodiscard]] const QHash<QString, Records>& tagToFiles() const { return m_tagToFiles; }

    /// Takes the record in, in the place of one of the same path.
    void add(FileMetadataPtr record);
    /// Lets go of the note, if it is there.
    void remove(const QByteArray& path);
    /// The notes of each tag.
    using Tags = QHash<QString, Records>;

    using Contents = std::pair<NoteMap, Tags>;

    /// Leaves the index empty and gives back what was in it: to free that takes long, and is better
    /// done on another thread.
    [[nodiscard]] Contents takeAll();

    /// All tags, those of most notes first, equal ones by code point.
    [[nodiscard]] QList<TagCount> getAllTagsWithCounts() const;
    /// The tags that begin with `prefix`, whatever its case: the tag of that name first, then as
    /// above. All of them for an empty one.
    [[nodiscard]] QList<TagCount> searchTags(const QString& prefix) const;

private:
    void forgetTags(const FileMetadata& record);

    NoteMap m_notes;
    QHash<QString, Records> m_tagToFiles;
};

} // namespace jotwell
