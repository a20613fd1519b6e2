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
    NoteSearchResults recent;
    for (qsizetype each = 0; each < std::min<qsizetype>(count, std::ssize(notes)); ++each)
        recent.append(NoteSearchResult::forPath(notes[static_cast<size_t>(each)].path));
    return recent;
}

QStringList topLevelFolders(const QString& folder)
{
    QStringList names;
    const QDir listed(folder);
    for (const QString& name : listed.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Unsorted))
        names.append(name);
    std::sort(names.begin(), names.end(), precedesByCodePoint);
    return names;
}

QString pathBelow(const QString& folder, const QString& name)
{
    return folder.endsWith(u'/') ? folder + name : folder + u'/' + name;
}

} // namespace jotwell
