#pragma once

#include "Platform/Clock.h"
#include "Services/TagIndexService.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace jotwell {

/// The state of the index in one line and one colour, worked out whenever the service publishes
/// anything: by itself its date doesn't move on with the clock. Main thread; the service and the
/// clock outlive it.
class IndexStatusBadge : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(IndexStatusBadgeState)
    QML_UNCREATABLE("shows an index")

    Q_PROPERTY(QString statusColor READ statusColor NOTIFY statusChanged)
    Q_PROPERTY(QString statusText READ statusText NOTIFY statusChanged)

public:
    IndexStatusBadge(TagIndexService& tagIndex, const Clock& clock, QObject* parent = nullptr);

    /// The name of a system colour.
    [[nodiscard]] static QString statusColor(IndexStatus::Kind kind);
    [[nodiscard]] static QString statusText(const IndexStatus& status,
                                            std::optional<Clock::TimePoint> lastIndexUpdate,
                                            Clock::TimePoint now);

    [[nodiscard]] const QString& statusColor() const { return m_statusColor; }
    [[nodiscard]] const QString& statusText() const { return m_statusText; }

    /// Works it out anew, for those who have a clock of their own.
    void update();

signals:
    void statusChanged();

private:
    TagIndexService& m_tagIndex;
    const Clock& m_clock;
    QString m_statusColor;
    QString m_statusText;
};

} // namespace jotwell
