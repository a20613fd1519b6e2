#pragma once

#include <sqlite3.h>

#include <QByteArray>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace jotwell::bench {

/// A note as a row of the database, in the order of its columns.
struct BareRow {
    QByteArray path;
    QByteArray title;
    QByteArray content;
    QByteArray cleanedContent;
    QByteArray tagsJson;
    std::int64_t modificationDate = 0;
    std::int64_t fileSize = 0;
    QByteArray contentHash;
    int wordCount = 0;
    std::int64_t indexedDate = 0;
};

/// Writes rows with one statement, each committed by itself and none of them synced: what the same
/// rows in the same tables can't cost less than.
class BareStore {
public:
    /// A new database in `file`, with the tables and triggers of the one in `model`.
    BareStore(const std::string& file, const std::string& model);

    void write(const std::vector<BareRow>& rows);

private:
    struct Close {
        void operator()(sqlite3* database) const { sqlite3_close(database); }
    };
    std::unique_ptr<sqlite3, Close> m_database;
};

} // namespace jotwell::bench
