#pragma once

#include "Services/Index/FileMetadata.h"

#include <QCoroTask>

#include <QFuture>

#include <atomic>
#include <deque>
#include <functional>
#include <memory>
#include <vector>

class QThreadPool;

namespace jotwell {

/// Reads a list of notes in the background and hands their records out in batches, in the order of
/// the list. It reads ahead while a batch is being taken in. Main thread.
class NoteExtraction {
public:
    static constexpr std::size_t batchSize = 10;

    using Records = std::vector<FileMetadataPtr>;
    /// Makes the record of a path, or none. Runs on threads of the pool.
    using Extract = std::function<FileMetadataPtr(const QByteArray& path)>;

    /// Starts at once.
    NoteExtraction(std::vector<QByteArray> files, Extract extract, QThreadPool& pool);
    /// What hasn't been read by then stays unread.
    ~NoteExtraction();
    NoteExtraction(const NoteExtraction&) = delete;
    NoteExtraction& operator=(const NoteExtraction&) = delete;

    /// The records of the next batch, in the order in which their reading ended; a file that gave
    /// none is left out. To be awaited before the next call, and once for each batch.
    QCoro::Task<Records> nextBatch();

private:
    struct Order {
        std::vector<QByteArray> files;
        Extract extract;
        std::atomic<bool> isCancelled = false;
    };
    struct Batch {
        std::shared_ptr<Records> records;
        QFuture<void> reading;
    };

    void startNextBatch();
    static Records read(const Order& order, std::size_t first);

    QThreadPool& m_pool;
    std::shared_ptr<Order> m_order;
    std::deque<Batch> m_ahead;
    std::size_t m_firstUnstarted = 0;
};

} // namespace jotwell
