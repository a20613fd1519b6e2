#pragma once

#include "Services/Index/Search/IndexSearchResult.h"
#include "Support/Database.h"

#include <QByteArray>

namespace jotwell {

struct FileMetadata;

// The statements of the index database. Each gives SQLite's result code, SQLITE_DONE for success,
// and says in the log what is to be said of a failure. On the database's thread.

/// Whether a result code says that the file is damaged or no database at all.
[[nodiscard]] bool isDamage(int result);

/// Saves notes one after another, each for itself. Not to be kept: what else is done with the
/// database meanwhile would make it fail where a new one doesn't.
class ContentWriter {
public:
    explicit ContentWriter(Database& database);

    int save(const FileMetadata& record);

private:
    void bind(const FileMetadata& record, QByteArrayView tags, QByteArrayView hash);

    Database& m_database;
    Statement m_statement;
};

int removeContent(Database& database, const QByteArray& path);

/// Appends what a prepared query finds to `rows`.
int searchContent(Database& database, const QString& ftsQuery, IndexSearchResults& rows);

struct SearchHistoryEntry {
    QByteArray query; ///< UTF-8
    qsizetype resultCount = 0;
    double executionTime = 0; ///< seconds
    Clock::TimePoint timestamp;
};

int insertSearchHistory(Database& database, const SearchHistoryEntry& entry);

} // namespace jotwell
