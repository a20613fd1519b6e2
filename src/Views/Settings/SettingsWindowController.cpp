#include "Views/Settings/SettingsWindowController.h"

#include "Platform/Scheduler.h"
#include "Views/Settings/SettingsWindow.h"

#include <utility>

namespace jotwell {

SettingsWindowController::SettingsWindowController(const SettingsServices& services,
                                                   WindowSystem& windowSystem)
    : m_services(services), m_windowSystem(windowSystem)
{
}

SettingsWindowController::~SettingsWindowController() = default;

void SettingsWindowController::showSettingsWithTab(const QString& tab)
{
    if (!m_open)
        open(tab);
    m_open->window->makeKeyAndOrderFront();
}

void SettingsWindowController::open(const QString& tab)
{
    m_open = std::make_unique<Open>();
    m_open->view = std::make_unique<SimpleSettingsView>(m_services, m_windowSystem, tab);
    m_open->window = std::make_unique<SettingsWindow>(*m_open->view, m_windowSystem);
    connect(m_open->window.get(), &SettingsWindow::willClose, this,
            &SettingsWindowController::windowWillClose);
}

// It is in the middle of its own event; and what has just been saved is stored first.
void SettingsWindowController::windowWillClose()
{
    m_open->view->leave();
    m_closed.push_back(std::move(m_open));
    m_services.scheduler.after({}, this, [this] { m_closed.clear(); });
}

} // namespace jotwell
