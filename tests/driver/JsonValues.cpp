#include "driver/JsonValues.h"

#include "Models/ObsidianTemplateJson.h"
#include "Models/Uuid.h"

#include <QJsonObject>
#include <QStringDecoder>

#include <algorithm>
#include <cmath>
#include <utility>

namespace jotwell {

namespace {

QString nameOf(ToastType type)
{
    switch (type) {
    case ToastType::success:
        return QStringLiteral("success");
    case ToastType::warning:
        return QStringLiteral("warning");
    case ToastType::error:
        return QStringLiteral("error");
    }
    Q_UNREACHABLE();
}

template <typename T>
std::optional<QList<T>> listFromJson(const QJsonValue& json)
{
    if (!json.isArray())
        return std::nullopt;
    QList<T> values;
    for (const QJsonValue each : json.toArray()) {
        const auto value = fromJson<T>(each);
        if (!value)
            return std::nullopt;
        values.append(*value);
    }
    return values;
}

std::optional<QString> decodedUtf8(const QByteArray& bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    QString text = decoder.decode(bytes);
    return decoder.hasError() ? std::nullopt : std::optional(std::move(text));
}

} // namespace

template <>
std::optional<bool> fromJson(const QJsonValue& json)
{
    return json.isBool() ? std::optional(json.toBool()) : std::nullopt;
}

template <>
std::optional<double> fromJson(const QJsonValue& json)
{
    return json.isDouble() ? std::optional(json.toDouble()) : std::nullopt;
}

template <>
std::optional<qint64> fromJson(const QJsonValue& json)
{
    const qint64 value = json.toInteger(0);
    return value == json.toInteger(1) ? std::optional(value) : std::nullopt;
}

template <>
std::optional<int> fromJson(const QJsonValue& json)
{
    const auto value = fromJson<qint64>(json);
    return value && std::in_range<int>(*value) ? std::optional(static_cast<int>(*value))
                                               : std::nullopt;
}

template <>
std::optional<QString> fromJson(const QJsonValue& json)
{
    return json.isString() ? std::optional(json.toString()) : std::nullopt;
}

template <>
std::optional<QStringList> fromJson(const QJsonValue& json)
{
    return listFromJson<QString>(json);
}

template <>
std::optional<QByteArray> fromJson(const QJsonValue& json)
{
    const QJsonObject object = json.toObject();
    if (const auto text = fromJson<QString>(object.value(u"utf8")))
        return text->toUtf8();
    const auto encoded = fromJson<QString>(object.value(u"base64"));
    if (!encoded)
        return std::nullopt;
    const auto decoded = QByteArray::fromBase64Encoding(encoded->toLatin1(),
                                                        QByteArray::AbortOnBase64DecodingErrors);
    return decoded ? std::optional(*decoded) : std::nullopt;
}

template <>
std::optional<QJsonValue> fromJson(const QJsonValue& json)
{
    return json.isUndefined() ? QJsonValue() : json;
}

template <>
std::optional<QUuid> fromJson(const QJsonValue& json)
{
    return uuidFromString(json.toString());
}

template <>
std::optional<Clock::TimePoint> fromJson(const QJsonValue& json)
{
    constexpr double farthest = 9e9; // as many seconds as nanoseconds can count
    if (!json.isDouble() || std::abs(json.toDouble()) > farthest)
        return std::nullopt;
    // A double has no room for all the nanoseconds since 1970.
    const double whole = std::floor(json.toDouble());
    const std::chrono::duration<double> fraction(json.toDouble() - whole);
    return Clock::TimePoint(std::chrono::seconds(static_cast<qint64>(whole)) +
                            std::chrono::round<Clock::TimePoint::duration>(fraction));
}

template <>
std::optional<QHash<QString, bool>> fromJson(const QJsonValue& json)
{
    if (!json.isObject())
        return std::nullopt;
    const QJsonObject object = json.toObject();
    QHash<QString, bool> values;
    for (auto each = object.begin(); each != object.end(); ++each) {
        if (!each.value().isBool())
            return std::nullopt;
        values.insert(each.key(), each.value().toBool());
    }
    return values;
}

template <>
std::optional<ObsidianTemplate> fromJson(const QJsonValue& json)
{
    const auto read = templateFromJson(json);
    return read ? std::optional(*read) : std::nullopt;
}

template <>
std::optional<ObsidianTemplates> fromJson(const QJsonValue& json)
{
    return listFromJson<ObsidianTemplate>(json);
}

template <>
std::optional<TemplateType> fromJson(const QJsonValue& json)
{
    const auto read = templateTypeFromJson(json);
    return read ? std::optional(*read) : std::nullopt;
}

template <>
std::optional<Command> fromJson(const QJsonValue& json)
{
    return commandFromRawValue(json.toString());
}

template <>
std::optional<ToastType> fromJson(const QJsonValue& json)
{
    const auto* const found =
        std::find_if(allToastTypes.begin(), allToastTypes.end(),
                     [&json](ToastType each) { return nameOf(each) == json.toString(); });
    return found == allToastTypes.end() ? std::nullopt : std::optional(*found);
}

QJsonValue toJson(bool value)
{
    return value;
}

QJsonValue toJson(qint64 value)
{
    return value;
}

QJsonValue toJson(const QString& text)
{
    return text;
}

QJsonValue toJson(const QByteArray& bytes)
{
    return QJsonObject{{QStringLiteral("base64"), QString::fromLatin1(bytes.toBase64())},
                       {QStringLiteral("utf8"), toJson(decodedUtf8(bytes))}};
}

QJsonValue toJson(const QUuid& uuid)
{
    return uuidString(uuid);
}

QJsonValue toJson(Clock::TimePoint time)
{
    const auto whole = std::chrono::floor<std::chrono::seconds>(time);
    return static_cast<double>(whole.time_since_epoch().count()) +
           std::chrono::duration<double>(time - whole).count();
}

QJsonValue toJson(const QHash<QString, bool>& values)
{
    QJsonObject object;
    for (auto each = values.begin(); each != values.end(); ++each)
        object.insert(each.key(), each.value());
    return object;
}

QJsonValue toJson(const ObsidianTemplate& value)
{
    return templateToJson(value);
}

QJsonValue toJson(const TemplateType& type)
{
    return QJsonObject{{QStringLiteral("isSynced"), type.isSynced()},
                       {QStringLiteral("filePath"), toJson(type.filePath())}};
}

QJsonValue toJson(Command command)
{
    return rawValue(command);
}

QJsonValue toJson(const DropdownItem& row)
{
    const QJsonValue id = std::visit([](const auto& actual) { return toJson(actual); }, row.id);
    return QJsonObject{{QStringLiteral("id"), id},
                       {QStringLiteral("displayName"), row.displayName},
                       {QStringLiteral("icon"), row.icon},
                       {QStringLiteral("description"), row.description}};
}

QJsonValue toJson(ToastType type)
{
    return nameOf(type);
}

QJsonValue toJson(const Toast& toast)
{
    return QJsonObject{{QStringLiteral("id"), toJson(toast.id)},
                       {QStringLiteral("message"), toast.message},
                       {QStringLiteral("type"), toJson(toast.type)},
                       {QStringLiteral("duration"), toast.duration.count()}};
}

QJsonValue toJson(const NoteSearchResult& note)
{
    const QJsonValue score = note.relevanceScore ? QJsonValue(*note.relevanceScore) : QJsonValue();
    return QJsonObject{
        {QStringLiteral("id"), toJson(note.id)},
        {QStringLiteral("fileName"), note.fileName},
        {QStringLiteral("filePath"), note.filePath},
        {QStringLiteral("fileURL"), note.fileURL.toString(QUrl::FullyEncoded)},
        {QStringLiteral("snippet"), toJson(note.snippet)},
        {QStringLiteral("relevanceScore"), score},
        {QStringLiteral("isFullTextResult"), note.isFullTextResult},
    };
}

} // namespace jotwell
