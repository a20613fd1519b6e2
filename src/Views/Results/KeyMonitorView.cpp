#include "Views/Results/KeyMonitorView.h"

#include "Platform/Scheduler.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <optional>
#include <utility>

namespace jotwell {

namespace {

std::optional<QString> nameOf(int keyCode)
{
    switch (keyCode) {
    case KeyMonitorView::enterKey:
        return QStringLiteral("Enter");
    case KeyMonitorView::tabKey:
        return QStringLiteral("Tab");
    case KeyMonitorView::downKey:
        return QStringLiteral("↓");
    case KeyMonitorView::upKey:
        return QStringLiteral("↑");
    default:
        return std::nullopt;
    }
}

int keyCodeOf(const QKeyEvent& event)
{
    constexpr int none = -1;
    switch (event.key()) {
    case Qt::Key_Return:
        return KeyMonitorView::enterKey;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return KeyMonitorView::tabKey;
    case Qt::Key_Down:
        return KeyMonitorView::downKey;
    case Qt::Key_Up:
        return KeyMonitorView::upKey;
    default:
        return none;
    }
}

} // namespace

KeyMonitorView::KeyMonitorView(Scheduler& scheduler, QObject* parent)
    : QObject(parent), m_scheduler(scheduler)
{
    QCoreApplication::instance()->installEventFilter(this);
}

void KeyMonitorView::handleKeyDown(int keyCode)
{
    if (const auto name = nameOf(keyCode))
        m_currentPressedKeys.insert(*name);
    updatePressedKeysState();
}

void KeyMonitorView::handleKeyUp(int keyCode)
{
    if (const auto name = nameOf(keyCode))
        m_currentPressedKeys.remove(*name);
    updatePressedKeysState();
}

void KeyMonitorView::flagsChanged()
{
    updatePressedKeysState();
}

// Not from within the event, which the views may just be acting upon.
void KeyMonitorView::updatePressedKeysState()
{
    m_scheduler.after({}, this, [this] {
        if (std::exchange(m_pressedKeys, m_currentPressedKeys) != m_currentPressedKeys)
            emit pressedKeysChanged();
    });
}

bool KeyMonitorView::eventFilter(QObject* watched, QEvent* event)
{
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    // A window hears of a key once, before the items within it.
    if (!isKey || !watched->isWindowType())
        return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (event->type() == QEvent::KeyPress)
        handleKeyDown(keyCodeOf(key));
    else if (!key.isAutoRepeat()) // a key that repeats isn't up in between
        handleKeyUp(keyCodeOf(key));
    return false;
}

} // namespace jotwell
