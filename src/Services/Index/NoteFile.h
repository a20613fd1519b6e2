#pragma once

#include "Platform/Clock.h"
#include "Services/Index/FileMetadata.h"
#include "Support/Result.h"
#include "Support/SystemError.h"

#include <QByteArray>

namespace jotwell {

class FileReadings;

/// What the file system says of a note: of the entry itself, not of what a link leads to. Times are
/// nanoseconds since 1970 UTC.
struct FileStatus {
    enum class Kind { regular, link, other };

    Kind kind = Kind::other;
    qint64 size = 0;
    qint64 modificationTime = 0;
    qint64 changeTime = 0;
    quint64 inode = 0;
    quint64 device = 0;

    bool operator==(const FileStatus&) const = default;
    [[nodiscard]] Clock::TimePoint modificationDate() const;
};

// Blocking; any thread.

[[nodiscard]] Result<FileStatus, SystemError> fileStatus(const QByteArray& path);

/// The bytes of a note. What is no regular file fails at once, what is no UTF-8 with EILSEQ.
[[nodiscard]] Result<QByteArray, SystemError> readNote(const QByteArray& path);

/// Reads the note and makes its record. A failure is logged and gives none.
[[nodiscard]] FileMetadataPtr extractMetadata(const QByteArray& path, const Clock& clock,
                                              FileReadings& readings);

} // namespace jotwell
