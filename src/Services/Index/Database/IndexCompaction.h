#pragma once

#include <QtGlobal>

#include <vector>

namespace jotwell {

class Database;
class NoteMap;

// The full-text table keeps the entries of rows that have been replaced. They are never found, but
// each start of the program adds one for each note. It can only be emptied as a whole, and is then
// filled again: with the saving of all notes, and here for rows that have none any more. What ends
// in between leaves these rows without entries until the next time. On the database's thread; the
// functions give SQLite's result code, SQLITE_DONE for success.

/// Whether entries without a row outnumber the rows.
[[nodiscard]] bool needsCompaction(Database& database);

/// Takes all entries out, or none on a failure, and lists the rows whose notes aren't in
/// `toBeSaved`. Takes long.
int dropEntries(Database& database, const NoteMap& toBeSaved, std::vector<qint64>& rowsToRestore);

/// Puts the entry of a row back, if that row is still there.
int restoreEntry(Database& database, qint64 row);

} // namespace jotwell
