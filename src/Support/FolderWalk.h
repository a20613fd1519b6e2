#pragma once

#include "Support/FileStatus.h"
#include "Support/Result.h"
#include "Support/SystemError.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <functional>
#include <vector>

namespace jotwell {

/// One entry below a folder, while it is being visited. Path and name are UTF-8.
class FolderEntry {
public:
    /// Of `name`, which stands in the open folder at `parent`; its path is put into `path` when
    /// somebody asks for it.
    FolderEntry(int folder, const QByteArray& parent, const char* name, bool isFolder,
                QByteArray& path)
        : m_folder(folder), m_parent(parent), m_name(name), m_isFolder(isFolder), m_path(path)
    {
    }

    /// The walked folder's path and the entry's way down, joined by single slashes. To keep it,
    /// take a deep copy: this one has room for the longest path met.
    [[nodiscard]] const QByteArray& path() const;
    [[nodiscard]] QByteArrayView name() const { return m_name; }
    /// A real folder, not a link to one.
    [[nodiscard]] bool isFolder() const { return m_isFolder; }
    /// Whether what stands behind the name's last dot is "md", the extension of notes.
    [[nodiscard]] bool isNote() const { return m_name.endsWith(".md") && m_name.size() > 3; }

    /// Of the entry itself, not of what a link leads to.
    [[nodiscard]] Result<FileStatus, SystemError> status() const
    {
        return fileStatusIn(m_folder, m_name.data());
    }

private:
    int m_folder;
    const QByteArray& m_parent; ///< with its slash
    QByteArrayView m_name;      ///< with a NUL behind it
    bool m_isFolder;
    QByteArray& m_path;
};

using FolderVisit = std::function<void(const FolderEntry&)>;

/// Calls `visit` for every entry below `folder` whose name, and whose folders' names, don't begin
/// with a dot, folder by folder in the file system's order. Links aren't followed. Names that are
/// no UTF-8, folders that can't be read, and those whose path is longer than the system takes are
/// passed over in silence; only `folder` itself fails. Blocking; any thread.
Result<void, SystemError> walkFolder(const QString& folder, const FolderVisit& visit);

/// The same on several threads at once: each of `visits` is called for some of the folders, the
/// first on the calling thread, each other one on a thread of its own.
Result<void, SystemError> walkFolder(const QString& folder, const std::vector<FolderVisit>& visits);

/// `name` below `folder`, with one slash between them.
[[nodiscard]] QString pathBelow(const QString& folder, const QString& name);

/// A path as it is typed in a shell, in which "~" at the beginning is the user's home.
[[nodiscard]] QString withHome(const QString& path);

} // namespace jotwell
