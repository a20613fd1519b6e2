#include "Views/IndexStatusView.h"

#include "Platform/Scheduler.h"

#include <utility>

namespace jotwell {

namespace {

constexpr std::chrono::milliseconds frame{16};

} // namespace

IndexStatusView::IndexStatusView(TagIndexService& tagIndex, Scheduler& scheduler, QObject* parent)
    : QObject(parent), m_tagIndex(tagIndex), m_scheduler(scheduler)
{
    using Service = TagIndexService;
    for (const auto signal : {&Service::isIndexingChanged, &Service::indexingProgressChanged,
                              &Service::indexedFileCountChanged, &Service::totalFileCountChanged})
        connect(&m_tagIndex, signal, this, &IndexStatusView::refreshSoon);
    refresh();
}

QString IndexStatusView::fileCountText(qsizetype indexed, qsizetype total)
{
    return QStringLiteral("%1 of %2 files").arg(indexed).arg(total);
}

void IndexStatusView::refreshSoon()
{
    if (!std::exchange(m_isOutdated, true))
        m_scheduler.after(frame, this, [this] { refresh(); });
}

// The values come before the strip, so that it is right when it appears.
void IndexStatusView::refresh()
{
    m_isOutdated = false;
    const double progress = m_tagIndex.indexingProgress();
    if (std::exchange(m_indexingProgress, progress) != progress)
        emit indexingProgressChanged();
    QString text = fileCountText(m_tagIndex.indexedFileCount(), m_tagIndex.totalFileCount());
    if (std::exchange(m_fileCountText, text) != text)
        emit fileCountTextChanged();
    const bool isIndexing = m_tagIndex.isIndexing();
    if (std::exchange(m_isIndexing, isIndexing) != isIndexing)
        emit isIndexingChanged();
}

} // namespace jotwell
