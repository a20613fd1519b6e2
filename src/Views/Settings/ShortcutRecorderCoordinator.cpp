#include "Views/Settings/ShortcutRecorderCoordinator.h"

#include "Platform/KeyEvent.h"
#include "Views/KeyEvents.h"
#include "Views/Settings/ShortcutKeys.h"
#include "Views/Settings/ShortcutRecorderView.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace jotwell {

namespace {

// Without a modifier these can't be a hotkey, and a button that has the keyboard is worked by them.
bool worksButton(const QKeyEvent& event)
{
    const bool isPlain = !(event.modifiers() & ~Qt::KeypadModifier);
    const int key = event.key();
    return isPlain && (key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter);
}

} // namespace

ShortcutRecorderCoordinator::ShortcutRecorderCoordinator(ShortcutRecorderView& recorder,
                                                         const WindowSystem& windowSystem)
    : m_recorder(recorder), m_windowSystem(windowSystem)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool ShortcutRecorderCoordinator::eventFilter(QObject* watched, QEvent* event)
{
    const bool isPress = event->type() == QEvent::KeyPress;
    // A window hears of a key once, before the items within it.
    if (!(isPress || event->type() == QEvent::KeyRelease) || !watched->isWindowType())
        return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const KeyEvent its = keyEventOf(key, m_windowSystem);
    const bool isKey = its.type == KeyEvent::keyDown;
    if (isKey && (!isPress || (m_recorder.hasFocusedButton() && worksButton(key))))
        return false;
    // One that repeats may have been pressed before the recording began.
    if (key.isAutoRepeat())
        return isKey && isRecordable(its.keyCode);
    return !m_recorder.handleEvent(its);
}

} // namespace jotwell
