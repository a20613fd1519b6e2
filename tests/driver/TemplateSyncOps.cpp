#include "driver/Operations.h"

#include "Services/TemplateSyncService.h"

namespace jotwell {

namespace {

QJsonValue state()
{
    const FileSystemMonitor* const monitor = TemplateSyncService::shared().folderMonitor();
    return QJsonObject{
        {QStringLiteral("hasFolderMonitor"), monitor != nullptr},
        {QStringLiteral("monitoredPath"), monitor ? QJsonValue(monitor->path()) : QJsonValue()}};
}

} // namespace

void addTemplateSyncOps(Operations& ops)
{
    ops.add(u"TemplateSyncService.loadSyncedTemplates", {},
            [] { TemplateSyncService::shared().loadSyncedTemplates(); });
    ops.add(u"TemplateSyncService.startMonitoring", {},
            [] { TemplateSyncService::shared().startMonitoring(); });
    ops.add(u"TemplateSyncService.saveTemplate", {u"template"}, [](const ObsidianTemplate& value) {
        return TemplateSyncService::shared().saveTemplate(value);
    });
    ops.add(u"TemplateSyncService.syncedTemplates", {},
            [] { return TemplateSyncService::shared().syncedTemplates(); });
    ops.add(u"TemplateSyncService.state", {}, [] { return state(); });
}

} // namespace jotwell
