#include "driver/Operations.h"

#include "Services/Index/Search/SearchSnippet.h"
#include "Services/Index/Vault/VaultListing.h"
#include "Services/TagIndexService.h"
#include "driver/IndexJson.h"
#include "driver/Session.h"

namespace jotwell {

namespace {

QJsonValue stateOf(const TagIndexService& index)
{
    const VaultMonitor& monitor = index.monitor();
    return QJsonObject{
        {QStringLiteral("isIndexing"), index.isIndexing()},
        {QStringLiteral("indexingProgress"), index.indexingProgress()},
        {QStringLiteral("indexedFileCount"), index.indexedFileCount()},
        {QStringLiteral("totalFileCount"), index.totalFileCount()},
        {QStringLiteral("lastIndexUpdate"), toJson(index.lastIndexUpdate())},
        {QStringLiteral("indexStatus"), toJson(index.indexStatus())},
        {QStringLiteral("monitoredPath"), toJson(monitor.monitoredPath())},
        {QStringLiteral("hasFileMonitor"), monitor.hasFileMonitor()},
        {QStringLiteral("hasPeriodicScanTimer"), monitor.hasPeriodicScanTimer()},
        {QStringLiteral("hasDatabase"), index.database().hasHandle()},
    };
}

Answer listingOf(const QString& vaultPath)
{
    const auto listed = findMarkdownFiles(vaultPath);
    if (!listed)
        return Failure{QStringLiteral("system"), listingFailure()};
    QStringList paths;
    for (const QByteArray& each : *listed)
        paths.append(textOf(each));
    return toJson(paths);
}

void addBuildOps(Operations& ops, Session& session)
{
    ops.add(u"TagIndexService.findMarkdownFiles", {u"vaultPath"},
            [](const QString& vaultPath) { return listingOf(vaultPath); });
    ops.add(u"TagIndexService.extractMetadata", {u"path"},
            [&session](const QString& path) { return session.index().extractMetadata(path); });
    ops.add(u"TagIndexService.buildIndex", {u"vaultPath"},
            [&session](const QString& vaultPath) { return session.index().buildIndex(vaultPath); });
    ops.add(u"TagIndexService.startBuild", {u"vaultPath"}, [&session](const QString& vaultPath) {
        TagIndexService& index = session.index();
        QCoro::connect(index.buildIndex(vaultPath), &index, [] {});
    });
    ops.add(u"TagIndexService.refreshIndex", {},
            [&session] { return session.index().refreshIndex(); });
    ops.add(u"TagIndexService.scanForChanges", {u"vaultPath", u"checkContent"},
            [&session](const QString& vaultPath, bool checkContent) {
                return session.index().scanForChanges(vaultPath, checkContent);
            });
    ops.add(u"TagIndexService.updateFile", {u"path"},
            [&session](const QString& path) { return session.index().updateFile(path); });
    ops.add(u"TagIndexService.removeFile", {u"path"},
            [&session](const QString& path) { return session.index().removeFile(path); });
    ops.add(u"TagIndexService.clearIndex", {}, [&session] { session.index().clearIndex(); });
}

void addStateOps(Operations& ops, Session& session)
{
    ops.add(u"TagIndexService.metadata", {u"path"}, [&session](const QString& path) {
        return toJson(session.index().index().notes().find(path.toUtf8()));
    });
    ops.add(u"TagIndexService.maps", {}, [&session] { return toJson(session.index().index()); });
    ops.add(u"TagIndexService.cache", {}, [&session] {
        return toJson(session.index().search().cache(), session.platform().clock().now());
    });
    ops.add(u"TagIndexService.state", {}, [&session] { return stateOf(session.index()); });
    ops.add(u"TagIndexService.takePublications", {},
            [&session]() -> QJsonValue { return session.takePublications(); });
    ops.add(u"TagIndexService.getAllTagsWithCounts", {},
            [&session] { return session.index().getAllTagsWithCounts(); });
    ops.add(u"TagIndexService.searchTags", {u"prefix"},
            [&session](const QString& prefix) { return session.index().searchTags(prefix); });
}

void addSearchOps(Operations& ops, Session& session)
{
    using VaultPath = std::optional<QString>;
    ops.add(u"TagIndexService.parseSearchQuery", {u"query"},
            [](const QString& query) { return parseSearchQuery(query); });
    ops.add(u"TagIndexService.prepareFTSQuery", {u"query"},
            [](const QString& query) { return prepareFTSQuery(query); });
    ops.add(u"TagIndexService.createSimpleSnippet", {u"text", u"query"},
            [](const QString& text, const QString& query) {
                return createSimpleSnippet(text.toUtf8(), query);
            });
    ops.add(u"TagIndexService.searchNotes", {u"query", u"vaultPath"},
            [&session](const QString& query, const VaultPath& vaultPath) {
                return session.index().searchNotes(query, vaultPath.value_or(QString()));
            });
    ops.add(u"TagIndexService.searchContent", {u"query", u"vaultPath"},
            [&session](const QString& query, const VaultPath& vaultPath) {
                return session.index().searchContent(query, vaultPath.value_or(QString()));
            });
    ops.add(u"TagIndexService.performInMemoryContentSearch", {u"query"},
            [&session](const QString& query) {
                return session.index().search().performInMemoryContentSearch(
                    query, session.platform().clock().now());
            });
    ops.add(u"CachedSearchResult.isExpired", {u"timestamp", u"now"},
            [](Clock::TimePoint timestamp, Clock::TimePoint now) {
                return CachedSearchResult{{}, timestamp, {}}.isExpired(now);
            });
}

} // namespace

void addIndexOps(Operations& ops, Session& session)
{
    addBuildOps(ops, session);
    addStateOps(ops, session);
    addSearchOps(ops, session);
}

} // namespace jotwell
