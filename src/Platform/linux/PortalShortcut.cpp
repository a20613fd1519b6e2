#include "Platform/linux/PortalShortcut.h"

#include <QDBusMetaType>

#include <algorithm>

namespace jotwell {

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut)
{
    argument.beginStructure();
    argument << shortcut.id << shortcut.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut)
{
    argument.beginStructure();
    argument >> shortcut.id >> shortcut.properties;
    argument.endStructure();
    return argument;
}

void registerPortalShortcut()
{
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
}

bool isNamed(const QString& id, const QVariant& shortcuts)
{
    const auto argument = shortcuts.value<QDBusArgument>();
    if (!shortcuts.isValid() || argument.currentSignature() != u"a(sa{sv})")
        return !shortcuts.isValid();
    const auto named = qdbus_cast<QList<PortalShortcut>>(argument);
    return std::ranges::find(named, id, &PortalShortcut::id) != named.end();
}

} // namespace jotwell
