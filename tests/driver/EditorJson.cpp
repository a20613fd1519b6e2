#include "driver/EditorJson.h"

#include <QJsonObject>

namespace jotwell {

namespace {

QString nameOf(FontWeight weight)
{
    switch (weight) {
    case FontWeight::regular:
        return QStringLiteral("regular");
    case FontWeight::medium:
        return QStringLiteral("medium");
    case FontWeight::bold:
        return QStringLiteral("bold");
    }
    Q_UNREACHABLE();
}

QString nameOf(TextColor color)
{
    switch (color) {
    case TextColor::text:
        return QStringLiteral("textColor");
    case TextColor::systemBlue:
        return QStringLiteral("systemBlue");
    case TextColor::systemGreen:
        return QStringLiteral("systemGreen");
    case TextColor::black:
        return QStringLiteral("black");
    }
    Q_UNREACHABLE();
}

QJsonValue fontJson(const FontStyle& font)
{
    const bool isSystem = font.family == FontFamily::system;
    return QJsonObject{
        {QStringLiteral("family"),
         isSystem ? QStringLiteral("system") : QStringLiteral("monospaced")},
        {QStringLiteral("size"), font.size},
        {QStringLiteral("weight"), nameOf(font.weight)},
        {QStringLiteral("italic"), font.italic},
    };
}

} // namespace

template <>
std::optional<CurrentEvent> fromJson(const QJsonValue& json)
{
    const auto type = fromJson<int>(json[u"type"]);
    const auto keyCode = fromJson<int>(json[u"keyCode"]);
    const auto modifierFlags = fromJson<qint64>(json[u"modifierFlags"]);
    if (!type || !keyCode || !modifierFlags)
        return std::nullopt;
    return CurrentEvent{*type, *keyCode, static_cast<quint64>(*modifierFlags)};
}

QJsonValue toJson(const TextAttributes& attributes)
{
    QJsonObject all;
    if (attributes.font != FontStyle())
        all.insert(QStringLiteral("font"), fontJson(attributes.font));
    if (attributes.color != TextColor::text)
        all.insert(QStringLiteral("color"), nameOf(attributes.color));
    if (attributes.isExpanded)
        all.insert(QStringLiteral("expansion"), 0.05);
    if (attributes.isUnderlined)
        all.insert(QStringLiteral("underline"), 1);
    if (attributes.isStruckThrough)
        all.insert(QStringLiteral("strikethrough"), 1);
    return all;
}

QJsonValue toJson(const std::vector<AttributeRun>& runs)
{
    QJsonArray array;
    for (const AttributeRun& each : runs) {
        QJsonObject run = toJson(each.range).toObject();
        run.insert(QStringLiteral("attributes"), toJson(each.attributes));
        array.append(run);
    }
    return array;
}

} // namespace jotwell
