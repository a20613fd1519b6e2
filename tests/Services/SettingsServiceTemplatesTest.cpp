#include "Services/SettingsService.h"

#include "Fakes/FakeDefaultsStore.h"
#include "Models/ObsidianTemplateJson.h"
#include "QtPrinters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace jotwell {

namespace {

using testing::IsEmpty;

const QString uuidText = u"E621E1F8-C36C-495A-93FC-0C247A3E6E5F"_qs;
const QUuid uuid = QUuid::fromString(uuidText);

ObsidianTemplate templateNamed(const QString& name, bool isShown = true)
{
    return {QUuid::createUuid(), name, u"{{content}}"_qs, isShown, TemplateType::regular()};
}

ObsidianTemplate syncedNamed(const QString& name, bool isShown = true)
{
    return {QUuid::createUuid(), name, u"{{content}}"_qs, isShown,
            TemplateType::synced(u"/templates/"_qs + name)};
}

ObsidianTemplates builtIns()
{
    return {ObsidianTemplate::defaultTemplate(), ObsidianTemplate::meetingTemplate(),
            ObsidianTemplate::dailyTemplate()};
}

class TemplateSettings : public testing::Test {
protected:
    FakeDefaultsStore m_defaults;
    ObsidianTemplates m_synced;
    SettingsService m_settings{m_defaults, [this] { return m_synced; }};
};

TEST_F(TemplateSettings, TemplatesAreReadInTheirOrder)
{
    const ObsidianTemplates templates{templateNamed(u"b"_qs), templateNamed(u"a"_qs, false)};
    m_settings.setObsidianTemplates(templates);
    EXPECT_EQ(m_settings.obsidianTemplates(), templates);
}

TEST_F(TemplateSettings, EmptyListOfTemplatesIsNotTheBuiltIns)
{
    m_defaults.setData(u"ObsidianTemplates"_qs, "[]");
    EXPECT_THAT(m_settings.obsidianTemplates(), IsEmpty());
    EXPECT_EQ(m_settings.getLastUsedTemplate(), ObsidianTemplate::defaultTemplate());
}

struct BrokenRow {
    const char* name;
    QByteArray stored;
};

class BrokenTemplates : public TemplateSettings, public testing::WithParamInterface<BrokenRow> {};

const BrokenRow brokenRows[] = {
    {"NoBytes", ""},
    {"NoJson", "no JSON"},
    {"NoArray", "{}"},
    {"CutShort", R"([{"id":"E621E1F8-C36C-495A-93FC-0C247A3E6E5F","name":"a","content":"",)"},
    {"OneWithoutType", R"([
        {"id":"E621E1F8-C36C-495A-93FC-0C247A3E6E5F","name":"a","content":"",
         "showInDropdown":true,"type":{"regular":{}}},
        {"id":"E621E1F8-C36C-495A-93FC-0C247A3E6E5E","name":"b","content":"",
         "showInDropdown":true}])"},
};

TEST_P(BrokenTemplates, ReadAsTheBuiltInsAndStayStored)
{
    m_defaults.setData(u"ObsidianTemplates"_qs, GetParam().stored);
    EXPECT_EQ(m_settings.obsidianTemplates(), builtIns());
    EXPECT_EQ(m_defaults.data(u"ObsidianTemplates"_qs), GetParam().stored);
}

