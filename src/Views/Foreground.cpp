#include "Views/Foreground.h"

#include "Platform/Scheduler.h"
#include "Platform/WindowSystem.h"

#include <QEvent>
#include <QGuiApplication>
#include <QWindow>

#include <algorithm>

namespace jotwell {

using namespace std::chrono_literals;

namespace {

// A desktop may keep the keyboard from a window for good, which isn't seen from here.
constexpr auto longestWaitForKeyboard = 1s;

} // namespace

Foreground::Foreground(QWindow& window, Scheduler& scheduler, WindowSystem& windowSystem)
    : m_window(window), m_scheduler(scheduler), m_windowSystem(windowSystem)
{
    m_window.installEventFilter(this);
}

bool Foreground::isInFront() const
{
    return m_awaitsKeyboard || m_windowSystem.isInFront(&m_window);
}

// An icon that can be raised is only restored: hidden and shown at once, it is lost by a window
// manager that is still at work on the first of it. And a dialog would lose the window that it
// belongs to.
void Foreground::prepare()
{
    m_window.setWindowStates(m_window.windowStates() & ~Qt::WindowStates(Qt::WindowMinimized));
    if (!isInFront() && !hasVisibleChild())
        m_window.setVisible(false);
}

bool Foreground::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show)
        awaitKeyboard();
    else if (event->type() == QEvent::FocusIn)
        m_awaitsKeyboard = false;
    return QObject::eventFilter(watched, event);
}

void Foreground::awaitKeyboard()
{
    m_awaitsKeyboard = true;
    m_timer = std::make_unique<QObject>();
    m_scheduler.after(longestWaitForKeyboard, m_timer.get(), [this] { m_awaitsKeyboard = false; });
}

bool Foreground::hasVisibleChild() const
{
    const auto windows = QGuiApplication::topLevelWindows();
    return std::ranges::any_of(windows, [this](const QWindow* each) {
        return each->transientParent() == &m_window && each->isVisible();
    });
}

} // namespace jotwell
