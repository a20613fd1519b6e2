#pragma once

namespace jotwell {

// The scripts that make the tables. They stand in every user's file as they are here, blanks and
// all, down to the column `tags` of the full-text table that its content table doesn't have.

/// Tables that nothing is ever written to.
extern const char* const basicTablesScript;
/// The notes, their full-text table with its triggers, and the log of searches.
extern const char* const contentTablesScript;

} // namespace jotwell
