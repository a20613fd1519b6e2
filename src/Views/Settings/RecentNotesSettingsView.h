#pragma once

#include "Views/Settings/SettingsScreen.h"

#include <QtQml/qqmlregistration.h>

#include <optional>

namespace jotwell {

class SettingsService;

/// The screen of recent notes: how many of them are listed. Main thread; the service outlives it.
class RecentNotesSettingsView : public SettingsScreen {
    Q_OBJECT
    QML_NAMED_ELEMENT(RecentNotesSettingsState)
    QML_UNCREATABLE("belongs to the settings window")

    Q_PROPERTY(QString recentFilesCount READ recentFilesCount WRITE setRecentFilesCount NOTIFY
                   recentFilesCountChanged)

public:
    explicit RecentNotesSettingsView(SettingsService& settings, QObject* parent = nullptr);

    /// What stands in the field.
    [[nodiscard]] const QString& recentFilesCount() const { return m_recentFilesCount; }
    /// As it is typed: stored at once.
    void setRecentFilesCount(const QString& text);
    /// A decimal integer of at least 1, which may have a sign; none for any other text.
    [[nodiscard]] static std::optional<qint64> count(const QString& text);

    void appear() override;
    void disappear() override;

    /// Puts the stored number into the field.
    void loadSettings();
    /// Stores the number in the field. What is none gives way to the stored one.
    void saveSettings();

signals:
    void recentFilesCountChanged();
    /// The stored number has taken the place of what was typed.
    void putBack();

private:
    SettingsService& m_settings;
    QString m_recentFilesCount;
};

} // namespace jotwell
