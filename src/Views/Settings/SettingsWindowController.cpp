#include "Views/Settings/SettingsWindowController.h"

#include "Platform/Scheduler.h"

#include <utility>

namespace jotwell {

namespace {

// No control lies on another in it, and the sidebar is seen whole.
constexpr QSize leastSize(760, 390);

} // namespace

SettingsWindowController::SettingsWindowController(const SettingsServices& services,
                                                   WindowSystem& windowSystem)
    : m_services(services), m_windowSystem(windowSystem)
{
}

// A program that ends with the window open keeps what was typed in it, too.
SettingsWindowController::~SettingsWindowController()
{
    if (m_window)
        m_view->leave();
}

void SettingsWindowController::showSettingsWithTab(const QString& tab)
{
    if (!m_window)
        open(tab);
    m_window->makeKeyAndOrderFront();
}

void SettingsWindowController::open(const QString& tab)
{
    auto view = std::make_unique<SimpleSettingsView>(m_services, m_windowSystem, tab);
    m_view = view.get();
    connect(m_view->globalHotkey()->recorder(), &ShortcutRecorderView::globalHotkeyChanged, this,
            &SettingsWindowController::globalHotkeyChanged);
    const SecondaryWindow::Looks looks{QStringLiteral("Settings"), contentSize, leastSize,
                                       QStringLiteral("Settings/SimpleSettingsView.qml")};
    m_window = std::make_unique<SecondaryWindow>(looks, std::move(view), m_services.scheduler,
                                                 m_windowSystem);
    connect(m_window.get(), &SecondaryWindow::willClose, this,
            &SettingsWindowController::windowWillClose);
}

// It is in the middle of its own event; and what has just been saved is stored first.
void SettingsWindowController::windowWillClose()
{
    m_view->leave();
    m_closed.push_back(std::move(m_window));
    m_services.scheduler.after({}, this, [this] { m_closed.clear(); });
}

} // namespace jotwell
