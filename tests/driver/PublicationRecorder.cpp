#include "driver/PublicationRecorder.h"

#include "Services/TagIndexService.h"
#include "driver/IndexJson.h"
#include "driver/JsonValues.h"

#include <QJsonObject>

#include <utility>

namespace jotwell {

void PublicationRecorder::listenTo(const TagIndexService& index)
{
    using Index = TagIndexService;
    QObject::connect(&index, &Index::isIndexingChanged, &m_context,
                     [this, &index] { record(QStringLiteral("isIndexing"), index.isIndexing()); });
    QObject::connect(&index, &Index::indexingProgressChanged, &m_context, [this, &index] {
        record(QStringLiteral("indexingProgress"), index.indexingProgress());
    });
    QObject::connect(&index, &Index::indexedFileCountChanged, &m_context, [this, &index] {
        record(QStringLiteral("indexedFileCount"), index.indexedFileCount());
    });
    QObject::connect(&index, &Index::totalFileCountChanged, &m_context, [this, &index] {
        record(QStringLiteral("totalFileCount"), index.totalFileCount());
    });
    QObject::connect(&index, &Index::lastIndexUpdateChanged, &m_context, [this, &index] {
        record(QStringLiteral("lastIndexUpdate"), toJson(index.lastIndexUpdate()));
    });
    QObject::connect(&index, &Index::indexStatusChanged, &m_context, [this, &index] {
        record(QStringLiteral("indexStatus"), toJson(index.indexStatus()));
    });
}

QJsonArray PublicationRecorder::take()
{
    return std::exchange(m_publications, QJsonArray());
}

void PublicationRecorder::record(const QString& property, const QJsonValue& value)
{
    m_publications.append(
        QJsonObject{{QStringLiteral("property"), property}, {QStringLiteral("value"), value}});
}

} // namespace jotwell
