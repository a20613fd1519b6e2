#include "Services/VaultFolder.h"

#include "Support/FolderWalk.h"

#include <QFileInfo>

#include <algorithm>
#include <vector>

namespace jotwell {

namespace {

struct DatedNote {
    qint64 changed;
    qsizetype number; ///< in the order of the walk
    QByteArray path;
};

bool isNewer(const DatedNote& left, const DatedNote& right)
{
    return left.changed != right.changed ? left.changed > right.changed
                                         : left.number < right.number;
}

/// The newest of all notes that it is told of; of the others it keeps nothing.
class RecentNotes {
public:
    explicit RecentNotes(qsizetype count) : m_count(static_cast<size_t>(count)) {}

    void add(const FolderEntry& entry)
    {
        const auto status = entry.status();
        if (!status)
            return;
        const DatedNote note{status->modificationTime, m_number++, {}};
        if (m_notes.size() == m_count) {
            if (m_notes.empty() || !isNewer(note, m_notes.front()))
                return;
            std::pop_heap(m_notes.begin(), m_notes.end(), isNewer);
            m_notes.pop_back();
        }
        m_notes.push_back({note.changed, note.number, entry.path()});
        std::push_heap(m_notes.begin(), m_notes.end(), isNewer);
    }

    /// Newest first; those of equal date in the order of the walk.
    [[nodiscard]] std::vector<DatedNote> takeSorted()
    {
        std::sort_heap(m_notes.begin(), m_notes.end(), isNewer);
        return std::move(m_notes);
    }

private:
    size_t m_count;
    qsizetype m_number = 0;
    std::vector<DatedNote> m_notes; ///< a heap, the oldest on top
};

} // namespace

Result<void, ObsidianError> validateFolder(const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return ObsidianError{ObsidianError::Kind::folderNotFound, path};
    if (!info.isDir())
        return ObsidianError{ObsidianError::Kind::invalidPath, path};
    return {};
}

NoteSearchResults recentNotesBelow(const QString& folder, qsizetype count)
{
    RecentNotes notes(count);
    const auto visit = [&notes](const FolderEntry& entry) {
        if (entry.isNote())
            notes.add(entry);
    };
    NoteSearchResults recent;
    if (!walkFolder(folder, visit))
        return recent;
    for (const DatedNote& note : notes.takeSorted())
        recent.append(NoteSearchResult::forPath(QString::fromUtf8(note.path)));
    return recent;
}

} // namespace jotwell
