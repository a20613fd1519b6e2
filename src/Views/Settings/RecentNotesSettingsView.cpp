#include "Views/Settings/RecentNotesSettingsView.h"

#include "Services/SettingsService.h"
#include "Support/CharacterClasses.h"

#include <QGuiApplication>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace jotwell {

RecentNotesSettingsView::RecentNotesSettingsView(SettingsService& settings, QObject* parent)
    : SettingsScreen(parent), m_settings(settings)
{
}

// QString alone would pass over blanks around it.
std::optional<qint64> RecentNotesSettingsView::count(const QString& text)
{
    const bool hasSign = text.startsWith(u'+') || text.startsWith(u'-');
    const QStringView digits = QStringView(text).sliced(hasSign ? 1 : 0);
    const auto isDigit = [](QChar character) { return isAsciiDigit(character.unicode()); };
    if (!std::all_of(digits.begin(), digits.end(), isDigit))
        return std::nullopt;
    const qint64 number = text.toLongLong(); // 0 for more than fits
    return number >= 1 ? std::optional(number) : std::nullopt;
}

void RecentNotesSettingsView::setRecentFilesCount(const QString& text)
{
    if (std::exchange(m_recentFilesCount, text) == text)
        return;
    emit recentFilesCountChanged();
    saveSettings();
}

void RecentNotesSettingsView::appear()
{
    loadSettings();
    connect(qApp, &QGuiApplication::focusWindowChanged, this,
            &RecentNotesSettingsView::loadSettings, Qt::UniqueConnection);
}

void RecentNotesSettingsView::disappear()
{
    disconnect(qApp, nullptr, this, nullptr);
}

void RecentNotesSettingsView::loadSettings()
{
    m_recentFilesCount = QString::number(m_settings.recentFilesCount());
    emit recentFilesCountChanged();
}

void RecentNotesSettingsView::saveSettings()
{
    if (const auto number = count(m_recentFilesCount)) {
        m_settings.setRecentFilesCount(*number);
        return;
    }
    loadSettings();
    emit putBack();
}

} // namespace jotwell
