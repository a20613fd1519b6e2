#pragma once

#include "Models/ObsidianTemplate.h"
#include "Services/FileSystemMonitor.h"
#include "Support/AtomicFile.h"
#include "Support/Result.h"

#include <QHash>
#include <QMutex>
#include <QObject>

#include <functional>
#include <memory>
#include <variant>

namespace jotwell {

class SettingsService;
struct Platform;

/// What keeps a template from being saved to a file.
struct TemplateSyncError {
    enum class Kind { writeError, notSyncedTemplate, fileNotFound };

    Kind kind = Kind::notSyncedTemplate;
    SystemError underlying; ///< of a `writeError`

    [[nodiscard]] QString errorDescription() const;
    bool operator==(const TemplateSyncError&) const = default;
};

using TemplateSaveError = std::variant<TemplateSyncError, SystemError>;

/// The Markdown files of the templates folder as templates, kept fresh while the folder changes.
/// Main thread, but for `syncedTemplates`, which may be read from any.
class TemplateSyncService : public QObject {
    Q_OBJECT

public:
    /// Loads the folder and starts its watch.
    TemplateSyncService(const Platform& platform, SettingsService& settings);
    [[nodiscard]] static TemplateSyncService& shared();

    /// Sorted by name.
    [[nodiscard]] ObsidianTemplates syncedTemplates() const;

    /// Reads the folder anew; no folder, or one that can't be listed, gives an empty list.
    void loadSyncedTemplates();

    /// The same in the background: the list is there on a later turn of the event loop.
    void loadInBackground();

    /// Loads the folder and watches it in place of the one before; without a folder in the settings
    /// it leaves all as it is.
    void startMonitoring();
    void stopMonitoring();
    /// Another folder is set: watches it and loads it in the background. Without one the list is
    /// empty and nothing is watched.
    void followFolder();

    /// Writes the content of a synced template to its file, whole or not at all.
    [[nodiscard]] Result<void, TemplateSaveError> saveTemplate(const ObsidianTemplate& value);
    // What others of this process have stored of a template of the list, without another reading.
    void setContent(const QUuid& templateId, const QString& content);
    /// It is on its way to the file: no reading takes it back until it is set or forgotten.
    void setComingContent(const QUuid& templateId, const QString& content);
    void forgetComingContent(const QUuid& templateId);
    void setShowInDropdown(const QUuid& templateId, bool showInDropdown);
    /// For whoever writes such a file.
    [[nodiscard]] const AtomicFile& files() const { return m_files; }

    /// The watch, if there has been a folder to watch.
    [[nodiscard]] const FileSystemMonitor* folderMonitor() const { return m_folderMonitor.get(); }

signals:
    void syncedTemplatesChanged();

private:
    void watchFolder(const QString& folder);
    void change(const QUuid& templateId, const std::function<void(ObsidianTemplate&)>& change);
    void takeReading(ObsidianTemplates templates);
    void setSyncedTemplates(ObsidianTemplates templates);

    const Platform& m_platform;
    SettingsService& m_settings;
    AtomicFile m_files;
    std::unique_ptr<FileSystemMonitor> m_folderMonitor;
    mutable QMutex m_mutex;
    ObsidianTemplates m_syncedTemplates; ///< under the mutex
    QHash<QUuid, QString> m_comingContents;
    bool m_isReloading = false;
    bool m_reloadsAgain = false;
    int m_loads = 0; ///< tells a late reading from the latest
};

} // namespace jotwell
