#include "Views/IndexStatusBadge.h"

#include "Support/DateText.h"

#include <utility>

namespace jotwell {

IndexStatusBadge::IndexStatusBadge(TagIndexService& tagIndex, const Clock& clock, QObject* parent)
    : QObject(parent), m_tagIndex(tagIndex), m_clock(clock)
{
    using Service = TagIndexService;
    for (const auto signal : {&Service::isIndexingChanged, &Service::indexingProgressChanged,
                              &Service::indexedFileCountChanged, &Service::totalFileCountChanged,
                              &Service::lastIndexUpdateChanged, &Service::indexStatusChanged})
        connect(&m_tagIndex, signal, this, &IndexStatusBadge::update);
    update();
}

QString IndexStatusBadge::statusColor(IndexStatus::Kind kind)
{
    switch (kind) {
    case IndexStatus::Kind::notStarted:
        return QStringLiteral("gray");
    case IndexStatus::Kind::building:
    case IndexStatus::Kind::updating:
        return QStringLiteral("orange");
    case IndexStatus::Kind::ready:
        return QStringLiteral("green");
    case IndexStatus::Kind::error:
        return QStringLiteral("red");
    }
    Q_UNREACHABLE();
}

QString IndexStatusBadge::statusText(const IndexStatus& status,
                                     std::optional<Clock::TimePoint> lastIndexUpdate,
                                     Clock::TimePoint now)
{
    switch (status.kind) {
    case IndexStatus::Kind::notStarted:
        return QStringLiteral("Index not built");
    case IndexStatus::Kind::building:
        return QStringLiteral("Building index...");
    case IndexStatus::Kind::ready:
        return lastIndexUpdate ? QStringLiteral("Indexed ") + relativeDate(*lastIndexUpdate, now)
                               : QStringLiteral("Index ready");
    case IndexStatus::Kind::updating:
        return QStringLiteral("Updating index...");
    case IndexStatus::Kind::error:
        return QStringLiteral("Error: ") + status.message;
    }
    Q_UNREACHABLE();
}

void IndexStatusBadge::update()
{
    const IndexStatus& status = m_tagIndex.indexStatus();
    QString color = statusColor(status.kind);
    QString text = statusText(status, m_tagIndex.lastIndexUpdate(), m_clock.now());
    if (color == m_statusColor && text == m_statusText)
        return;
    m_statusColor = std::move(color);
    m_statusText = std::move(text);
    emit statusChanged();
}

} // namespace jotwell
