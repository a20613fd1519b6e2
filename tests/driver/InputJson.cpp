#include "driver/InputJson.h"

#include "Models/Uuid.h"

namespace jotwell {

namespace {

// The records as the dump of the state has them.

QJsonValue valueOf(bool value)
{
    return value;
}

QJsonValue valueOf(const QString& text)
{
    return text;
}

QJsonValue valueOf(DropdownType type)
{
    switch (type) {
    case DropdownType::command:
        return QStringLiteral("command");
    case DropdownType::noteTemplate:
        return QStringLiteral("template");
    case DropdownType::folder:
        return QStringLiteral("folder");
    case DropdownType::hashtag:
        return QStringLiteral("hashtag");
    case DropdownType::none:
        return QStringLiteral("none");
    }
    Q_UNREACHABLE();
}

QJsonValue valueOf(Command command)
{
    return toJson(command);
}

QJsonValue valueOf(const ObsidianTemplate& value)
{
    return QJsonObject{{QStringLiteral("id"), toJson(value.id)},
                       {QStringLiteral("name"), value.name}};
}

QJsonValue valueOf(const FolderItem& folder)
{
    return folder.name;
}

QJsonValue valueOf(const HashtagItem& hashtag)
{
    return QJsonObject{{QStringLiteral("tag"), hashtag.tag},
                       {QStringLiteral("count"), hashtag.count}};
}

QJsonValue valueOf(const TextRange& range)
{
    return toJson(range);
}

template <typename T>
QJsonValue valueOf(const std::optional<T>& value)
{
    return value ? valueOf(*value) : QJsonValue();
}

template <typename T>
QJsonValue valueOf(const QList<T>& rows)
{
    QJsonArray array;
    for (const T& each : rows)
        array.append(valueOf(each));
    return array;
}

QJsonValue rowsOf(const QList<CommandTemplateState::Item>& items)
{
    QJsonArray rows;
    for (const auto& each : items)
        rows.append(toJson(Dropdown::row(each)));
    return rows;
}

struct NamedField {
    QString name;
    QJsonValue (*value)(const CommandTemplateFields& fields);
};

template <auto member>
NamedField named(const QString& name)
{
    return {name, [](const CommandTemplateFields& fields) { return valueOf(fields.*member); }};
}

// In the order of `CommandTemplateField`.
const std::vector<NamedField>& namedFields()
{
    using Fields = CommandTemplateFields;
    static const std::vector<NamedField> all{
        named<&Fields::showDropdown>(QStringLiteral("showDropdown")),
        named<&Fields::dropdownType>(QStringLiteral("dropdownType")),
        named<&Fields::selectedCommand>(QStringLiteral("selectedCommand")),
        named<&Fields::selectedTemplate>(QStringLiteral("selectedTemplate")),
        named<&Fields::filteredCommands>(QStringLiteral("filteredCommands")),
        named<&Fields::filteredTemplates>(QStringLiteral("filteredTemplates")),
        named<&Fields::filteredFolders>(QStringLiteral("filteredFolders")),
        named<&Fields::filteredHashtags>(QStringLiteral("filteredHashtags")),
        named<&Fields::clickedCommandRange>(QStringLiteral("clickedCommandRange")),
        named<&Fields::clickedTemplateRange>(QStringLiteral("clickedTemplateRange")),
        named<&Fields::clickedHashtagRange>(QStringLiteral("clickedHashtagRange")),
        named<&Fields::currentTemplate>(QStringLiteral("currentTemplate")),
        named<&Fields::currentFolderName>(QStringLiteral("currentFolderName")),
        named<&Fields::selectedHashtag>(QStringLiteral("selectedHashtag")),
        named<&Fields::text>(QStringLiteral("text")),
        named<&Fields::forceTextUpdate>(QStringLiteral("forceTextUpdate")),
        named<&Fields::selectedFolder>(QStringLiteral("selectedFolder"))};
    return all;
}

const NamedField& namedField(CommandTemplateField field)
{
    return namedFields().at(static_cast<std::size_t>(field));
}

template <typename T>
std::optional<CommandTemplateState::Item> itemOf(const std::optional<T>& value)
{
    return value ? std::optional<CommandTemplateState::Item>(*value) : std::nullopt;
}

std::optional<HashtagItem> hashtagFrom(const QJsonObject& json)
{
    const auto tag = fromJson<QString>(json.value(u"tag"));
    const auto count = fromJson<int>(json.value(u"count"));
    return tag && count ? std::optional(HashtagItem{*tag, *count}) : std::nullopt;
}

} // namespace

template <>
std::optional<TextRange> fromJson(const QJsonValue& json)
{
    const auto location = fromJson<qint64>(json.toObject().value(u"location"));
    const auto length = fromJson<qint64>(json.toObject().value(u"length"));
    return location && length ? std::optional(TextRange{*location, *length}) : std::nullopt;
}

template <>
std::optional<ArrowDirection> fromJson(const QJsonValue& json)
{
    if (json.toString() == u"up")
        return ArrowDirection::up;
    return json.toString() == u"down" ? std::optional(ArrowDirection::down) : std::nullopt;
}

template <>
std::optional<CommandTemplateState::Item> fromJson(const QJsonValue& json)
{
    const QJsonObject object = json.toObject();
    if (object.contains(u"command"))
        return itemOf(fromJson<Command>(object.value(u"command")));
    if (object.contains(u"template"))
        return itemOf(fromJson<ObsidianTemplate>(object.value(u"template")));
    if (object.contains(u"hashtag"))
        return itemOf(hashtagFrom(object.value(u"hashtag").toObject()));
    const auto folder = fromJson<QString>(object.value(u"folder"));
    return folder ? itemOf(std::optional(FolderItem{*folder})) : std::nullopt;
}

QJsonValue toJson(const TextRange& range)
{
    return QJsonObject{{QStringLiteral("location"), range.location},
                       {QStringLiteral("length"), range.length}};
}

QJsonValue toJson(const std::vector<TextRange>& ranges)
{
    QJsonArray array;
    for (const TextRange& each : ranges)
        array.append(toJson(each));
    return array;
}

QJsonValue toJson(ArrowDirection direction)
{
    return direction == ArrowDirection::up ? QStringLiteral("up") : QStringLiteral("down");
}

QString nameOf(CommandTemplateField field)
{
    return namedField(field).name;
}

QJsonValue toJson(const CommandTemplateFields& fields, CommandTemplateField field)
{
    return namedField(field).value(fields);
}

QJsonObject toJson(const CommandTemplateState& state)
{
    QJsonObject dump;
    for (const NamedField& each : namedFields())
        dump.insert(each.name, each.value(state.fields()));
    const auto query = state.searchQuery();
    const auto selected = state.selectedItem();
    dump.insert(QStringLiteral("searchTimerLive"), query.has_value());
    dump.insert(QStringLiteral("searchQuery"), toJson(query));
    dump.insert(QStringLiteral("dropdownItems"), rowsOf(state.dropdownItems()));
    dump.insert(QStringLiteral("selectedItem"),
                selected ? toJson(Dropdown::row(*selected)) : QJsonValue());
    return dump;
}

} // namespace jotwell
