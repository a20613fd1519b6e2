#include "Services/SettingsService.h"

#include "Fakes/FakeDefaultsStore.h"
#include "QtPrinters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ValueType = DefaultsStore::ValueType;

ObsidianTemplates builtIns()
{
    return {ObsidianTemplate::defaultTemplate(), ObsidianTemplate::meetingTemplate(),
            ObsidianTemplate::dailyTemplate()};
}

class SettingsServiceTest : public testing::Test {
protected:
    FakeDefaultsStore m_defaults;
    ObsidianTemplates m_synced;
    SettingsService m_settings{m_defaults, [this] { return m_synced; }};
};

TEST_F(SettingsServiceTest, EmptyStoreReadsAsTheDefaults)
{
    EXPECT_EQ(m_settings.obsidianFolderPath(), QString());
    EXPECT_EQ(m_settings.templatesFolderPath(), QString());
    EXPECT_EQ(m_settings.obsidianTemplates(), builtIns());
    EXPECT_EQ(m_settings.lastUsedTemplateId(), std::nullopt);
    EXPECT_THAT(m_settings.getSyncedTemplatePreferences(), IsEmpty());
    EXPECT_EQ(m_settings.obsidianTemplate(),
              u"# {{title}}\n\n{{content}}\n\n---\nCreated: {{date}}"_qs);
    EXPECT_EQ(m_settings.recentFilesCount(), 10);
    EXPECT_EQ(m_settings.globalHotkeyCode(), 11);
    EXPECT_EQ(m_settings.globalHotkeyModifiers(), 1572864U);
    EXPECT_FALSE(m_settings.onboardingCompleted());
    EXPECT_EQ(m_settings.getLastUsedTemplate().name, u"Default"_qs);
    EXPECT_TRUE(m_settings.getSyncedTemplateShowInDropdown(QUuid::createUuid()));
}

TEST_F(SettingsServiceTest, ReadingWritesNothing)
{
    static_cast<void>(m_settings.obsidianTemplates());
    static_cast<void>(m_settings.getLastUsedTemplate());
    static_cast<void>(m_settings.obsidianTemplate());
    static_cast<void>(m_settings.recentFilesCount());
    static_cast<void>(m_settings.globalHotkeyCode());
    static_cast<void>(m_settings.globalHotkeyModifiers());
    static_cast<void>(m_settings.getSyncedTemplateShowInDropdown(QUuid::createUuid()));
    EXPECT_THAT(m_defaults.keys(), IsEmpty());
}

struct KeyRow {
    const char* name;
    QString key;
    void (*write)(SettingsService&);
    ValueType type;
    QString stored;
};

class SettingKey : public SettingsServiceTest, public testing::WithParamInterface<KeyRow> {
protected:
    [[nodiscard]] QString stored(const QString& key) const
    {
        if (const auto data = m_defaults.data(key))
            return QString::fromUtf8(*data);
        return m_defaults.string(key).value_or(u"nothing"_qs);
    }
};

const QString uuidText = u"E621E1F8-C36C-495A-93FC-0C247A3E6E5F"_qs;
const QUuid uuid = QUuid::fromString(uuidText);

const KeyRow keyRows[] = {
    {"ObsidianFolderPath", u"ObsidianFolderPath"_qs,
     [](SettingsService& it) { it.setObsidianFolderPath(u"/vault"_qs); }, ValueType::string,
     u"/vault"_qs},
    {"TemplatesFolderPath", u"TemplatesFolderPath"_qs,
     [](SettingsService& it) { it.setTemplatesFolderPath(u"/templates"_qs); }, ValueType::string,
     u"/templates"_qs},
    {"ObsidianTemplates", u"ObsidianTemplates"_qs,
     [](SettingsService& it) { it.setObsidianTemplates({}); }, ValueType::data, u"[]"_qs},
    {"LastUsedTemplateId", u"LastUsedTemplateId"_qs,
     [](SettingsService& it) { it.setLastUsedTemplateId(uuid); }, ValueType::string, uuidText},
    {"SyncedTemplatePreferences", u"SyncedTemplatePreferences"_qs,
     [](SettingsService& it) { it.setSyncedTemplateShowInDropdown(uuid, false); }, ValueType::data,
     u"{\""_qs + uuidText + u"\":false}"_qs},
    {"ObsidianTemplate", u"ObsidianTemplate"_qs,
     [](SettingsService& it) { it.setObsidianTemplate(u"{{title}}"_qs); }, ValueType::string,
     u"{{title}}"_qs},
    {"RecentFilesCount", u"RecentFilesCount"_qs,
     [](SettingsService& it) { it.setRecentFilesCount(25); }, ValueType::integer, u"25"_qs},
    {"GlobalHotkeyCode", u"GlobalHotkeyCode"_qs,
     [](SettingsService& it) { it.setGlobalHotkeyCode(36); }, ValueType::integer, u"36"_qs},
    {"GlobalHotkeyModifiers", u"GlobalHotkeyModifiers"_qs,
     [](SettingsService& it) { it.setGlobalHotkeyModifiers(0x1e0000); }, ValueType::integer,
     u"1966080"_qs},
    {"OnboardingCompleted", u"OnboardingCompleted"_qs,
     [](SettingsService& it) { it.setOnboardingCompleted(true); }, ValueType::boolean, u"true"_qs},
};

