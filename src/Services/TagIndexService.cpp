#include "Services/TagIndexService.h"

#include "Platform/Clock.h"
#include "Platform/Platform.h"
#include "Services/Index/Vault/NoteExtraction.h"
#include "Services/Index/Vault/NoteFile.h"
#include "Services/Index/Vault/VaultListing.h"
#include "Support/Background.h"
#include "Support/Logging.h"
#include "Support/Sleep.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QThreadPool>

#include <utility>

namespace jotwell {

namespace {

/// Work on the main thread that makes way for its events every now and then.
class Stretch {
public:
    Stretch() { m_timer.start(); }

    QCoro::Task<void> pauseIfLong()
    {
        // What the user does must never wait longer.
        constexpr qint64 longest = 2; // milliseconds
        if (!m_timer.hasExpired(longest))
            co_return;
        co_await nextTurn();
        m_timer.start();
    }

private:
    QElapsedTimer m_timer;
};

const QString logCategory = QStringLiteral("TagIndex");

void logChange(NoteChange::Kind kind, const QByteArray& path)
{
    const QString name = QString::fromUtf8(fileNameOf(path));
    switch (kind) {
    case NoteChange::Kind::isNew:
        return logInfo(logCategory, QStringLiteral("New file detected: ") + name);
    case NoteChange::Kind::dateChanged:
        return logInfo(logCategory, QStringLiteral("File modified (date changed): ") + name);
    case NoteChange::Kind::sizeChanged:
        return logInfo(logCategory, QStringLiteral("File modified (size changed): ") + name);
    case NoteChange::Kind::contentChanged:
        return logInfo(logCategory, QStringLiteral("File modified (content changed): ") + name);
    }
}

} // namespace

struct TagIndexService::Scan {
    NoteMap before; ///< the notes as they were when it began
    std::optional<ScanFindings> findings;
};

TagIndexService::TagIndexService(const Platform& platform)
    : m_platform(platform),
      m_readings(std::make_shared<FileReadings>(platform.clock, platform.fileSystems)),
      m_database(platform.applicationSupport + QStringLiteral("/TagIndex.db"), platform.database,
                 platform.clock),
      m_search(m_index, m_database, platform.clock, platform.background),
      m_monitor(platform.folders, platform.scheduler,
                [this](const QString& vaultPath) { startScan(vaultPath); })
{
}

TagIndexService::~TagIndexService() = default;

QCoro::Task<void> TagIndexService::buildIndex(QString vaultPath)
{
    if (m_isIndexing && m_monitor.monitoredPath() == vaultPath) {
        logInfo(logCategory,
                QStringLiteral("Already indexing vault at %1, skipping duplicate request")
                    .arg(vaultPath));
        co_return;
    }
    co_await performIndexBuild(vaultPath);
}

QCoro::Task<void> TagIndexService::performIndexBuild(QString vaultPath)
{
    const QPointer self(this);
    publishIsIndexing(true);
    publishIndexStatus({IndexStatus::Kind::building, {}});
    publishIndexingProgress(0);
    QElapsedTimer elapsed;
    elapsed.start();
    clearIndex();

    auto list = [vaultPath] { return findMarkdownFiles(vaultPath); };
    auto files = co_await inBackground(m_platform.bulk, std::move(list));
    if (!self || m_isStopping)
        co_return;
    if (!files) {
        failBuild(listingFailure());
        co_return;
    }
    const auto count = static_cast<qsizetype>(files->size());
    publishTotalFileCount(count);
    co_await takeInNotes(std::move(files.value()));
    if (!self || m_isStopping)
        co_return;
    co_await m_database.saveIndexToDatabase(m_index.notes());
    if (!self || m_isStopping)
        co_return;
    finishBuild(vaultPath, count, static_cast<double>(elapsed.elapsed()) / 1000);
}

void TagIndexService::failBuild(const QString& reason)
{
    logError(logCategory, QStringLiteral("Failed to build index: ") + reason);
    publishIsIndexing(false);
    publishIndexStatus({IndexStatus::Kind::error, reason});
}

void TagIndexService::finishBuild(const QString& vaultPath, qsizetype count, double seconds)
{
    m_monitor.startFileMonitoring(vaultPath);
    logInfo(logCategory, QStringLiteral("Index built successfully: %1 files in %2s")
                             .arg(QString::number(count), QString::number(seconds, 'f', 2)));
    publishIsIndexing(false);
    publishIndexStatus({IndexStatus::Kind::ready, {}});
    publishLastIndexUpdate();
}

QCoro::Task<void> TagIndexService::takeInNotes(std::vector<QByteArray> files)
{
    const QPointer self(this);
    const auto total = static_cast<qsizetype>(files.size());
    const NoteExtraction::Extract extract = [&clock = m_platform.clock,
                                             readings = m_readings](const QByteArray& path) {
        return jotwell::extractMetadata(path, clock, *readings);
    };
    NoteExtraction extraction(std::move(files), extract, m_platform.bulk);
    Stretch stretch;
    for (qsizetype done = 0; done < total;) {
        const NoteExtraction::Records records = co_await extraction.nextBatch();
        co_await stretch.pauseIfLong();
        if (!self || m_isStopping)
            co_return;
        for (const FileMetadataPtr& record : records)
            m_index.add(record);
        done = std::min(done + static_cast<qsizetype>(NoteExtraction::batchSize), total);
        publishIndexedFileCount(done);
        publishIndexingProgress(static_cast<double>(done) / static_cast<double>(total));
    }
}

QCoro::Task<void> TagIndexService::refreshIndex()
{
    const auto vaultPath = m_monitor.monitoredPath();
    if (!vaultPath)
        co_return;
    logInfo(logCategory, QStringLiteral("Manual index refresh requested"));
    co_await scanForChanges(*vaultPath, true);
}

QCoro::Task<void> TagIndexService::scanForChanges(QString vaultPath, bool checkContent)
{
    const QPointer self(this);
    // It may be the last to hold the notes of an old vault.
    const EndsInBackground<Scan> scan(m_platform.bulk);
    scan->before = m_index.notes();
    auto compare = [scan = scan.value(), vaultPath, checkContent, readings = m_readings,
                    slice = m_scanCount++] {
        scan->findings = compareVault(vaultPath, checkContent, scan->before, *readings, slice);
        return scan->findings.has_value();
    };
    const bool isListed = co_await inBackground(m_platform.bulk, std::move(compare));
    if (!self || m_isStopping || !isListed)
        co_return;
    const qsizetype changed = co_await applyChanges(&*scan);
    if (!self || m_isStopping)
        co_return;
    const qsizetype removed = co_await applyRemovals(&*scan);
    if (!self || m_isStopping || changed + removed == 0)
        co_return;
    logInfo(logCategory, QStringLiteral("Index updated: %1 file(s) changed")
                             .arg(QString::number(changed + removed)));
    publishLastIndexUpdate();
}

// Both give the number of notes dealt with. What another operation has taken in or out since the
// scan began is at least as fresh as what it found. `scan` must outlive them.

QCoro::Task<qsizetype> TagIndexService::applyChanges(const Scan* scan)
{
    const QPointer self(this);
    qsizetype count = 0;
    Stretch stretch;
    for (const NoteChange& change : scan->findings->changes) {
        co_await stretch.pauseIfLong();
        if (!self || m_isStopping)
            co_return count;
        const FileMetadata* record = m_index.notes().find(change.path);
        if (record && record != scan->before.find(change.path))
            continue;
        logChange(record ? change.kind : NoteChange::Kind::isNew, change.path);
        co_await updateFile(QString::fromUtf8(change.path));
        ++count;
    }
    co_return count;
}

QCoro::Task<qsizetype> TagIndexService::applyRemovals(const Scan* scan)
{
    const QPointer self(this);
    qsizetype count = 0;
    Stretch stretch;
    for (const QByteArray& path : scan->findings->missing) {
        co_await stretch.pauseIfLong();
        if (!self || m_isStopping)
            co_return count;
        const FileMetadata* record = m_index.notes().find(path);
        if (!record || record != scan->before.find(path))
            continue;
        logInfo(logCategory,
                QStringLiteral("File removed or renamed: ") + QString::fromUtf8(fileNameOf(path)));
        co_await removeFile(QString::fromUtf8(path));
        ++count;
    }
    co_return count;
}

QCoro::Task<FileMetadataPtr> TagIndexService::extractMetadata(QString path)
{
    auto extract = [path = path.toUtf8(), &clock = m_platform.clock, readings = m_readings] {
        return jotwell::extractMetadata(path, clock, *readings);
    };
    co_return co_await inBackground(m_platform.bulk, std::move(extract));
}

QCoro::Task<void> TagIndexService::updateFile(QString path)
{
    const QPointer self(this);
    const FileMetadataPtr record = co_await extractMetadata(path);
    if (!self || m_isStopping || !record)
        co_return;
    publishIndexStatus({IndexStatus::Kind::updating, {}});
    m_index.add(record);
    co_await m_database.saveContentToDatabase(record);
    if (!self)
        co_return;
    m_search.clearCache();
    publishIndexStatus({IndexStatus::Kind::ready, {}});
    publishLastIndexUpdate();
}

QCoro::Task<void> TagIndexService::removeFile(QString path)
{
    const QPointer self(this);
    const QByteArray key = path.toUtf8();
    m_index.remove(key);
    m_readings->forget(key);
    co_await m_database.removeFileFromDatabase(key);
    if (!self)
        co_return;
    m_search.clearCache();
    publishLastIndexUpdate();
}

void TagIndexService::clearIndex()
{
    freeInBackground(m_platform.bulk, std::make_shared<NoteIndex::Contents>(m_index.takeAll()));
    m_readings->clear();
    m_search.clearCache();
    publishIndexedFileCount(0);
    publishTotalFileCount(0);
}

void TagIndexService::stop()
{
    m_isStopping = true;
    m_monitor.stopFileMonitoring();
}

// One at a time, and one waiting for each vault: it will see all that the others were to see.
void TagIndexService::startScan(const QString& vaultPath)
{
    if (!m_waitingScans.contains(vaultPath))
        m_waitingScans.append(vaultPath);
    if (!m_isScanning)
        QCoro::connect(runWaitingScans(), this, [] {});
}

QCoro::Task<void> TagIndexService::runWaitingScans()
{
    const QPointer self(this);
    m_isScanning = true;
    while (!m_waitingScans.isEmpty()) {
        const QString vaultPath = m_waitingScans.takeFirst();
        co_await scanForChanges(vaultPath, true);
        if (!self || m_isStopping)
            co_return;
    }
    m_isScanning = false;
}

QList<TagCount> TagIndexService::getAllTagsWithCounts(qsizetype limit) const
{
    return m_index.getAllTagsWithCounts(limit);
}

QList<TagCount> TagIndexService::searchTags(const QString& prefix, qsizetype limit) const
{
    return m_index.searchTags(prefix, limit);
}

QCoro::Task<SearchAnswer> TagIndexService::searchNotes(QString query, const QString& /*vaultPath*/)
{
    return m_search.searchNotes(std::move(query));
}

QCoro::Task<SearchAnswer> TagIndexService::searchContent(QString query,
                                                         const QString& /*vaultPath*/)
{
    return m_search.searchContent(std::move(query));
}

void TagIndexService::publishIsIndexing(bool isIndexing)
{
    m_isIndexing = isIndexing;
    emit isIndexingChanged();
}

void TagIndexService::publishIndexStatus(IndexStatus status)
{
    m_indexStatus = std::move(status);
    emit indexStatusChanged();
}

void TagIndexService::publishIndexingProgress(double progress)
{
    m_indexingProgress = progress;
    emit indexingProgressChanged();
}

void TagIndexService::publishIndexedFileCount(qsizetype count)
{
    m_indexedFileCount = count;
    emit indexedFileCountChanged();
}

void TagIndexService::publishTotalFileCount(qsizetype count)
{
    m_totalFileCount = count;
    emit totalFileCountChanged();
}

void TagIndexService::publishLastIndexUpdate()
{
    m_lastIndexUpdate = m_platform.clock.now();
    emit lastIndexUpdateChanged();
}

} // namespace jotwell
