#include "Views/AccessibleFocus.h"

#include <QAccessible>
#include <QQuickWindow>

namespace jotwell {

void AccessibleFocus::moveTo(QQuickItem* item)
{
    if (!item || !QAccessible::isActive())
        return;
    QAccessibleEvent focus(item, QAccessible::Focus);
    QAccessible::updateAccessibility(&focus);
}

void AccessibleFocus::moveBackFrom(QQuickItem* item)
{
    if (item->window())
        moveTo(item->window()->activeFocusItem());
}

} // namespace jotwell
