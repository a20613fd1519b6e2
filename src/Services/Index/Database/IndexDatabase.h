#pragma once

#include "Services/Index/FileMetadata.h"
#include "Services/Index/NoteMap.h"
#include "Services/Index/Search/IndexSearchResult.h"

#include <QCoroTask>

#include <QString>

#include <memory>

class QThreadPool;

namespace jotwell {

class Clock;
class IndexConnection;

/// The database file beside the maps: the text of every note with a full-text table, and a log of
/// content searches. Derived data: nothing is read back from it, and no failure of it is anybody's
/// but the log's. Statements run one after another on `executor`, which has one thread; every
/// operation is to be called on the main thread and comes back there.
class IndexDatabase {
public:
    /// Opens `file` and makes its folder and tables, on the executor: the first operation finds
    /// them done. A damaged file is set aside under another name and made anew.
    IndexDatabase(QString file, QThreadPool& executor, const Clock& clock);
    /// Closes it, on the executor, once what runs has ended; what waits is dropped, so that whoever
    /// awaits it finds nothing.
    ~IndexDatabase();
    IndexDatabase(const IndexDatabase&) = delete;
    IndexDatabase& operator=(const IndexDatabase&) = delete;

    /// Whether there is a handle, of an open database or of one that couldn't be opened.
    [[nodiscard]] bool hasHandle() const;

    /// Writes every record, each for itself, but syncs only once. Others may write in between.
    QCoro::Task<void> saveIndexToDatabase(NoteMap notes);
    QCoro::Task<void> saveContentToDatabase(FileMetadataPtr record);
    QCoro::Task<void> removeFileFromDatabase(QByteArray path);

    /// The rows that the full-text table finds for a prepared query, best first, 50 at most. None
    /// as well when it can't be read, is just being cleaned up or the query is no query.
    QCoro::Task<IndexSearchResults> searchContent(QString ftsQuery);
    QCoro::Task<void> logSearchHistory(const QString& query, qsizetype resultCount,
                                       double executionTime);

private:
    QThreadPool& m_executor;
    const Clock& m_clock;
    std::shared_ptr<IndexConnection> m_connection;
};

} // namespace jotwell
