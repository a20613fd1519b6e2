#pragma once

#include <QJsonArray>
#include <QJsonValue>
#include <QObject>

namespace jotwell {

class TagIndexService;

/// Notes down what the index publishes, in its order.
class PublicationRecorder {
public:
    void listenTo(const TagIndexService& index);
    /// What was published since the last call.
    [[nodiscard]] QJsonArray take();

private:
    void record(const QString& property, const QJsonValue& value);

    QObject m_context;
    QJsonArray m_publications;
};

} // namespace jotwell
