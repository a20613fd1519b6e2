#include "Services/Index/IndexSave.h"

#include "Services/Index/DeferredSyncVfs.h"
#include "Services/Index/IndexCompaction.h"
#include "Services/Index/IndexConnection.h"
#include "Services/Index/IndexStatements.h"

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
    if (m_generation != connection.generation() && !m_hasStartedOver)
        start(connection);
    const int result = m_isCompacted ? writeRows(connection) : compactIfNeeded(connection);
    if (isDamage(result) && !connection.mend(result) && m_isCompacted)
        ++m_next;
    if (m_isCompacted && m_next == m_records.size())
        finish(connection);
}

void IndexSave::start(IndexConnection& connection)
{
    m_hasStartedOver = m_generation.has_value();
    m_generation = connection.generation();
    m_next = 0;
    m_isCompacted = false;
    m_records.clear();
    m_records.reserve(static_cast<std::size_t>(m_notes.size()));
    m_notes.forEach([this](const FileMetadataPtr& record) { m_records.push_back(record.get()); });
}

int IndexSave::compactIfNeeded(IndexConnection& connection)
{
    const DeferredSyncVfs::Hold hold(connection.database().handle());
    const bool isNeeded = needsCompaction(connection.database());
    const int result = isNeeded ? compact(connection, m_notes) : SQLITE_OK;
    // It makes way for a search and tries again then; any other failure it can do without.
    m_isCompacted = result != SQLITE_INTERRUPT;
    return result;
}

int IndexSave::writeRows(IndexConnection& connection)
{
    const DeferredSyncVfs::Hold hold(connection.database().handle());
    ContentWriter writer(connection.database());
    QElapsedTimer timer;
    timer.start();
    for (int row = 0; row < rowsPerSlice && m_next < m_records.size(); ++row) {
        const int result = writer.save(*m_records[m_next]);
        if (isDamage(result))
            return result;
        ++m_next;
        if (timer.nsecsElapsed() > nanosecondsPerSlice || connection.isWantedElsewhere())
            break;
    }
    return SQLITE_DONE;
}

// To free many records takes long, and is best done here.
void IndexSave::finish(IndexConnection& connection)
{
    connection.syncHeldBack();
    m_records = {};
    m_notes = {};
    m_isFinished = true;
}

} // namespace jotwell