TEST_P(SettingKey, HoldsItsTypeUnderItsName)
{
    const KeyRow& row = GetParam();
    row.write(m_settings);
    EXPECT_THAT(m_defaults.keys(), ElementsAre(row.key));
    EXPECT_EQ(m_defaults.storedType(row.key), row.type);
    EXPECT_EQ(stored(row.key), row.stored);
}

INSTANTIATE_TEST_SUITE_P(Rows, SettingKey, testing::ValuesIn(keyRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(SettingsServiceTest, WhatIsWrittenIsRead)
{
    m_settings.setObsidianFolderPath(u"/vault"_qs);
    m_settings.setTemplatesFolderPath(u"/templates"_qs);
    m_settings.setObsidianTemplate(u"{{title}}"_qs);
    m_settings.setRecentFilesCount(25);
    m_settings.setGlobalHotkeyCode(36);
    m_settings.setGlobalHotkeyModifiers(0x20000);
    m_settings.setOnboardingCompleted(true);
    EXPECT_EQ(m_settings.obsidianFolderPath(), u"/vault"_qs);
    EXPECT_EQ(m_settings.templatesFolderPath(), u"/templates"_qs);
    EXPECT_EQ(m_settings.obsidianTemplate(), u"{{title}}"_qs);
    EXPECT_EQ(m_settings.recentFilesCount(), 25);
    EXPECT_EQ(m_settings.globalHotkeyCode(), 36);
    EXPECT_EQ(m_settings.globalHotkeyModifiers(), 0x20000U);
    EXPECT_TRUE(m_settings.onboardingCompleted());
    m_settings.setOnboardingCompleted(false);
    EXPECT_FALSE(m_settings.onboardingCompleted());
}

TEST_F(SettingsServiceTest, NothingIsKeptBesideTheStore)
{
    EXPECT_EQ(m_settings.recentFilesCount(), 10);
    m_defaults.setInteger(u"RecentFilesCount"_qs, 4);
    EXPECT_EQ(m_settings.recentFilesCount(), 4);
    m_defaults.setString(u"ObsidianFolderPath"_qs, u"/elsewhere"_qs);
    EXPECT_EQ(m_settings.obsidianFolderPath(), u"/elsewhere"_qs);
}

TEST_F(SettingsServiceTest, NoPathRemovesTheKey)
{
    m_settings.setObsidianFolderPath(u"/vault"_qs);
    m_settings.setTemplatesFolderPath(u"/templates"_qs);
    m_settings.setObsidianFolderPath(std::nullopt);
    m_settings.setTemplatesFolderPath(std::nullopt);
    EXPECT_THAT(m_defaults.keys(), IsEmpty());
}

TEST_F(SettingsServiceTest, EmptyTextOfTheOldTemplateIsNoDefault)
{
    m_settings.setObsidianTemplate(QString());
    EXPECT_EQ(m_settings.obsidianTemplate(), QString());
}

TEST_F(SettingsServiceTest, NumbersBelowOneReadAsTheDefault)
{
    for (const qint64 stored : {qint64(0), qint64(-1), std::numeric_limits<qint64>::min()}) {
        m_settings.setRecentFilesCount(stored);
        m_settings.setGlobalHotkeyCode(stored);
        m_settings.setGlobalHotkeyModifiers(static_cast<quint64>(stored));
        EXPECT_EQ(m_settings.recentFilesCount(), 10) << stored;
        EXPECT_EQ(m_settings.globalHotkeyCode(), 11) << stored;
        EXPECT_EQ(m_settings.globalHotkeyModifiers(), 1572864U) << stored;
        EXPECT_EQ(m_defaults.integer(u"RecentFilesCount"_qs), stored);
    }
}

TEST_F(SettingsServiceTest, OneIsTheLeastNumber)
{
    m_settings.setRecentFilesCount(1);
    m_settings.setGlobalHotkeyCode(1);
    m_settings.setGlobalHotkeyModifiers(1);
    EXPECT_EQ(m_settings.recentFilesCount(), 1);
    EXPECT_EQ(m_settings.globalHotkeyCode(), 1);
    EXPECT_EQ(m_settings.globalHotkeyModifiers(), 1U);
}

} // namespace

} // namespace jotwell
