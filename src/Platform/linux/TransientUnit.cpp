#include "Platform/linux/TransientUnit.h"

#include <QDBusMetaType>

namespace jotwell {

QDBusArgument& operator<<(QDBusArgument& argument, const UnitProperty& property)
{
    argument.beginStructure();
    argument << property.name << property.value;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, UnitProperty& property)
{
    argument.beginStructure();
    argument >> property.name >> property.value;
    argument.endStructure();
    return argument;
}

QDBusArgument& operator<<(QDBusArgument& argument, const AuxiliaryUnit& unit)
{
    argument.beginStructure();
    argument << unit.name << unit.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, AuxiliaryUnit& unit)
{
    argument.beginStructure();
    argument >> unit.name >> unit.properties;
    argument.endStructure();
    return argument;
}

void registerTransientUnit()
{
    qDBusRegisterMetaType<UnitProperty>();
    qDBusRegisterMetaType<QList<UnitProperty>>();
    qDBusRegisterMetaType<AuxiliaryUnit>();
    qDBusRegisterMetaType<QList<AuxiliaryUnit>>();
}

QVariantList scopeOf(const QString& name, uint process)
{
    const auto property = [](const char* key, const QVariant& value) {
        return UnitProperty{QLatin1String(key), QDBusVariant(value)};
    };
    const QList<UnitProperty> properties{
        property("Description", QStringLiteral("Jotwell")),
        property("Slice", QStringLiteral("app.slice")),
        property("CollectMode", QStringLiteral("inactive-or-failed")), // failures don't pile up
        property("PIDs", QVariant::fromValue(QList<uint>{process}))};
    return {name, QStringLiteral("fail"), QVariant::fromValue(properties),
            QVariant::fromValue(QList<AuxiliaryUnit>())};
}

} // namespace jotwell
