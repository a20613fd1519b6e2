#pragma once

#include <QString>

#include <chrono>
#include <functional>
#include <optional>

namespace jotwell {

/// One entry below a folder.
struct FolderEntry {
    QString path; ///< the walked folder's path and the entry's way down, joined by slashes
    QString name;
    bool isFolder = false; ///< a real folder, not a link to one
};

/// Calls `visit` for every entry below `folder` whose name, and whose folders' names, don't begin
/// with a dot. Links aren't followed. A folder that can't be read, and names that are no text,
/// are passed over in silence. Blocking; any thread.
void walkFolder(const QString& folder, const std::function<void(const FolderEntry&)>& visit);

/// `name` below `folder`, with one slash between them.
[[nodiscard]] QString pathBelow(const QString& folder, const QString& name);

/// Modification time of the entry itself, not of what a link leads to; none if it can't be had.
[[nodiscard]] std::optional<std::chrono::system_clock::time_point>
modificationTime(const QString& path);

} // namespace jotwell
