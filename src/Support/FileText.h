#pragma once

#include "Support/Result.h"
#include "Support/SystemError.h"

#include <QByteArray>
#include <QString>

namespace jotwell {

/// The bytes of a regular file, without room to spare. What is no regular file fails with EINVAL (a
/// folder with EISDIR) and never blocks. Any thread.
[[nodiscard]] Result<QByteArray, SystemError> readFile(const QString& path);
/// The same by a path in the file system's encoding.
[[nodiscard]] Result<QByteArray, SystemError> readFile(const QByteArray& path);

/// The text of a UTF-8 file, with its byte order mark if it has one. Bytes that are no UTF-8 fail
/// with EILSEQ. Any thread.
[[nodiscard]] Result<QString, SystemError> readTextFile(const QString& path);

} // namespace jotwell
