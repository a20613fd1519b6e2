#include "driver/Operations.h"

#include "Services/SettingsService.h"

namespace jotwell {

namespace {

/// One property of the settings: how it is read, and how the argument `value` is written.
struct Property {
    std::function<QJsonValue(const SettingsService&)> get;
    Operation set;
};

template <typename Value, typename Given>
Property property(Value (SettingsService::*get)() const, void (SettingsService::*set)(Given))
{
    return {[get](const SettingsService& settings) { return toJson((settings.*get)()); },
            operation({u"value"}, [set](const std::decay_t<Given>& value) {
                (SettingsService::shared().*set)(value);
            })};
}

// A path that isn't set is a null string, one that is set to nothing an empty one.
Property pathProperty(QString (SettingsService::*get)() const,
                      void (SettingsService::*set)(const std::optional<QString>&))
{
    Property path = property(get, set);
    path.get = [get](const SettingsService& settings) {
        const QString value = (settings.*get)();
        return value.isNull() ? QJsonValue() : toJson(value);
    };
    return path;
}

Property modifiersProperty()
{
    return {[](const SettingsService& settings) {
                return toJson(static_cast<qint64>(settings.globalHotkeyModifiers()));
            },
            operation({u"value"}, [](qint64 value) {
                SettingsService::shared().setGlobalHotkeyModifiers(static_cast<quint64>(value));
            })};
}

std::map<QString, Property> allProperties()
{
    using S = SettingsService;
    return {
        {QStringLiteral("obsidianFolderPath"),
         pathProperty(&S::obsidianFolderPath, &S::setObsidianFolderPath)},
        {QStringLiteral("templatesFolderPath"),
         pathProperty(&S::templatesFolderPath, &S::setTemplatesFolderPath)},
        {QStringLiteral("obsidianTemplate"),
         property(&S::obsidianTemplate, &S::setObsidianTemplate)},
        {QStringLiteral("recentFilesCount"),
         property(&S::recentFilesCount, &S::setRecentFilesCount)},
        {QStringLiteral("globalHotkeyCode"),
         property(&S::globalHotkeyCode, &S::setGlobalHotkeyCode)},
        {QStringLiteral("globalHotkeyModifiers"), modifiersProperty()},
        {QStringLiteral("onboardingCompleted"),
         property(&S::onboardingCompleted, &S::setOnboardingCompleted)},
        {QStringLiteral("obsidianTemplates"),
         property(&S::obsidianTemplates, &S::setObsidianTemplates)},
        {QStringLiteral("lastUsedTemplateId"),
         property(&S::lastUsedTemplateId, &S::setLastUsedTemplateId)},
    };
}

/// An op on the property that its argument names.
template <typename Use>
Operation propertyOp(Use use)
{
    return [use, properties = allProperties()](const QJsonObject& arguments) -> Answer {
        const auto found = properties.find(arguments.value(u"property").toString());
        if (found == properties.end())
            return badRequest(QStringLiteral("\"property\" is missing or names none"));
        return use(found->second, arguments);
    };
}

void addPropertyOps(Operations& ops)
{
    ops.add(u"SettingsService.get", propertyOp([](const Property& property, const QJsonObject&) {
                return property.get(SettingsService::shared());
            }));
    ops.add(u"SettingsService.set",
            propertyOp([](const Property& property, const QJsonObject& arguments) {
                return property.set(arguments);
            }));
}

} // namespace

void addSettingsOps(Operations& ops)
{
    addPropertyOps(ops);
    ops.add(u"SettingsService.getAllTemplates", {},
            [] { return SettingsService::shared().getAllTemplates(); });
    ops.add(u"SettingsService.getLastUsedTemplate", {},
            [] { return SettingsService::shared().getLastUsedTemplate(); });
    ops.add(u"SettingsService.getSyncedTemplatePreferences", {},
            [] { return SettingsService::shared().getSyncedTemplatePreferences(); });
    ops.add(u"SettingsService.saveSyncedTemplatePreferences", {u"preferences"},
            [](const QHash<QString, bool>& preferences) {
                SettingsService::shared().saveSyncedTemplatePreferences(preferences);
            });
    ops.add(u"SettingsService.getSyncedTemplateShowInDropdown", {u"templateId"},
            [](const QUuid& id) {
                return SettingsService::shared().getSyncedTemplateShowInDropdown(id);
            });
    ops.add(u"SettingsService.setSyncedTemplateShowInDropdown", {u"templateId", u"showInDropdown"},
            [](const QUuid& id, bool isShown) {
                SettingsService::shared().setSyncedTemplateShowInDropdown(id, isShown);
            });
}

} // namespace jotwell
