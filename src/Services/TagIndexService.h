#pragma once

#include "Platform/Clock.h"
#include "Services/Index/Database/IndexDatabase.h"
#include "Services/Index/IndexStatus.h"
#include "Services/Index/NoteIndex.h"
#include "Services/Index/Search/IndexSearch.h"
#include "Services/Index/Vault/FileReadings.h"
#include "Services/Index/Vault/VaultMonitor.h"
#include "Services/Index/Vault/VaultScan.h"

#include <QCoroTask>

#include <QObject>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace jotwell {

struct Platform;

/// The index of the vault: every note's name, tags and text in memory, kept fresh, searched, and
/// written to a database beside it. State is touched on the main thread only; files are read on
/// other threads and their contents taken in here. No operation fails: it logs and finds less.
class TagIndexService : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool isIndexing READ isIndexing NOTIFY isIndexingChanged)
    Q_PROPERTY(double indexingProgress READ indexingProgress NOTIFY indexingProgressChanged)
    Q_PROPERTY(qsizetype indexedFileCount READ indexedFileCount NOTIFY indexedFileCountChanged)
    Q_PROPERTY(qsizetype totalFileCount READ totalFileCount NOTIFY totalFileCountChanged)

public:
    explicit TagIndexService(const Platform& platform);
    ~TagIndexService() override;
    [[nodiscard]] static TagIndexService& shared();

    [[nodiscard]] bool isIndexing() const { return m_isIndexing; }
    /// 0 to 1.
    [[nodiscard]] double indexingProgress() const { return m_indexingProgress; }
    [[nodiscard]] qsizetype indexedFileCount() const { return m_indexedFileCount; }
    [[nodiscard]] qsizetype totalFileCount() const { return m_totalFileCount; }
    [[nodiscard]] std::optional<Clock::TimePoint> lastIndexUpdate() const
    {
        return m_lastIndexUpdate;
    }
    [[nodiscard]] const IndexStatus& indexStatus() const { return m_indexStatus; }

    /// Builds the index of a vault anew, and watches the vault from then on. A second request for
    /// the vault being built comes back at once.
    QCoro::Task<void> buildIndex(QString vaultPath);
    /// Brings the index up to date with the watched vault, if there is one.
    QCoro::Task<void> refreshIndex();
    /// Compares the index with the files of a vault and takes over what has changed. Unless it is
    /// to `checkContent`, notes of the same size and date count as unchanged.
    QCoro::Task<void> scanForChanges(QString vaultPath, bool checkContent);
    /// Reads one note, without taking it in; none if it can't be read.
    QCoro::Task<FileMetadataPtr> extractMetadata(QString path);
    /// Takes one note in anew; if it can't be read its record stays.
    QCoro::Task<void> updateFile(QString path);
    QCoro::Task<void> removeFile(QString path);
    /// Forgets all notes; the database and the watch stay as they are.
    void clearIndex();
    /// Ends all work at its next waiting point, for good. To be called before the program stops.
    void stop();

    // The first `limit` of all that there are; see `NoteIndex`.
    [[nodiscard]] QList<TagCount> getAllTagsWithCounts(qsizetype limit = NoteIndex::noLimit) const;
    [[nodiscard]] QList<TagCount> searchTags(const QString& prefix,
                                             qsizetype limit = NoteIndex::noLimit) const;

    /// By file name and tag. There is one vault: its path isn't looked at.
    QCoro::Task<SearchAnswer> searchNotes(QString query, const QString& vaultPath);
    /// By text.
    QCoro::Task<SearchAnswer> searchContent(QString query, const QString& vaultPath);

    [[nodiscard]] const NoteIndex& index() const { return m_index; }
    [[nodiscard]] const IndexDatabase& database() const { return m_database; }
    [[nodiscard]] const VaultMonitor& monitor() const { return m_monitor; }
    [[nodiscard]] IndexSearch& search() { return m_search; }

signals:
    // Each at every assignment, also of an equal value.
    void isIndexingChanged();
    void indexingProgressChanged();
    void indexedFileCountChanged();
    void totalFileCountChanged();
    void lastIndexUpdateChanged();
    void indexStatusChanged();

private:
    QCoro::Task<void> performIndexBuild(QString vaultPath);
    QCoro::Task<void> takeInNotes(std::vector<QByteArray> files);
    struct Scan;
    void failBuild(const QString& reason);
    void finishBuild(const QString& vaultPath, qsizetype count, double seconds);
    QCoro::Task<qsizetype> applyChanges(const Scan* scan);
    QCoro::Task<qsizetype> applyRemovals(const Scan* scan);
    void startScan(const QString& vaultPath);
    QCoro::Task<void> runWaitingScans();

    void publishIsIndexing(bool isIndexing);
    void publishIndexStatus(IndexStatus status);
    void publishIndexingProgress(double progress);
    void publishIndexedFileCount(qsizetype count);
    void publishTotalFileCount(qsizetype count);
    void publishLastIndexUpdate();

    const Platform& m_platform;
    bool m_isIndexing = false;
    double m_indexingProgress = 0;
    qsizetype m_indexedFileCount = 0;
    qsizetype m_totalFileCount = 0;
    std::optional<Clock::TimePoint> m_lastIndexUpdate;
    IndexStatus m_indexStatus;
    bool m_isStopping = false;

    std::shared_ptr<FileReadings> m_readings; ///< shared with the work in the background
    NoteIndex m_index;
    IndexDatabase m_database;
    IndexSearch m_search;
    VaultMonitor m_monitor;
    quint64 m_scanCount = 0;
    QStringList m_waitingScans; ///< vaults that the monitor wants scanned
    bool m_isScanning = false;  ///< for the monitor
};

} // namespace jotwell
