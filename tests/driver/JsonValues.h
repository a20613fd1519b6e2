#pragma once

#include "Models/Command.h"
#include "Models/NoteSearchResult.h"
#include "Models/ObsidianTemplate.h"
#include "Models/Toast.h"
#include "Platform/Clock.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonValue>
#include <QStringList>

#include <optional>

namespace jotwell {

// The records of the program as JSON, and back. Reading gives nothing for a value of another form.

template <typename T>
[[nodiscard]] std::optional<T> fromJson(const QJsonValue& json);

template <>
std::optional<bool> fromJson(const QJsonValue& json);
template <>
std::optional<double> fromJson(const QJsonValue& json);
template <>
std::optional<int> fromJson(const QJsonValue& json);
template <>
std::optional<qint64> fromJson(const QJsonValue& json);
template <>
std::optional<QString> fromJson(const QJsonValue& json);
template <>
std::optional<QStringList> fromJson(const QJsonValue& json);
template <>
std::optional<QByteArray> fromJson(const QJsonValue& json); // {"utf8": …} or {"base64": …}
template <>
std::optional<QJsonValue> fromJson(const QJsonValue& json); // anything, nothing too
template <>
std::optional<QUuid> fromJson(const QJsonValue& json);
template <>
std::optional<Clock::TimePoint> fromJson(const QJsonValue& json);
template <>
std::optional<QHash<QString, bool>> fromJson(const QJsonValue& json);
template <>
std::optional<ObsidianTemplate> fromJson(const QJsonValue& json);
template <>
std::optional<ObsidianTemplates> fromJson(const QJsonValue& json);
template <>
std::optional<TemplateType> fromJson(const QJsonValue& json);
template <>
std::optional<Command> fromJson(const QJsonValue& json);
template <>
std::optional<ToastType> fromJson(const QJsonValue& json);

[[nodiscard]] QJsonValue toJson(bool value);
[[nodiscard]] QJsonValue toJson(qint64 value);
[[nodiscard]] QJsonValue toJson(const QString& text);
[[nodiscard]] QJsonValue toJson(const QByteArray& bytes);
[[nodiscard]] QJsonValue toJson(const QUuid& uuid);
[[nodiscard]] QJsonValue toJson(Clock::TimePoint time);
[[nodiscard]] QJsonValue toJson(const QHash<QString, bool>& values);
[[nodiscard]] QJsonValue toJson(const ObsidianTemplate& value);
[[nodiscard]] QJsonValue toJson(const TemplateType& type); // the answer of TemplateType.info
[[nodiscard]] QJsonValue toJson(Command command);
[[nodiscard]] QJsonValue toJson(const DropdownItem& row);
[[nodiscard]] QJsonValue toJson(ToastType type);
[[nodiscard]] QJsonValue toJson(const Toast& toast);
[[nodiscard]] QJsonValue toJson(const NoteSearchResult& note);

template <typename T>
[[nodiscard]] QJsonValue toJson(const std::optional<T>& value)
{
    return value ? toJson(*value) : QJsonValue();
}

template <typename T>
[[nodiscard]] QJsonValue toJson(const QList<T>& values)
{
    QJsonArray array;
    for (const T& each : values)
        array.append(toJson(each));
    return array;
}

} // namespace jotwell
