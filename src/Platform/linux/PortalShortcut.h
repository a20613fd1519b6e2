#pragma once

#include <QDBusArgument>
#include <QList>
#include <QVariantMap>

namespace jotwell {

/// A shortcut as it travels between a program and the portal.
struct PortalShortcut {
    QString id;
    QVariantMap properties;
};

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut);
const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut);

/// Makes the bus know lists of them.
void registerPortalShortcut();

/// Whether a portal's answer names the shortcut of that id; one that names none at all means all.
[[nodiscard]] bool isNamed(const QString& id, const QVariant& shortcuts);

} // namespace jotwell
