#include "Models/NoteSearchResult.h"

namespace jotwell {

namespace {

// What stands behind the last dot, unless the dot begins the name.
QString withoutExtension(const QString& name)
{
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot > 0 ? name.first(dot) : name;
}

} // namespace

NoteSearchResult NoteSearchResult::forPath(const QString& path)
{
    const QString name = path.sliced(path.lastIndexOf(u'/') + 1);
    NoteSearchResult note;
    note.id = QUuid::createUuid();
    note.fileName = withoutExtension(name);
    note.filePath = path;
    note.fileURL = QUrl::fromLocalFile(path);
    return note;
}

} // namespace jotwell
