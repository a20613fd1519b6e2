#include "Views/Settings/SimpleObsidianSettingsView.h"

namespace jotwell {

SimpleObsidianSettingsView::SimpleObsidianSettingsView(const TemplateSettingsServices& services,
                                                       QObject* parent)
    : SettingsScreen(parent), m_services(services)
{
}

} // namespace jotwell
