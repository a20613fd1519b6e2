#pragma once

#include "Services/Index/NoteMap.h"
#include "Services/Index/TagCounts.h"

#include <QHash>
#include <QList>
#include <QSet>
#include <QString>

#include <limits>

namespace jotwell {

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

    struct Contents {
        NoteMap notes;
        Tags tags;
        TagCounts tagCounts;
    };

    /// Leaves the index empty and gives back what was in it: to free that takes long, and is better
    /// done on another thread.
    [[nodiscard]] Contents takeAll();

    static constexpr qsizetype noLimit = std::numeric_limits<qsizetype>::max();

    /// All tags, those of most notes first, equal ones by code point; the first `limit` of them.
    [[nodiscard]] QList<TagCount> getAllTagsWithCounts(qsizetype limit = noLimit) const;
    /// The tags that begin with `prefix`, whatever its case: the tag of that name first, then as
    /// above; the first `limit` of them. All of them for an empty one.
    [[nodiscard]] QList<TagCount> searchTags(const QString& prefix,
                                             qsizetype limit = noLimit) const;

private:
    void forgetTags(const FileMetadata& record);

    NoteMap m_notes;
    Tags m_tagToFiles;
    TagCounts m_tagCounts; ///< the sizes of the above
};

} // namespace jotwell
