#include "Models/ObsidianTemplateJson.h"

#include "Models/Uuid.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace jotwell {

namespace {

const QString regularKey = QStringLiteral("regular");
const QString syncedKey = QStringLiteral("synced");
const QString filePathKey = QStringLiteral("filePath");

DecodingError missing(QStringView member, QStringView type)
{
    return {QStringLiteral("\"%1\" is missing or is no %2.").arg(member, type)};
}

QJsonObject typeToJson(const TemplateType& type)
{
    if (const auto& path = type.filePath())
        return {{syncedKey, QJsonObject{{filePathKey, *path}}}};
    return {{regularKey, QJsonObject()}};
}

Result<QJsonDocument, DecodingError> parsed(const QByteArray& json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError)
        return DecodingError{error.errorString()};
    return document;
}

} // namespace

Result<TemplateType, DecodingError> templateTypeFromJson(const QJsonValue& json)
{
    if (!json.isObject())
        return missing(u"type", u"object");
    const QJsonObject object = json.toObject();
    if (object.contains(regularKey) == object.contains(syncedKey))
        return DecodingError{QStringLiteral("Invalid number of keys found, expected one.")};
    const QString kind = object.contains(regularKey) ? regularKey : syncedKey;
    if (!object.value(kind).isObject())
        return missing(kind, u"object");
    if (kind == regularKey)
        return TemplateType::regular();
    const QJsonValue path = object.value(kind).toObject().value(filePathKey);
    if (!path.isString())
        return missing(filePathKey, u"string");
    return TemplateType::synced(path.toString());
}

Result<ObsidianTemplate, DecodingError> templateFromJson(const QJsonValue& json)
{
    if (!json.isObject())
        return DecodingError{QStringLiteral("A template must be an object.")};
    const QJsonObject object = json.toObject();
    const auto id = uuidFromString(object.value(u"id").toString());
    if (!id)
        return missing(u"id", u"UUID");
    for (const QStringView member : {u"name", u"content"}) {
        if (!object.value(member).isString())
            return missing(member, u"string");
    }
    if (!object.value(u"showInDropdown").isBool())
        return missing(u"showInDropdown", u"boolean");
    const auto type = templateTypeFromJson(object.value(u"type"));
    if (!type)
        return type.error();
    return ObsidianTemplate{*id, object.value(u"name").toString(),
                            object.value(u"content").toString(),
                            object.value(u"showInDropdown").toBool(), *type};
}

QJsonObject templateToJson(const ObsidianTemplate& value)
{
    return {{QStringLiteral("id"), uuidString(value.id)},
            {QStringLiteral("name"), value.name},
            {QStringLiteral("content"), value.content},
            {QStringLiteral("showInDropdown"), value.showInDropdown},
            {QStringLiteral("type"), typeToJson(value.type)}};
}

Result<ObsidianTemplate, DecodingError> decodeTemplate(const QByteArray& json)
{
    const auto document = parsed(json);
    if (!document)
        return document.error();
    return templateFromJson(document->object());
}

Result<ObsidianTemplates, DecodingError> decodeTemplates(const QByteArray& json)
{
    const auto document = parsed(json);
    if (!document)
        return document.error();
    if (!document->isArray())
        return DecodingError{QStringLiteral("The templates must be an array.")};
    ObsidianTemplates templates;
    for (const auto each : document->array()) {
        const auto decoded = templateFromJson(each);
        if (!decoded)
            return decoded.error();
        templates.append(*decoded);
    }
    return templates;
}

QByteArray encodeTemplate(const ObsidianTemplate& value)
{
    return QJsonDocument(templateToJson(value)).toJson(QJsonDocument::Compact);
}

QByteArray encodeTemplates(const ObsidianTemplates& values)
{
    QJsonArray array;
    for (const ObsidianTemplate& each : values)
        array.append(templateToJson(each));
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

} // namespace jotwell
