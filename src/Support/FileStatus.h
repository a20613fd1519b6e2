#pragma once

#include "Support/Result.h"
#include "Support/SystemError.h"

#include <QByteArray>

#include <chrono>

namespace jotwell {

/// What the file system says of an entry. Times are nanoseconds since 1970 UTC; what lies outside
/// of the years that they can tell is the first or the last of them.
struct FileStatus {
    enum class Kind { regular, folder, link, other };

    Kind kind = Kind::other;
    qint64 size = 0;
    qint64 modificationTime = 0;
    qint64 changeTime = 0;
    quint64 inode = 0;
    quint64 device = 0;

    bool operator==(const FileStatus&) const = default;
    [[nodiscard]] std::chrono::system_clock::time_point modificationDate() const;
};

/// Whether a link is looked at itself, or what it leads to.
enum class Links { stay, follow };

// Paths are in the file system's encoding. Blocking; any thread.

[[nodiscard]] Result<FileStatus, SystemError> fileStatus(const QByteArray& path,
                                                         Links links = Links::stay);

/// That of an entry itself, by its name in the folder that is open as `folder`.
[[nodiscard]] Result<FileStatus, SystemError> fileStatusIn(int folder, const char* name);

} // namespace jotwell
