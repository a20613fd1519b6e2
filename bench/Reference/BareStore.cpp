#include "Reference/BareStore.h"

#include <cstdio>
#include <cstdlib>

namespace jotwell::bench {

namespace {

constexpr const char* insertion =
    "INSERT OR REPLACE INTO content_index (path, title, content, content_cleaned, tags_json,"
    " modification_date, file_size, content_hash, word_count, indexed_date)"
    " VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)";

// Those that full-text tables and AUTOINCREMENT bring with them are left out.
constexpr const char* schema =
    "SELECT sql FROM sqlite_master WHERE sql IS NOT NULL AND name NOT LIKE 'sqlite_%'"
    " AND (type <> 'table' OR name NOT LIKE 'content\\_fts\\__%' ESCAPE '\\') ORDER BY rowid";

void check(bool succeeded, sqlite3* database)
{
    if (succeeded)
        return;
    std::fprintf(stderr, "Reference database: %s\n", sqlite3_errmsg(database));
    std::exit(EXIT_FAILURE);
}

sqlite3* opened(const std::string& file, int flags)
{
    sqlite3* database = nullptr;
    check(sqlite3_open_v2(file.c_str(), &database, flags, nullptr) == SQLITE_OK, database);
    return database;
}

void execute(sqlite3* database, const char* sql)
{
    check(sqlite3_exec(database, sql, nullptr, nullptr, nullptr) == SQLITE_OK, database);
}

int executeRow(void* database, int, char** values, char**)
{
    execute(static_cast<sqlite3*>(database), values[0]);
    return 0;
}

void bind(sqlite3_stmt* statement, int place, const QByteArray& text)
{
    sqlite3_bind_text(statement, place, text.constData(), static_cast<int>(text.size()),
                      SQLITE_STATIC);
}

void bindRow(sqlite3_stmt* statement, const BareRow& row)
{
    bind(statement, 1, row.path);
    bind(statement, 2, row.title);
    bind(statement, 3, row.content);
    bind(statement, 4, row.cleanedContent);
    bind(statement, 5, row.tagsJson);
    sqlite3_bind_int64(statement, 6, row.modificationDate);
    sqlite3_bind_int64(statement, 7, row.fileSize);
    bind(statement, 8, row.contentHash);
    sqlite3_bind_int(statement, 9, row.wordCount);
    sqlite3_bind_int64(statement, 10, row.indexedDate);
}

} // namespace

BareStore::BareStore(const std::string& file, const std::string& model)
    : m_database(opened(file, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_FULLMUTEX))
{
    execute(m_database.get(), "PRAGMA synchronous = OFF");
    const std::unique_ptr<sqlite3, Close> tables(opened(model, SQLITE_OPEN_READONLY));
    check(sqlite3_exec(tables.get(), schema, executeRow, m_database.get(), nullptr) == SQLITE_OK,
          tables.get());
}

void BareStore::write(const std::vector<BareRow>& rows)
{
    sqlite3_stmt* statement = nullptr;
    check(sqlite3_prepare_v2(m_database.get(), insertion, -1, &statement, nullptr) == SQLITE_OK,
          m_database.get());
    for (const BareRow& row : rows) {
        bindRow(statement, row);
        check(sqlite3_step(statement) == SQLITE_DONE, m_database.get());
        sqlite3_reset(statement);
    }
    sqlite3_finalize(statement);
}

} // namespace jotwell::bench
