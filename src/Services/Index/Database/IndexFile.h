#pragma once

#include <QString>

namespace jotwell {

// The database's file as a file: who may read it, and where a damaged one goes. Blocking; any
// thread. Nothing may have the file open.

/// Makes the folder of `file`, and the file, empty; other users can read neither. A file that is
/// there is closed to them too, its folder stays as it is. Failures show when the file is opened.
void prepareIndexFile(const QString& file);

/// Renames a damaged file, and what SQLite has put beside it, to a name of its own.
[[nodiscard]] bool setAsideIndexFile(const QString& file);

} // namespace jotwell
