#include "driver/Operations.h"

#include "Models/FolderItem.h"
#include "Models/HashtagItem.h"

namespace jotwell {

namespace {

void addTemplateOps(Operations& ops)
{
    using T = ObsidianTemplate;
    ops.add(u"ObsidianTemplate.builtins", {}, [] {
        return ObsidianTemplates{T::defaultTemplate(), T::meetingTemplate(), T::dailyTemplate()};
    });
    ops.add(u"ObsidianTemplate.decode", {u"json"},
            [](const QString& json) { return decodeTemplate(json.toUtf8()); });
    ops.add(u"ObsidianTemplate.decodeArray", {u"json"},
            [](const QString& json) { return decodeTemplates(json.toUtf8()); });
    ops.add(u"ObsidianTemplate.encode", {u"template"},
            [](const T& value) { return QString::fromUtf8(encodeTemplate(value)); });
    ops.add(u"ObsidianTemplate.encodeArray", {u"templates"}, [](const ObsidianTemplates& values) {
        return QString::fromUtf8(encodeTemplates(values));
    });
    ops.add(u"ObsidianTemplate.equal", {u"a", u"b"}, [](const T& a, const T& b) { return a == b; });
    ops.add(u"ObsidianTemplate.row", {u"template"}, [](const T& value) { return value.row(); });
    ops.add(u"TemplateType.info", {u"type"}, [](const TemplateType& type) { return type; });
    ops.add(u"TemplateType.equal", {u"a", u"b"},
            [](const TemplateType& a, const TemplateType& b) { return a == b; });
}

QList<DropdownItem> commandRows()
{
    QList<DropdownItem> rows;
    for (const Command each : allCommands)
        rows.append(row(each));
    return rows;
}

QJsonValue toastTypes()
{
    QJsonArray types;
    for (const ToastType each : allToastTypes)
        types.append(QJsonObject{{QStringLiteral("case"), toJson(each)},
                                 {QStringLiteral("color"), color(each)},
                                 {QStringLiteral("icon"), icon(each)},
                                 {QStringLiteral("iconColor"), iconColor(each)}});
    return types;
}

} // namespace

void addRecordOps(Operations& ops)
{
    addTemplateOps(ops);
    ops.add(u"Command.all", {}, [] { return commandRows(); });
    ops.add(u"Command.fromRawValue", {u"rawValue"},
            [](const QString& text) { return commandFromRawValue(text); });
    ops.add(u"FolderItem.row", {u"name"},
            [](const QString& name) { return FolderItem{name}.row(); });
    ops.add(u"HashtagItem.row", {u"tag", u"count"}, [](const QString& tag, int count) {
        return HashtagItem{tag, count}.row();
    });
    ops.add(u"ToastType.all", {}, [] { return toastTypes(); });
}

} // namespace jotwell
