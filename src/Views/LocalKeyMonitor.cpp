#include "Views/LocalKeyMonitor.h"

#include "Platform/Scheduler.h"
#include "Services/SettingsService.h"
#include "Views/FloatingWindow.h"
#include "Views/KeyEvents.h"
#include "Views/WindowKeys.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace jotwell {

LocalKeyMonitor::LocalKeyMonitor(const SettingsService& settings, Scheduler& scheduler,
                                 const WindowSystem& windowSystem)
    : m_settings(settings), m_scheduler(scheduler), m_windowSystem(windowSystem)
{
}

void LocalKeyMonitor::watch(const FloatingWindow& captureWindow)
{
    m_captureWindow = &captureWindow;
    QCoreApplication::instance()->installEventFilter(this);
}

bool LocalKeyMonitor::handleKeyDown(const KeyEvent& event, bool captureWindowIsKey)
{
    const Hotkey hotkey{m_settings.globalHotkeyCode(), m_settings.globalHotkeyModifiers()};
    const auto action = actionFor(event, hotkey, captureWindowIsKey);
    if (std::holds_alternative<ToggleWindow>(action))
        requestToggle(captureWindowIsKey);
    else if (const auto* insert = std::get_if<InsertCommand>(&action))
        emit insertCommand(insert->command);
    return !std::holds_alternative<std::monostate>(action);
}

// Pressed twice in one turn, the key still hides: it was seen in the window both times.
void LocalKeyMonitor::requestToggle(bool captureWindowIsKey)
{
    m_scheduler.after({}, this, [this, captureWindowIsKey] {
        captureWindowIsKey ? emit hideRequested() : emit toggleRequested();
    });
}

bool LocalKeyMonitor::eventFilter(QObject* watched, QEvent* event)
{
    // A window hears of a key once, before the items within it.
    if (event->type() != QEvent::KeyPress || !watched->isWindowType())
        return false;
    const bool isCaptureWindow = watched == m_captureWindow;
    // Keys belong to an input method until it has done with them.
    if (isCaptureWindow && m_captureWindow->isComposing())
        return false;
    return handleKeyDown(keyEventOf(static_cast<const QKeyEvent&>(*event), m_windowSystem),
                         isCaptureWindow);
}

} // namespace jotwell
