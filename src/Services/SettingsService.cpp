#include "Services/SettingsService.h"

#include "Models/ObsidianTemplateJson.h"
#include "Models/Uuid.h"
#include "Platform/DefaultsStore.h"
#include "Platform/KeyEvent.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace jotwell {

namespace {

namespace Key {
const QString obsidianFolderPath = QStringLiteral("ObsidianFolderPath");
const QString templatesFolderPath = QStringLiteral("TemplatesFolderPath");
const QString obsidianTemplates = QStringLiteral("ObsidianTemplates");
const QString lastUsedTemplateId = QStringLiteral("LastUsedTemplateId");
const QString syncedTemplatePreferences = QStringLiteral("SyncedTemplatePreferences");
const QString obsidianTemplate = QStringLiteral("ObsidianTemplate");
const QString recentFilesCount = QStringLiteral("RecentFilesCount");
const QString globalHotkeyCode = QStringLiteral("GlobalHotkeyCode");
const QString globalHotkeyModifiers = QStringLiteral("GlobalHotkeyModifiers");
const QString onboardingCompleted = QStringLiteral("OnboardingCompleted");
} // namespace Key

constexpr qint64 defaultRecentFilesCount = 10;

} // namespace

SettingsService::SettingsService(DefaultsStore& defaults, TemplateSource syncedTemplates)
    : m_defaults(defaults), m_syncedTemplates(std::move(syncedTemplates))
{
}

QString SettingsService::obsidianFolderPath() const
{
    return m_defaults.string(Key::obsidianFolderPath).value_or(QString());
}

void SettingsService::setObsidianFolderPath(const std::optional<QString>& path)
{
    m_defaults.setString(Key::obsidianFolderPath, path);
}

QString SettingsService::templatesFolderPath() const
{
    return m_defaults.string(Key::templatesFolderPath).value_or(QString());
}

void SettingsService::setTemplatesFolderPath(const std::optional<QString>& path)
{
    m_defaults.setString(Key::templatesFolderPath, path);
}

QString SettingsService::obsidianTemplate() const
{
    return m_defaults.string(Key::obsidianTemplate)
        .value_or(ObsidianTemplate::defaultTemplate().content);
}

void SettingsService::setObsidianTemplate(const QString& text)
{
    m_defaults.setString(Key::obsidianTemplate, text);
}

qint64 SettingsService::recentFilesCount() const
{
    return positiveInteger(Key::recentFilesCount, defaultRecentFilesCount);
}

void SettingsService::setRecentFilesCount(qint64 count)
{
    m_defaults.setInteger(Key::recentFilesCount, count);
}

qint64 SettingsService::globalHotkeyCode() const
{
    return positiveInteger(Key::globalHotkeyCode, defaultHotkey.keyCode);
}

void SettingsService::setGlobalHotkeyCode(qint64 code)
{
    m_defaults.setInteger(Key::globalHotkeyCode, code);
}

quint64 SettingsService::globalHotkeyModifiers() const
{
    return static_cast<quint64>(
        positiveInteger(Key::globalHotkeyModifiers, defaultHotkey.modifiers));
}

void SettingsService::setGlobalHotkeyModifiers(quint64 modifiers)
{
    m_defaults.setInteger(Key::globalHotkeyModifiers, static_cast<qint64>(modifiers));
}

bool SettingsService::onboardingCompleted() const
{
    return m_defaults.boolean(Key::onboardingCompleted);
}

void SettingsService::setOnboardingCompleted(bool completed)
{
    m_defaults.setBoolean(Key::onboardingCompleted, completed);
}

ObsidianTemplates SettingsService::obsidianTemplates() const
{
    if (const auto stored = m_defaults.data(Key::obsidianTemplates)) {
        if (auto templates = m_decodedTemplates.of(*stored))
            return *std::move(templates);
    }
    return {ObsidianTemplate::defaultTemplate(), ObsidianTemplate::meetingTemplate(),
            ObsidianTemplate::dailyTemplate()};
}

void SettingsService::setObsidianTemplates(const ObsidianTemplates& templates)
{
    ObsidianTemplates regular;
    std::copy_if(templates.begin(), templates.end(), std::back_inserter(regular),
                 [](const ObsidianTemplate& each) { return !each.type.isSynced(); });
    m_defaults.setData(Key::obsidianTemplates, encodeTemplates(regular));
}

std::optional<QUuid> SettingsService::lastUsedTemplateId() const
{
    const auto stored = m_defaults.string(Key::lastUsedTemplateId);
    return stored ? uuidFromString(*stored) : std::nullopt;
}

void SettingsService::setLastUsedTemplateId(const std::optional<QUuid>& id)
{
    m_defaults.setString(Key::lastUsedTemplateId,
                         id ? std::optional(uuidString(*id)) : std::nullopt);
}

ObsidianTemplates SettingsService::getAllTemplates() const
{
    return obsidianTemplates() + m_syncedTemplates();
}

ObsidianTemplate SettingsService::getLastUsedTemplate() const
{
    const ObsidianTemplates all = getAllTemplates();
    const auto isShown = [](const ObsidianTemplate& each) { return each.showInDropdown; };
    if (const auto last = lastUsedTemplateId()) {
        const auto found = std::find_if(all.begin(), all.end(), [&](const ObsidianTemplate& each) {
            return isShown(each) && each.id == *last;
        });
        if (found != all.end())
            return *found;
    }
    const auto firstShown = std::find_if(all.begin(), all.end(), isShown);
    if (firstShown != all.end())
        return *firstShown;
    return all.isEmpty() ? ObsidianTemplate::defaultTemplate() : all.first();
}

QHash<QString, bool> SettingsService::getSyncedTemplatePreferences() const
{
    const QByteArray stored =
        m_defaults.data(Key::syncedTemplatePreferences).value_or(QByteArray());
    const QJsonObject object = QJsonDocument::fromJson(stored).object();
    QHash<QString, bool> preferences;
    for (auto each = object.begin(); each != object.end(); ++each) {
        if (!each.value().isBool())
            return {};
        preferences.insert(each.key(), each.value().toBool());
    }
    return preferences;
}

void SettingsService::saveSyncedTemplatePreferences(const QHash<QString, bool>& preferences)
{
    QJsonObject object;
    for (auto each = preferences.begin(); each != preferences.end(); ++each)
        object.insert(each.key(), each.value());
    m_defaults.setData(Key::syncedTemplatePreferences,
                       QJsonDocument(object).toJson(QJsonDocument::Compact));
}

bool SettingsService::getSyncedTemplateShowInDropdown(const QUuid& templateId) const
{
    return getSyncedTemplatePreferences().value(uuidString(templateId), true);
}

void SettingsService::setSyncedTemplateShowInDropdown(const QUuid& templateId, bool showInDropdown)
{
    QHash<QString, bool> preferences = getSyncedTemplatePreferences();
    preferences.insert(uuidString(templateId), showInDropdown);
    saveSyncedTemplatePreferences(preferences);
}

void SettingsService::synchronize()
{
    m_defaults.synchronize();
}

qint64 SettingsService::positiveInteger(const QString& key, qint64 otherwise) const
{
    const qint64 stored = m_defaults.integer(key);
    return stored < 1 ? otherwise : stored;
}

} // namespace jotwell
