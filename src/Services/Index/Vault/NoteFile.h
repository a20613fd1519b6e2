#pragma once

#include "Services/Index/FileMetadata.h"
#include "Support/FileStatus.h"
#include "Support/Result.h"
#include "Support/SystemError.h"

#include <QByteArray>

namespace jotwell {

class Clock;
class FileReadings;

// Blocking; any thread.

/// The bytes of a note. What is no regular file, nor a link to one, fails without being opened:
/// with EISDIR if it is a folder, with EINVAL else. What is no UTF-8 fails with EILSEQ.
[[nodiscard]] Result<QByteArray, SystemError> readNote(const QByteArray& path);
/// The same when its status has been had already.
[[nodiscard]] Result<QByteArray, SystemError> readNote(const QByteArray& path,
                                                       const FileStatus& status);

/// Reads the note and makes its record. A failure is logged and gives none.
[[nodiscard]] FileMetadataPtr extractMetadata(const QByteArray& path, const Clock& clock,
                                              FileReadings& readings);

} // namespace jotwell
