#pragma once

struct sqlite3;

namespace jotwell {

/// SQLite's usual file access under a name of its own, that can hold back the syncs of a database
/// opened through it: many small commits in a row then cost one sync in the end. Each database goes
/// for itself. A database that is closed without `syncHeldBack` is left to the operating system.
class DeferredSyncVfs {
public:
    /// The name to open a database with. Any thread.
    [[nodiscard]] static const char* name();

    /// While one lives, neither the file nor the journals of `database` are synced; what SQLite
    /// asks for is noted. Does nothing for a database that isn't open.
    class Hold {
    public:
        explicit Hold(sqlite3* database);
        ~Hold();
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

    private:
        sqlite3* m_database;
    };

    /// Syncs the file and its folder if that was held back; not to be called in a transaction.
    /// Gives SQLite's result code.
    [[nodiscard]] static int syncHeldBack(sqlite3* database);
};

} // namespace jotwell