INSTANTIATE_TEST_SUITE_P(Rows, BrokenTemplates, testing::ValuesIn(brokenRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(TemplateSettings, SyncedTemplatesAreNotStored)
{
    const ObsidianTemplate first = templateNamed(u"a"_qs);
    const ObsidianTemplate last = templateNamed(u"c"_qs);
    m_settings.setObsidianTemplates({first, syncedNamed(u"b"_qs), last});
    EXPECT_EQ(m_settings.obsidianTemplates(), (ObsidianTemplates{first, last}));
    EXPECT_FALSE(m_defaults.data(u"ObsidianTemplates"_qs)->contains("synced"));
}

TEST_F(TemplateSettings, SyncedTemplateThatSomethingElseStoredIsRead)
{
    const ObsidianTemplates stored{syncedNamed(u"a"_qs)};
    m_defaults.setData(u"ObsidianTemplates"_qs, encodeTemplates(stored));
    EXPECT_EQ(m_settings.obsidianTemplates(), stored);
}

TEST_F(TemplateSettings, WhatSomethingElseStoresIsReadAtOnce)
{
    m_settings.setObsidianTemplates({templateNamed(u"a"_qs)});
    EXPECT_EQ(m_settings.obsidianTemplates().first().name, u"a"_qs);
    m_defaults.setData(u"ObsidianTemplates"_qs, encodeTemplates({templateNamed(u"b"_qs)}));
    EXPECT_EQ(m_settings.obsidianTemplates().first().name, u"b"_qs);
    m_defaults.setData(u"ObsidianTemplates"_qs, "no JSON");
    EXPECT_EQ(m_settings.obsidianTemplates(), builtIns());
    m_defaults.remove(u"ObsidianTemplates"_qs);
    EXPECT_EQ(m_settings.obsidianTemplates(), builtIns());
}

TEST_F(TemplateSettings, TemplatesAreDecodedOnce)
{
    m_settings.setObsidianTemplates({templateNamed(u"a"_qs)});
    const ObsidianTemplates first = m_settings.obsidianTemplates();
    const ObsidianTemplates second = m_settings.obsidianTemplates();
    EXPECT_EQ(first.constData(), second.constData());
}

TEST_F(TemplateSettings, AllTemplatesAreTheRegularOnesAndThenTheSynced)
{
    const ObsidianTemplates regular{templateNamed(u"b"_qs), templateNamed(u"a"_qs)};
    m_settings.setObsidianTemplates(regular);
    m_synced = {syncedNamed(u"b"_qs), regular.first()};
    EXPECT_EQ(m_settings.getAllTemplates(), regular + m_synced);
}

TEST_F(TemplateSettings, LastUsedTemplateIdIsStoredInUpperCase)
{
    m_settings.setLastUsedTemplateId(uuid);
    EXPECT_EQ(m_defaults.string(u"LastUsedTemplateId"_qs), uuidText);
    EXPECT_EQ(m_settings.lastUsedTemplateId(), uuid);
    m_defaults.setString(u"LastUsedTemplateId"_qs, uuidText.toLower());
    EXPECT_EQ(m_settings.lastUsedTemplateId(), uuid);
}

TEST_F(TemplateSettings, NoLastUsedTemplateRemovesTheKey)
{
    m_settings.setLastUsedTemplateId(uuid);
    m_settings.setLastUsedTemplateId(std::nullopt);
    EXPECT_THAT(m_defaults.keys(), IsEmpty());
    EXPECT_EQ(m_settings.lastUsedTemplateId(), std::nullopt);
}

TEST_F(TemplateSettings, TextThatIsNoUuidIsNoIdentifier)
{
    for (const QString& text : {QString(), u"Default"_qs, u'{' + uuidText + u'}'}) {
        m_defaults.setString(u"LastUsedTemplateId"_qs, text);
        EXPECT_EQ(m_settings.lastUsedTemplateId(), std::nullopt);
    }
}

class LastUsedTemplateTest : public TemplateSettings {
protected:
    [[nodiscard]] QString lastUsed() const { return m_settings.getLastUsedTemplate().name; }

    const ObsidianTemplate m_hidden = templateNamed(u"hidden"_qs, false);
    const ObsidianTemplate m_first = templateNamed(u"first"_qs);
    const ObsidianTemplate m_second = templateNamed(u"second"_qs);
};

TEST_F(LastUsedTemplateTest, IsTheOneWithTheIdentifier)
{
    m_settings.setObsidianTemplates({m_first, m_second});
    m_settings.setLastUsedTemplateId(m_second.id);
    EXPECT_EQ(m_settings.getLastUsedTemplate(), m_second);
}

TEST_F(LastUsedTemplateTest, MayBeASyncedOne)
{
    m_settings.setObsidianTemplates({m_first});
    m_synced = {syncedNamed(u"a"_qs), syncedNamed(u"b"_qs)};
    m_settings.setLastUsedTemplateId(m_synced.last().id);
    EXPECT_EQ(lastUsed(), u"b"_qs);
}

TEST_F(LastUsedTemplateTest, OfNoIdentifierIsTheFirstShown)
{
    m_settings.setObsidianTemplates({m_hidden, m_first, m_second});
    EXPECT_EQ(lastUsed(), u"first"_qs);
}

TEST_F(LastUsedTemplateTest, OfAnUnknownIdentifierIsTheFirstShown)
{
    m_settings.setObsidianTemplates({m_hidden, m_first, m_second});
    m_settings.setLastUsedTemplateId(QUuid::createUuid());
    EXPECT_EQ(lastUsed(), u"first"_qs);
}

TEST_F(LastUsedTemplateTest, ThatIsHiddenGivesTheFirstShown)
{
    m_settings.setObsidianTemplates({m_hidden, m_first, m_second});
    m_settings.setLastUsedTemplateId(m_hidden.id);
    EXPECT_EQ(lastUsed(), u"first"_qs);
}

TEST_F(LastUsedTemplateTest, FirstShownMayBeASyncedOne)
{
    m_settings.setObsidianTemplates({m_hidden});
    m_synced = {syncedNamed(u"a"_qs, false), syncedNamed(u"b"_qs)};
    EXPECT_EQ(lastUsed(), u"b"_qs);
}

TEST_F(LastUsedTemplateTest, WithAllHiddenIsTheFirstOfAll)
{
    ObsidianTemplate other = m_first;
    other.showInDropdown = false;
    m_settings.setObsidianTemplates({m_hidden, other});
    m_settings.setLastUsedTemplateId(other.id);
    EXPECT_EQ(lastUsed(), u"hidden"_qs);
}

TEST_F(LastUsedTemplateTest, OfNoTemplatesAtAllIsTheDefaultOne)
{
    m_settings.setObsidianTemplates({});
    EXPECT_EQ(m_settings.getLastUsedTemplate(), ObsidianTemplate::defaultTemplate());
}

TEST_F(TemplateSettings, PreferenceOfASyncedTemplateIsKept)
{
    const QUuid other = QUuid::createUuid();
    m_settings.setSyncedTemplateShowInDropdown(uuid, false);
    m_settings.setSyncedTemplateShowInDropdown(other, true);
    EXPECT_FALSE(m_settings.getSyncedTemplateShowInDropdown(uuid));
    EXPECT_TRUE(m_settings.getSyncedTemplateShowInDropdown(other));
    m_settings.setSyncedTemplateShowInDropdown(uuid, true);
    EXPECT_TRUE(m_settings.getSyncedTemplateShowInDropdown(uuid));
}

TEST_F(TemplateSettings, PreferencesAreNeverPruned)
{
    const QByteArray stored = R"({"a template that is gone":false})";
    m_defaults.setData(u"SyncedTemplatePreferences"_qs, stored);
    m_settings.setSyncedTemplateShowInDropdown(uuid, false);
    EXPECT_EQ(m_settings.getSyncedTemplatePreferences(),
              (QHash<QString, bool>{{u"a template that is gone"_qs, false}, {uuidText, false}}));
}

class BrokenPreferences : public TemplateSettings, public testing::WithParamInterface<BrokenRow> {};

const BrokenRow brokenPreferenceRows[] = {
    {"NoBytes", ""},
    {"NoJson", "no JSON"},
    {"NoObject", "[]"},
    {"CutShort", R"({"E621E1F8-C36C-495A-93FC-0C247A3E6E5F":false)"},
    {"OneIsNoBoolean", R"({"E621E1F8-C36C-495A-93FC-0C247A3E6E5F":false,"other":1})"},
};

TEST_P(BrokenPreferences, ReadAsNone)
{
    m_defaults.setData(u"SyncedTemplatePreferences"_qs, GetParam().stored);
    EXPECT_THAT(m_settings.getSyncedTemplatePreferences(), IsEmpty());
    EXPECT_TRUE(m_settings.getSyncedTemplateShowInDropdown(uuid));
}

INSTANTIATE_TEST_SUITE_P(Rows, BrokenPreferences, testing::ValuesIn(brokenPreferenceRows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

} // namespace jotwell
