#include "Services/TemplateSyncService.h"

#include "Models/Uuid.h"
#include "Platform/Platform.h"
#include "Services/SettingsService.h"
#include "Support/Background.h"
#include "Support/FileText.h"
#include "Support/FolderWalk.h"
#include "Support/TextUnits.h"

#include <QCryptographicHash>
#include <QDir>

#include <algorithm>
#include <utility>

namespace jotwell {

namespace {

const QString extension = QStringLiteral(".md");

// By the path alone, so that it survives edits and restarts.
QUuid identifierOf(const QString& path)
{
    const QByteArray hash = QCryptographicHash::hash(path.toUtf8(), QCryptographicHash::Sha256);
    return QUuid::fromRfc4122(QByteArrayView(hash).first(16));
}

ObsidianTemplates templatesIn(const QString& folder, const QHash<QString, bool>& preferences)
{
    ObsidianTemplates templates;
    if (folder.isEmpty())
        return templates;
    const QDir listed(QDir::cleanPath(QDir(folder).absolutePath()));
    const auto everything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    for (const QString& entry : listed.entryList(everything, QDir::Unsorted)) {
        if (!entry.endsWith(extension))
            continue;
        const QString path = pathBelow(listed.path(), entry);
        const auto content = readTextFile(path);
        if (!content)
            continue;
        const QUuid id = identifierOf(path);
        templates.append({id, entry.chopped(extension.size()), *content,
                          preferences.value(uuidString(id), true), TemplateType::synced(path)});
    }
    std::stable_sort(templates.begin(), templates.end(),
                     [](const ObsidianTemplate& left, const ObsidianTemplate& right) {
                         return precedesByCodePoint(left.name, right.name);
                     });
    return templates;
}

} // namespace

QString TemplateSyncError::errorDescription() const
{
    switch (kind) {
    case Kind::writeError:
        return QStringLiteral("Failed to write template file: ") + underlying.description();
    case Kind::notSyncedTemplate:
        return QStringLiteral("Template is not synced with a file");
    case Kind::fileNotFound:
        return QStringLiteral("Template file not found");
    }
    Q_UNREACHABLE();
}

TemplateSyncService::TemplateSyncService(const Platform& platform, SettingsService& settings)
    : m_platform(platform), m_settings(settings), m_files(platform.files)
{
    startMonitoring();
}

ObsidianTemplates TemplateSyncService::syncedTemplates() const
{
    const QMutexLocker lock(&m_mutex);
    return m_syncedTemplates;
}

void TemplateSyncService::loadSyncedTemplates()
{
    ++m_loads;
    takeReading(
        templatesIn(m_settings.templatesFolderPath(), m_settings.getSyncedTemplatePreferences()));
}

void TemplateSyncService::startMonitoring()
{
    const QString folder = m_settings.templatesFolderPath();
    if (folder.isEmpty())
        return;
    watchFolder(folder);
    loadSyncedTemplates(); // behind the start, so that nothing that comes in between is missed
}

void TemplateSyncService::stopMonitoring()
{
    if (m_folderMonitor)
        m_folderMonitor->stop();
}

void TemplateSyncService::followFolder()
{
    const QString folder = m_settings.templatesFolderPath();
    ++m_loads; // what is being read is of another folder
    if (folder.isEmpty()) {
        stopMonitoring();
        loadSyncedTemplates();
    } else {
        watchFolder(folder);
        loadInBackground();
    }
}

void TemplateSyncService::watchFolder(const QString& folder)
{
    stopMonitoring();
    m_folderMonitor = std::make_unique<FileSystemMonitor>(m_platform.folders, folder,
                                                          [this] { loadInBackground(); });
    m_folderMonitor->start();
}

// One reading at a time however many changes come in, and a reading that a newer load has overtaken
// doesn't count.
void TemplateSyncService::loadInBackground()
{
    if (m_isReloading) {
        m_reloadsAgain = true;
        return;
    }
    m_isReloading = true;
    auto work = [folder = m_settings.templatesFolderPath(),
                 preferences = m_settings.getSyncedTemplatePreferences()] {
        return templatesIn(folder, preferences);
    };
    QCoro::connect(inBackground(m_platform.background, std::move(work)), this,
                   [this, load = ++m_loads](const ObsidianTemplates& templates) {
                       if (load == m_loads)
                           takeReading(templates);
                       m_isReloading = false;
                       if (std::exchange(m_reloadsAgain, false))
                           loadInBackground();
                   });
}

Result<void, TemplateSaveError> TemplateSyncService::saveTemplate(const ObsidianTemplate& value)
{
    const auto& path = value.type.filePath();
    if (!path)
        return TemplateSaveError(TemplateSyncError());
    if (const auto written = m_files.write(*path, value.content.toUtf8()); !written)
        return TemplateSaveError(written.error());
    change(value.id, [&value](ObsidianTemplate& each) { each = value; });
    return {};
}

void TemplateSyncService::setContent(const QUuid& templateId, const QString& content)
{
    m_comingContents.remove(templateId);
    change(templateId, [&content](ObsidianTemplate& each) { each.content = content; });
}

void TemplateSyncService::setComingContent(const QUuid& templateId, const QString& content)
{
    setContent(templateId, content);
    m_comingContents.insert(templateId, content);
}

void TemplateSyncService::forgetComingContent(const QUuid& templateId)
{
    m_comingContents.remove(templateId);
    loadInBackground();
}

void TemplateSyncService::setShowInDropdown(const QUuid& templateId, bool showInDropdown)
{
    change(templateId,
           [showInDropdown](ObsidianTemplate& each) { each.showInDropdown = showInDropdown; });
}

void TemplateSyncService::change(const QUuid& templateId,
                                 const std::function<void(ObsidianTemplate&)>& change)
{
    ++m_loads; // a reading that is under way may have seen it as it was
    m_reloadsAgain = m_isReloading;
    ObsidianTemplates templates = syncedTemplates();
    const auto found =
        std::find_if(templates.begin(), templates.end(),
                     [&templateId](const ObsidianTemplate& each) { return each.id == templateId; });
    if (found == templates.end())
        return;
    change(*found);
    setSyncedTemplates(templates);
}

void TemplateSyncService::takeReading(ObsidianTemplates templates)
{
    for (ObsidianTemplate& each : templates)
        each.content = m_comingContents.value(each.id, each.content);
    setSyncedTemplates(std::move(templates));
}

void TemplateSyncService::setSyncedTemplates(ObsidianTemplates templates)
{
    {
        const QMutexLocker lock(&m_mutex);
        if (m_syncedTemplates == templates)
            return;
        m_syncedTemplates = std::move(templates);
    }
    emit syncedTemplatesChanged();
}

} // namespace jotwell
