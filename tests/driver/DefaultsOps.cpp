#include "driver/Operations.h"

#include "driver/Session.h"

namespace jotwell {

using ValueType = DefaultsStore::ValueType;

template <>
std::optional<ValueType> fromJson(const QJsonValue& json);

namespace {

/// The types of stored values as the ops name them.
const std::map<QString, ValueType> valueTypes{
    {QStringLiteral("string"), ValueType::string},
    {QStringLiteral("data"), ValueType::data},
    {QStringLiteral("integer"), ValueType::integer},
    {QStringLiteral("bool"), ValueType::boolean},
};

QJsonValue valueAs(const DefaultsStore& defaults, const QString& key, ValueType type)
{
    switch (type) {
    case ValueType::string:
        return toJson(defaults.string(key));
    case ValueType::data:
        return toJson(defaults.data(key));
    case ValueType::integer:
        return toJson(defaults.integer(key));
    case ValueType::boolean:
        return toJson(defaults.boolean(key));
    }
    Q_UNREACHABLE();
}

// The type of the argument `value` follows from the argument `type`.
Operation setterFor(DefaultsStore& defaults, ValueType type)
{
    switch (type) {
    case ValueType::string:
        return operation({u"key", u"value"}, [&defaults](const QString& key, const QString& value) {
            defaults.setString(key, value);
        });
    case ValueType::data:
        return operation({u"key", u"value"},
                         [&defaults](const QString& key, const QByteArray& value) {
                             defaults.setData(key, value);
                         });
    case ValueType::integer:
        return operation({u"key", u"value"}, [&defaults](const QString& key, qint64 value) {
            defaults.setInteger(key, value);
        });
    case ValueType::boolean:
        return operation({u"key", u"value"}, [&defaults](const QString& key, bool value) {
            defaults.setBoolean(key, value);
        });
    }
    Q_UNREACHABLE();
}

Answer set(DefaultsStore& defaults, const QJsonObject& arguments)
{
    const auto type = fromJson<ValueType>(arguments.value(u"type"));
    return type ? setterFor(defaults, *type)(arguments)
                : badRequest(QStringLiteral("\"type\" is missing or mistyped"));
}

QJsonValue dump(const DefaultsStore& defaults)
{
    QJsonObject all;
    for (const QString& key : defaults.keys()) {
        const auto stored = defaults.storedType(key);
        for (const auto& [name, type] : valueTypes) {
            if (type == stored)
                all.insert(key,
                           QJsonObject{{QStringLiteral("type"), name},
                                       {QStringLiteral("value"), valueAs(defaults, key, type)}});
        }
    }
    return all;
}

} // namespace

template <>
std::optional<ValueType> fromJson(const QJsonValue& json)
{
    const auto found = valueTypes.find(json.toString());
    return found == valueTypes.end() ? std::nullopt : std::optional(found->second);
}

void addDefaultsOps(Operations& ops, Session& session)
{
    DefaultsStore& defaults = session.platform().defaults();
    ops.add(u"defaults.get", {u"key", u"type"}, [&defaults](const QString& key, ValueType type) {
        return valueAs(defaults, key, type);
    });
    ops.add(u"defaults.set",
            [&defaults](const QJsonObject& arguments) { return set(defaults, arguments); });
    ops.add(u"defaults.remove", {u"key"},
            [&defaults](const QString& key) { defaults.remove(key); });
    ops.add(u"defaults.dump", {}, [&defaults] { return dump(defaults); });
}

} // namespace jotwell
