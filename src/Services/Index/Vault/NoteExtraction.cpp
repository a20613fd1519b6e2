#include "Services/Index/Vault/NoteExtraction.h"

#include "Support/Background.h"

#include <QThreadPool>

#include <algorithm>

namespace jotwell {

namespace {

// Enough to keep the readers busy while the main thread draws a frame or two.
constexpr std::size_t batchesAhead = 64;

} // namespace

NoteExtraction::NoteExtraction(std::vector<QByteArray> files, Extract extract, QThreadPool& pool)
    : m_pool(pool), m_order(std::make_shared<Order>())
{
    m_order->files = std::move(files);
    m_order->extract = std::move(extract);
    while (m_ahead.size() < batchesAhead && m_firstUnstarted < m_order->files.size())
        startNextBatch();
}

NoteExtraction::~NoteExtraction()
{
    m_order->isCancelled = true;
    freeInBackground(m_pool, std::move(m_order));
}

QCoro::Task<NoteExtraction::Records> NoteExtraction::nextBatch()
{
    const Batch batch = m_ahead.front();
    m_ahead.pop_front();
    if (m_firstUnstarted < m_order->files.size())
        startNextBatch();
    co_await EndOfWork(batch.reading);
    co_return std::move(*batch.records);
}

void NoteExtraction::startNextBatch()
{
    auto records = std::make_shared<Records>();
    auto work = [order = m_order, records, first = m_firstUnstarted] {
        *records = read(*order, first);
    };
    m_ahead.push_back({records, startInBackground(m_pool, std::move(work))});
    m_firstUnstarted = std::min(m_firstUnstarted + batchSize, m_order->files.size());
}

NoteExtraction::Records NoteExtraction::read(const Order& order, std::size_t first)
{
    Records records;
    const std::size_t end = std::min(first + batchSize, order.files.size());
    for (std::size_t each = first; each < end && !order.isCancelled; ++each) {
        if (FileMetadataPtr record = order.extract(order.files[each]))
            records.push_back(std::move(record));
    }
    return records;
}

} // namespace jotwell
