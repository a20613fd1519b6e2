#pragma once

#include "Services/Index/FileMetadata.h"

#include <QCoroTask>
#include <QObject>

#include <functional>
#include <memory>
#include <vector>

class QThreadPool;

namespace jotwell {

/// Reads a list of notes in the background and hands their records out in batches, in the order of
/// the list. It reads on while a batch is being taken in. Main thread.
class NoteExtraction {
public:
    static constexpr std::size_t batchSize = 10;
    /// Makes the record of a path, or none; runs on threads of the pool.
    using Extract = std::function<FileMetadataPtr(const QByteArray& path)>;

    /// Starts at once.
    NoteExtraction(std::vector<QByteArray> files, Extract extract, QThreadPool& pool);
    /// What is being read is finished, but nobody waits for it.
    ~NoteExtraction();
    NoteExtraction(const NoteExtraction&) = delete;
    NoteExtraction& operator=(const NoteExtraction&) = delete;

    /// The records of the next batch, in the order in which their reading ended. To be called once
    /// for each batch.
    QCoro::Task<std::vector<FileMetadataPtr>> nextBatch();

private:
    struct Work;
    std::shared_ptr<Work> m_work;
    std::size_t m_nextBatch = 0;
};

} // namespace jotwell
