#include "Views/Settings/RecentNotesSettingsView.h"

namespace jotwell {

RecentNotesSettingsView::RecentNotesSettingsView(SettingsService& settings, QObject* parent)
    : SettingsScreen(parent), m_settings(settings)
{
}

} // namespace jotwell
