#include "Services/Index/Database/IndexSave.h"

#include "Services/Index/Database/DeferredSyncVfs.h"
#include "Services/Index/Database/IndexCompaction.h"
#include "Services/Index/Database/IndexConnection.h"
#include "Services/Index/Database/IndexStatements.h"

#include <QElapsedTimer>

namespace jotwell {

namespace {

// How long a search that comes meanwhile waits: until the first of them is reached.
constexpr int rowsPerSlice = 8;
constexpr qint64 nanosecondsPerSlice = 2'000'000;

} // namespace

void IndexSave::runSlice(IndexConnection& connection)
{
    if (connection.isStopped())
        return;
    connection.prepare();
    if (m_generation != connection.generation())
        start(connection);
    const int result = m_isCompacted ? writeRows(connection) : compactIfNeeded(connection);
    if (isDamage(result) && !connection.mend(result) && m_isCompacted)
        ++m_next;
    if (m_isCompacted && m_next >= rowCount())
        finish(connection);
}

void IndexSave::start(IndexConnection& connection)
{
    m_generation = connection.generation();
    m_next = 0;
    m_isCompacted = false;
    m_restored.clear();
    m_records.clear();
    m_records.reserve(static_cast<std::size_t>(m_notes.size()));
    m_notes.forEach([this](const FileMetadataPtr& record) { m_records.push_back(record.get()); });
}

int IndexSave::compactIfNeeded(IndexConnection& connection)
{
    Database& database = connection.database();
    if (!needsCompaction(database)) {
        m_isCompacted = true;
        return SQLITE_DONE;
    }
    // A search goes first: this takes long.
    if (!connection.beginLongWork())
        return SQLITE_DONE;
    const DeferredSyncVfs::Hold hold(database.handle());
    const int result = dropEntries(database, m_notes, m_restored);
    connection.endLongWork();
    m_isCompacted = true;
    return result;
}

int IndexSave::writeRows(IndexConnection& connection)
{
    const DeferredSyncVfs::Hold hold(connection.database().handle());
    ContentWriter writer(connection.database());
    QElapsedTimer timer;
    timer.start();
    for (int row = 0; row < rowsPerSlice && m_next < rowCount(); ++row) {
        const int result = writeNextRow(connection, writer);
        if (isDamage(result))
            return result;
        ++m_next;
        if (timer.nsecsElapsed() > nanosecondsPerSlice || connection.isWantedElsewhere())
            break;
    }
    return SQLITE_DONE;
}

int IndexSave::writeNextRow(IndexConnection& connection, ContentWriter& writer)
{
    if (m_next < m_records.size())
        return writer.save(*m_records[m_next]);
    return restoreEntry(connection.database(), m_restored[m_next - m_records.size()]);
}

// To free many records takes long, and is best done here.
void IndexSave::finish(IndexConnection& connection)
{
    connection.syncHeldBack();
    m_records = {};
    m_restored = {};
    m_notes = {};
    m_isFinished = true;
}

} // namespace jotwell
