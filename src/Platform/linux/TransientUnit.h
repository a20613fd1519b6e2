#pragma once

#include <QDBusArgument>
#include <QDBusVariant>
#include <QList>
#include <QVariantList>

namespace jotwell {

/// A property of a unit as it travels to the user's service manager.
struct UnitProperty {
    QString name;
    QDBusVariant value;
};

/// A unit that is to come with another one.
struct AuxiliaryUnit {
    QString name;
    QList<UnitProperty> properties;
};

QDBusArgument& operator<<(QDBusArgument& argument, const UnitProperty& property);
const QDBusArgument& operator>>(const QDBusArgument& argument, UnitProperty& property);
QDBusArgument& operator<<(QDBusArgument& argument, const AuxiliaryUnit& unit);
const QDBusArgument& operator>>(const QDBusArgument& argument, AuxiliaryUnit& unit);

/// Makes the bus know lists of them.
void registerTransientUnit();

/// The arguments of "StartTransientUnit" for a scope of that name around a process.
[[nodiscard]] QVariantList scopeOf(const QString& name, uint process);

} // namespace jotwell
