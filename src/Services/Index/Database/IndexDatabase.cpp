#include "Services/Index/Database/IndexDatabase.h"

#include "Platform/Clock.h"
#include "Services/Index/Database/IndexConnection.h"
#include "Services/Index/Database/IndexSave.h"
#include "Services/Index/Database/IndexStatements.h"
#include "Support/Background.h"

#include <QThreadPool>

namespace jotwell {

namespace {

using Connection = std::shared_ptr<IndexConnection>;

// The coroutines may outlive their IndexDatabase: they have nothing of it, and don't touch the
// executor any more once the connection has been stopped.

constexpr int ahead = 1; // of what waits with the usual priority, 0

QCoro::Task<void> perform(Connection connection, QThreadPool& executor,
                          std::function<int(Database&)> statement)
{
    const auto work = [connection, statement = std::move(statement)] {
        connection->perform(statement);
        return true;
    };
    co_await inBackground(executor, work);
}

QCoro::Task<void> saveAll(Connection connection, QThreadPool& executor, NoteMap notes)
{
    const auto save = std::make_shared<IndexSave>(std::move(notes));
    const auto slice = [connection, save] {
        save->runSlice(*connection);
        return true;
    };
    while (!connection->isStopped() && !save->isFinished())
        co_await inBackground(executor, slice);
}

QCoro::Task<IndexSearchResults> search(Connection connection, QThreadPool& executor,
                                       QString ftsQuery)
{
    if (!connection->beginWaiting())
        co_return IndexSearchResults();
    const auto work = [connection, ftsQuery] {
        connection->endWaiting();
        IndexSearchResults rows;
        connection->perform([&](Database& database) {
            rows.clear();
            return searchContent(database, ftsQuery, rows);
        });
        return rows;
    };
    co_return co_await inBackground(executor, work, ahead);
}

} // namespace

IndexDatabase::IndexDatabase(QString file, QThreadPool& executor, const Clock& clock)
    : m_executor(executor), m_clock(clock),
      m_connection(std::make_shared<IndexConnection>(std::move(file)))
{
    const auto open = [connection = m_connection] {
        if (!connection->isStopped())
            connection->prepare();
    };
    static_cast<void>(startInBackground(m_executor, open));
}

IndexDatabase::~IndexDatabase()
{
    m_connection->stop();
    const auto close = [connection = std::move(m_connection)] { connection->close(); };
    static_cast<void>(startInBackground(m_executor, close));
}

bool IndexDatabase::hasHandle() const
{
    return m_connection->hasHandle();
}

QCoro::Task<void> IndexDatabase::saveIndexToDatabase(NoteMap notes)
{
    return saveAll(m_connection, m_executor, std::move(notes));
}

QCoro::Task<void> IndexDatabase::saveContentToDatabase(FileMetadataPtr record)
{
    const auto save = [record = std::move(record)](Database& database) {
        return ContentWriter(database).save(*record);
    };
    return perform(m_connection, m_executor, save);
}

QCoro::Task<void> IndexDatabase::removeFileFromDatabase(QByteArray path)
{
    const auto remove = [path = std::move(path)](Database& database) {
        return removeContent(database, path);
    };
    return perform(m_connection, m_executor, remove);
}

QCoro::Task<IndexSearchResults> IndexDatabase::searchContent(QString ftsQuery)
{
    return search(m_connection, m_executor, std::move(ftsQuery));
}

QCoro::Task<void> IndexDatabase::logSearchHistory(const QString& query, qsizetype resultCount,
                                                  double executionTime)
{
    const SearchHistoryEntry entry{query.toUtf8(), resultCount, executionTime, m_clock.now()};
    const auto insert = [entry](Database& database) {
        return insertSearchHistory(database, entry);
    };
    return perform(m_connection, m_executor, insert);
}

} // namespace jotwell
