#include "Services/Index/Database/IndexCompaction.h"

#include "Services/Index/NoteMap.h"
#include "Support/Database.h"

namespace jotwell {

namespace {

int listOthers(Database& database, const NoteMap& toBeSaved, std::vector<qint64>& others)
{
    Statement rows(database.handle(), "SELECT id, path FROM content_index");
    int result = rows.step();
    for (; result == SQLITE_ROW; result = rows.step()) {
        if (!toBeSaved.find(rows.text(1).toByteArray()))
            others.push_back(rows.integer(0));
    }
    return result;
}

} // namespace

bool needsCompaction(Database& database)
{
    Statement statement(database.handle(), "SELECT (SELECT count(*) FROM content_fts_docsize) "
                                           "> 2 * (SELECT count(*) FROM content_index)");
    return statement.step() == SQLITE_ROW && statement.integer(0) != 0;
}

int dropEntries(Database& database, const NoteMap& toBeSaved, std::vector<qint64>& rowsToRestore)
{
    rowsToRestore.clear();
    int result = listOthers(database, toBeSaved, rowsToRestore);
    if (result == SQLITE_DONE)
        result = Statement(database.handle(),
                           "INSERT INTO content_fts(content_fts) VALUES('delete-all')")
                     .step();
    if (result != SQLITE_DONE)
        rowsToRestore.clear();
    return result;
}

int restoreEntry(Database& database, qint64 row)
{
    Statement statement(database.handle(),
                        "INSERT INTO content_fts(rowid, path, title, content, tags) "
                        "SELECT id, path, title, content_cleaned, tags_json "
                        "FROM content_index WHERE id = ?");
    statement.bindInt64(1, row);
    return statement.step();
}

} // namespace jotwell
