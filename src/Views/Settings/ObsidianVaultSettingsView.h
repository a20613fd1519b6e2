#pragma once

#include "Views/IndexStatusBadge.h"
#include "Views/IndexStatusView.h"
#include "Views/Settings/SettingsScreen.h"

#include <QWindow>

#include <memory>

namespace jotwell {

class FolderPanel;
class SettingsService;

/// What the vault's screen reads and changes; all of it outlives the screen.
struct VaultSettingsServices {
    SettingsService& settings;
    TagIndexService& index;
    FolderPanel& folders;
    const Clock& clock;
    Scheduler& scheduler;
};

/// The screen of the vault: where it is, and how its index stands. A path is taken when its typing
/// has come to an end, since each of its beginnings may be a folder as well: that of all homes, or
/// the whole disk. Main thread.
class ObsidianVaultSettingsView : public SettingsScreen {
    Q_OBJECT
    QML_NAMED_ELEMENT(ObsidianVaultSettingsState)
    QML_UNCREATABLE("belongs to the settings window")

    Q_PROPERTY(QString obsidianFolderPath READ obsidianFolderPath WRITE setObsidianFolderPath NOTIFY
                   obsidianFolderPathChanged)
    Q_PROPERTY(bool hasPath READ hasPath NOTIFY obsidianFolderPathChanged)
    Q_PROPERTY(QString indexStatusText READ indexStatusText NOTIFY indexStatusTextChanged)
    Q_PROPERTY(jotwell::IndexStatusView* progress READ progress CONSTANT)
    Q_PROPERTY(jotwell::IndexStatusBadge* badge READ badge CONSTANT)

public:
    explicit ObsidianVaultSettingsView(const VaultSettingsServices& services,
                                       QObject* parent = nullptr);

    /// What stands in the field.
    [[nodiscard]] const QString& obsidianFolderPath() const { return m_obsidianFolderPath; }
    /// As it is typed; nothing is stored yet.
    void setObsidianFolderPath(const QString& text);
    [[nodiscard]] bool hasPath() const { return !m_obsidianFolderPath.isEmpty(); }
    [[nodiscard]] const QString& indexStatusText() const { return m_indexStatusText; }
    [[nodiscard]] static QString indexStatusText(const IndexStatus& status,
                                                 std::optional<Clock::TimePoint> lastIndexUpdate,
                                                 Clock::TimePoint now);
    [[nodiscard]] IndexStatusView* progress() { return &m_progress; }
    [[nodiscard]] IndexStatusBadge* badge() { return &m_badge; }

    void appear() override;
    /// Takes what was typed, and closes the panel.
    void disappear() override;

    /// Reads the path from the settings, but leaves alone what is being typed.
    void loadSettings();
    /// The typing has come to an end: another path than before is stored, and its index built.
    Q_INVOKABLE void commitPath();
    /// Asks for the folder in a panel that belongs to `window`.
    Q_INVOKABLE void browse(QWindow* window);
    /// Builds the index of the path in the field, unless a build runs.
    Q_INVOKABLE void rebuildIndex();

signals:
    void obsidianFolderPathChanged();
    void indexStatusTextChanged();

private:
    void changePath(const QString& path);
    void buildIndex(const QString& path);
    void updateStatus();
    void updateEachMinute();

    VaultSettingsServices m_services;
    IndexStatusView m_progress;
    IndexStatusBadge m_badge;
    QString m_storedPath; ///< as last read or written here
    QString m_obsidianFolderPath;
    QString m_indexStatusText;
    std::unique_ptr<QObject> m_timer; ///< the updates end with it
    std::unique_ptr<QObject> m_panel; ///< the panel closes with it
};

} // namespace jotwell
