#include "Views/Settings/SettingsBench.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QQuickWindow>

namespace jotwell {

void SettingsBench::key(QQuickItem* item, bool isDown, int key, int modifiers, int keyCode)
{
    QKeyEvent event(isDown ? QEvent::KeyPress : QEvent::KeyRelease, key,
                    Qt::KeyboardModifiers(modifiers), static_cast<quint32>(keyCode), 0, 0);
    QCoreApplication::sendEvent(item->window(), &event);
}

} // namespace jotwell
