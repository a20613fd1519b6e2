#include "Services/Index/IndexCompaction.h"

#include "Services/Index/IndexConnection.h"
#include "Services/Index/NoteMap.h"

#include <vector>

namespace jotwell {

namespace {

// How many instructions of its machine SQLite does before it asks whether to go on: some tens of
// microseconds' worth.
constexpr int askEvery = 1000;

int stopIfWanted(void* connection)
{
    return static_cast<const IndexConnection*>(connection)->isWantedElsewhere() ? 1 : 0;
}

class Interruptible {
public:
    explicit Interruptible(IndexConnection& connection) : m_handle(connection.database().handle())
    {
        sqlite3_progress_handler(m_handle, askEvery, stopIfWanted, &connection);
    }
    ~Interruptible() { sqlite3_progress_handler(m_handle, 0, nullptr, nullptr); }
    Interruptible(const Interruptible&) = delete;
    Interruptible& operator=(const Interruptible&) = delete;

private:
    sqlite3* m_handle;
};

int findKept(Database& database, const NoteMap& toBeSaved, std::vector<qint64>& kept)
{
    Statement rows(database.handle(), "SELECT id, path FROM content_index");
    int result = rows.step();
    for (; result == SQLITE_ROW; result = rows.step()) {
        if (!toBeSaved.find(rows.text(1).toByteArray()))
            kept.push_back(rows.integer(0));
    }
    return result;
}

int restoreEntries(Database& database, const std::vector<qint64>& rows)
{
    Statement restore(database.handle(),
                      "INSERT INTO content_fts(rowid, path, title, content, tags) "
                      "SELECT id, path, title, content_cleaned, tags_json "
                      "FROM content_index WHERE id = ?");
    int result = SQLITE_DONE;
    for (const qint64 row : rows) {
        restore.bindInt64(1, row);
        result = restore.step();
        restore.reset();
        if (result != SQLITE_DONE)
            break;
    }
    return result;
}

int replaceEntries(IndexConnection& connection, const NoteMap& toBeSaved)
{
    const Interruptible interruptible(connection);
    Database& database = connection.database();
    std::vector<qint64> kept;
    const int found = findKept(database, toBeSaved, kept);
    if (found != SQLITE_DONE)
        return found;
    const int emptied =
        database.execute("INSERT INTO content_fts(content_fts) VALUES('delete-all')");
    return emptied == SQLITE_OK ? restoreEntries(database, kept) : emptied;
}

} // namespace

bool needsCompaction(Database& database)
{
    Statement statement(database.handle(), "SELECT (SELECT count(*) FROM content_fts_docsize) "
                                           "> 2 * (SELECT count(*) FROM content_index)");
    return statement.step() == SQLITE_ROW && statement.integer(0) != 0;
}

int compact(IndexConnection& connection, const NoteMap& toBeSaved)
{
    Database& database = connection.database();
    int result = database.execute("BEGIN IMMEDIATE");
    if (result != SQLITE_OK)
        return result;
    result = replaceEntries(connection, toBeSaved);
    if (result == SQLITE_DONE)
        result = database.execute("COMMIT");
    // After some failures SQLite has done that already.
    if (result != SQLITE_OK)
        database.execute("ROLLBACK");
    return result;
}

} // namespace jotwell
