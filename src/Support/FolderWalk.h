#pragma once

#include "Support/FileStatus.h"
#include "Support/Result.h"
#include "Support/SystemError.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <functional>

namespace jotwell {

/// One entry below a folder, while it is being visited. Path and name are UTF-8.
class FolderEntry {
public:
    FolderEntry(int folder, const QByteArray& path, qsizetype nameStart, bool isFolder)
        : m_folder(folder), m_path(path), m_nameStart(nameStart), m_isFolder(isFolder)
    {
    }

    /// The walked folder's path and the entry's way down, joined by single slashes. To keep it,
    /// take a deep copy: this one has room for the longest path met.
    [[nodiscard]] const QByteArray& path() const { return m_path; }
    [[nodiscard]] QByteArrayView name() const { return QByteArrayView(m_path).sliced(m_nameStart); }
    /// A real folder, not a link to one.
    [[nodiscard]] bool isFolder() const { return m_isFolder; }
    /// Whether what stands behind the name's last dot is "md", the extension of notes.
    [[nodiscard]] bool isNote() const { return name().endsWith(".md") && name().size() > 3; }

    /// Of the entry itself, not of what a link leads to.
    [[nodiscard]] Result<FileStatus, SystemError> status() const
    {
        return fileStatusIn(m_folder, m_path.constData() + m_nameStart);
    }

private:
    int m_folder; ///< the open folder that the entry stands in
    const QByteArray& m_path;
    qsizetype m_nameStart;
    bool m_isFolder;
};

/// Calls `visit` for every entry below `folder` whose name, and whose folders' names, don't begin
/// with a dot, folder by folder in the file system's order. Links aren't followed. Names that are
/// no UTF-8, folders that can't be read, and those whose path is longer than the system takes are
/// passed over in silence; only `folder` itself fails. Blocking; any thread.
Result<void, SystemError> walkFolder(const QString& folder,
                                     const std::function<void(const FolderEntry&)>& visit);

/// `name` below `folder`, with one slash between them.
[[nodiscard]] QString pathBelow(const QString& folder, const QString& name);

} // namespace jotwell
