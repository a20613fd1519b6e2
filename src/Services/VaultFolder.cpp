#include "Services/VaultFolder.h"

#include "Support/FolderWalk.h"
#include "Support/TextUnits.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <vector>

namespace jotwell {

namespace {

struct DatedNote {
    std::chrono::system_clock::time_point changed;
    QString path;
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
    std::vector<DatedNote> notes;
    walkFolder(folder, [&notes](const FolderEntry& entry) {
        if (!entry.name.endsWith(u".md"))
            return;
        if (const auto changed = modificationTime(entry.path))
            notes.push_back({*changed, entry.path});
    });
    std::stable_sort(notes.begin(), notes.end(), [](const DatedNote& left, const DatedNote& right) {
        return left.changed > right.changed;
    });
    notes.resize(std::min(notes.size(), static_cast<size_t>(count)));
    NoteSearchResults recent;
    for (const DatedNote& note : notes)
        recent.append(NoteSearchResult::forPath(note.path));
    return recent;
}

QStringList topLevelFolders(const QString& folder)
{
    QStringList names = QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Unsorted);
    std::sort(names.begin(), names.end(), precedesByCodePoint);
    return names;
}

} // namespace jotwell
