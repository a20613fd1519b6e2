#pragma once

#include "Models/ObsidianTemplate.h"
#include "Services/DecodedTemplates.h"

#include <QHash>
#include <QString>

#include <functional>
#include <optional>

namespace jotwell {

class DefaultsStore;

/// Typed access to the persistent settings. Holds no setting itself: every read and write goes to
/// the defaults store, and a value that is missing or broken reads as its default, which isn't
/// written back. Any thread.
class SettingsService {
public:
    using TemplateSource = std::function<ObsidianTemplates()>;

    /// `syncedTemplates` gives the templates of the templates folder and may be called from any
    /// thread.
    SettingsService(DefaultsStore& defaults, TemplateSource syncedTemplates);
    [[nodiscard]] static SettingsService& shared();

    /// Absolute paths; empty if none is set.
    [[nodiscard]] QString obsidianFolderPath() const;
    void setObsidianFolderPath(const std::optional<QString>& path);
    [[nodiscard]] QString templatesFolderPath() const;
    void setTemplatesFolderPath(const std::optional<QString>& path);

    /// The text of the one template of old; no note is made from it any more.
    [[nodiscard]] QString obsidianTemplate() const;
    void setObsidianTemplate(const QString& text);

    [[nodiscard]] qint64 recentFilesCount() const;
    void setRecentFilesCount(qint64 count);

    /// Virtual key code and modifier bits of the global hotkey.
    [[nodiscard]] qint64 globalHotkeyCode() const;
    void setGlobalHotkeyCode(qint64 code);
    [[nodiscard]] quint64 globalHotkeyModifiers() const;
    void setGlobalHotkeyModifiers(quint64 modifiers);

    [[nodiscard]] bool onboardingCompleted() const;
    void setOnboardingCompleted(bool completed);

    /// The user's own templates; the built-in ones until a list has been saved. Saving leaves out
    /// synced templates, which live in their files.
    [[nodiscard]] ObsidianTemplates obsidianTemplates() const;
    void setObsidianTemplates(const ObsidianTemplates& templates);

    [[nodiscard]] std::optional<QUuid> lastUsedTemplateId() const;
    void setLastUsedTemplateId(const std::optional<QUuid>& id);

    /// The user's own templates, and behind them the synced ones.
    [[nodiscard]] ObsidianTemplates getAllTemplates() const;
    /// The last used template if it is shown in the dropdown, else the first that is, else the
    /// first of all, else the default one.
    [[nodiscard]] ObsidianTemplate getLastUsedTemplate() const;

    /// Whether each synced template is shown, by the string form of its identifier.
    [[nodiscard]] QHash<QString, bool> getSyncedTemplatePreferences() const;
    void saveSyncedTemplatePreferences(const QHash<QString, bool>& preferences);
    [[nodiscard]] bool getSyncedTemplateShowInDropdown(const QUuid& templateId) const;
    void setSyncedTemplateShowInDropdown(const QUuid& templateId, bool showInDropdown);

    /// Waits until what was set before the call is on the disk, or couldn't be written.
    void synchronize();

private:
    [[nodiscard]] qint64 positiveInteger(const QString& key, qint64 otherwise) const;

    DefaultsStore& m_defaults;
    TemplateSource m_syncedTemplates;
    mutable DecodedTemplates m_decodedTemplates;
};

} // namespace jotwell
