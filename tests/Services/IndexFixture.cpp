#include "Services/IndexFixture.h"

namespace jotwell {

namespace {

QString wordOf(const IndexStatus& status)
{
    switch (status.kind) {
    case IndexStatus::Kind::notStarted:
        return u"notStarted"_qs;
    case IndexStatus::Kind::building:
        return u"building"_qs;
    case IndexStatus::Kind::ready:
        return u"ready"_qs;
    case IndexStatus::Kind::updating:
        return u"updating"_qs;
    case IndexStatus::Kind::error:
        return u"error: "_qs + status.message;
    }
    return {};
}

} // namespace

void TagIndexServiceTest::record()
{
    const auto note = [this](const QString& property, const QString& value) {
        EXPECT_EQ(QThread::currentThread(), qApp->thread());
        m_publications.append(property + u' ' + value);
    };
    TagIndexService* service = index.get();
    QObject::connect(service, &TagIndexService::isIndexingChanged, [=] {
        note(u"isIndexing"_qs, service->isIndexing() ? u"true"_qs : u"false"_qs);
    });
    QObject::connect(service, &TagIndexService::indexingProgressChanged, [=] {
        note(u"indexingProgress"_qs, QString::number(service->indexingProgress()));
    });
    QObject::connect(service, &TagIndexService::indexedFileCountChanged, [=] {
        note(u"indexedFileCount"_qs, QString::number(service->indexedFileCount()));
    });
    QObject::connect(service, &TagIndexService::totalFileCountChanged, [=] {
        note(u"totalFileCount"_qs, QString::number(service->totalFileCount()));
    });
    QObject::connect(service, &TagIndexService::lastIndexUpdateChanged,
                     [=] { note(u"lastIndexUpdate"_qs, u"now"_qs); });
    QObject::connect(service, &TagIndexService::indexStatusChanged,
                     [=] { note(u"indexStatus"_qs, wordOf(service->indexStatus())); });
}

} // namespace jotwell
