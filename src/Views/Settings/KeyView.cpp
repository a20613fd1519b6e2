#include "Views/Settings/KeyView.h"

#include "Views/KeyEvents.h"
#include "Views/Settings/ShortcutKeys.h"

#include <QKeyEvent>

#include <utility>

namespace jotwell {

namespace {

constexpr int spaceKey = 49;

QSet<QString> symbolsOf(quint64 flags)
{
    const QStringList symbols = modifierSymbols(flags);
    return {symbols.begin(), symbols.end()};
}

} // namespace

KeyView::KeyView(const WindowSystem& windowSystem, QObject* parent)
    : QObject(parent), m_windowSystem(windowSystem)
{
}

void KeyView::flagsChanged(quint64 flags)
{
    setPressedKeys(symbolsOf(flags));
}

void KeyView::updatePressedKeys(quint64 flags, int keyCode, bool isDown)
{
    QSet<QString> keys = symbolsOf(flags);
    if (keyCode == spaceKey && isDown)
        keys.insert(QStringLiteral("Space"));
    setPressedKeys(keys);
}

void KeyView::setPressedKeys(const QSet<QString>& keys)
{
    if (std::exchange(m_pressedKeys, keys) != keys)
        emit pressedKeysChanged();
}

void KeyView::hear(const QKeyEvent& event)
{
    const KeyEvent key = keyEventOf(event, m_windowSystem);
    if (key.type == KeyEvent::flagsChanged)
        flagsChanged(key.flags);
    else
        updatePressedKeys(key.flags, key.keyCode,
                          event.type() == QEvent::KeyPress || event.isAutoRepeat());
}

bool KeyView::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease)
        hear(static_cast<const QKeyEvent&>(*event));
    else if (event->type() == QEvent::FocusOut)
        setPressedKeys({}); // their releases will go to another window
    return false;
}

} // namespace jotwell
