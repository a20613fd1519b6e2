#pragma once

#include "Services/TemplateChange.h"
#include "Services/TemplateFile.h"

#include <QHash>
#include <QObject>
#include <QThreadPool>

#include <memory>
#include <optional>

namespace jotwell {

class SettingsService;

/// The text of a synced template on its way to the file.
struct TemplateFileChange {
    std::shared_ptr<TemplateFile> file;
    ObsidianTemplate value;
};

/// What is to be stored of the templates' screen, in this order.
struct TemplateSave {
    std::optional<QString> folder;
    QList<TemplateChange> templates;
    QList<TemplateFileChange> files;
    QHash<QUuid, bool> shown; ///< of synced templates
    bool storesAll = false;   ///< also what hasn't changed, as the first save does
    bool isAsked = false;
    std::optional<QUuid> lastUsed;
};

/// What has come of a save.
struct TemplateSaved {
    struct File {
        TemplateFileChange change;
        Result<std::optional<QString>, SystemError> outcome;
    };

    TemplateSave what;
    ObsidianTemplates templates; ///< as they are stored now
    QList<File> files;
};

/// Stores what is changed on the templates' screen, at once and one save after the other on a
/// thread of its own: a save waits for the disk, and the user is typing. What changes meanwhile
/// goes out with the next one. Main thread; the settings outlive it.
class TemplateSaver : public QObject {
    Q_OBJECT

public:
    explicit TemplateSaver(SettingsService& settings, QObject* parent = nullptr);
    ~TemplateSaver() override;

    void setFolder(const QString& path) { m_waiting.folder = path; }
    void change(const TemplateChange& change) { append(m_waiting.templates, change); }
    /// In place of an earlier text for that file.
    void change(const TemplateFileChange& change);
    void setShown(const QUuid& id, bool shown) { m_waiting.shown.insert(id, shown); }
    /// It is to change once more behind the save that is told.
    [[nodiscard]] bool hasLaterShown(const QUuid& id) const { return m_waiting.shown.contains(id); }
    void storeAll() { m_waiting.storesAll = true; }

    /// Begins to store what has been handed in.
    void save(const std::optional<QUuid>& lastUsed);
    /// Comes back when all of it is stored, and `saved` is told.
    void flush();

    /// Not all that was handed in is stored, and told to be.
    [[nodiscard]] bool isBusy() const { return m_running || m_waiting.isAsked; }
    /// Neither is a text for that file.
    [[nodiscard]] bool isBusyWith(const std::shared_ptr<TemplateFile>& file) const;

signals:
    void saved(const jotwell::TemplateSaved& outcome);

private:
    void start();
    void finish();

    SettingsService& m_settings;
    QThreadPool m_thread;
    TemplateSave m_waiting;
    std::shared_ptr<TemplateSaved> m_running; ///< what is stored; the rest once the thread is done
};

} // namespace jotwell
