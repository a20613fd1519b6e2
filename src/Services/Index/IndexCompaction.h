#pragma once

namespace jotwell {

class Database;
class IndexConnection;
class NoteMap;

// The full-text table keeps the entries of rows that have been replaced; they are never found, but
// each start of the program adds one for each note. On the database's thread.

/// Whether entries without a row outnumber the rows.
[[nodiscard]] bool needsCompaction(Database& database);

/// Takes all entries out and puts back those of the rows whose notes aren't in `toBeSaved`: the
/// others get theirs when they are saved, which is to follow. Whole or not at all: gives SQLITE_OK,
/// or why nothing has changed, such as SQLITE_INTERRUPT if the connection is wanted elsewhere.
int compact(IndexConnection& connection, const NoteMap& toBeSaved);

} // namespace jotwell
