#include "Models/ObsidianTemplate.h"

#include "QtPrinters.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

struct BuiltInRow {
    const char* rule;
    const ObsidianTemplate& (*builtIn)();
    QString name;
    QString content;
};

class BuiltInTemplate : public testing::TestWithParam<BuiltInRow> {};

const BuiltInRow builtInRows[] = {
    {"Default", &ObsidianTemplate::defaultTemplate, u"Default"_qs,
     u"# {{title}}\n\n{{content}}\n\n---\nCreated: {{date}}"_qs},
    {"Meeting", &ObsidianTemplate::meetingTemplate, u"Meeting"_qs,
     u"# Meeting: {{title}}\n\n**Date:** {{date}}\n\n## Attendees\n- \n\n## Agenda\n\n"
     u"## Notes\n{{content}}\n\n## Action Items\n- [ ] "_qs},
    {"DailyNote", &ObsidianTemplate::dailyTemplate, u"Daily Note"_qs,
     u"# Daily Note - {{date}}\n\n## Today's Focus\n{{title}}\n\n## Notes\n{{content}}\n\n"
     u"## Gratitude\n- \n\n## Tomorrow\n- "_qs},
};

TEST_P(BuiltInTemplate, HasItsTexts)
{
    const ObsidianTemplate& builtIn = GetParam().builtIn();
    EXPECT_EQ(builtIn.name, GetParam().name);
    EXPECT_EQ(builtIn.content, GetParam().content);
}

TEST_P(BuiltInTemplate, IsShownAndRegular)
{
    EXPECT_TRUE(GetParam().builtIn().showInDropdown);
    EXPECT_FALSE(GetParam().builtIn().type.isSynced());
}

TEST_P(BuiltInTemplate, KeepsTheIdentifierOfItsFirstUse)
{
    EXPECT_FALSE(GetParam().builtIn().id.isNull());
    EXPECT_EQ(GetParam().builtIn().id, GetParam().builtIn().id);
}

INSTANTIATE_TEST_SUITE_P(Rows, BuiltInTemplate, testing::ValuesIn(builtInRows),
                         [](const auto& row) { return std::string(row.param.rule); });

TEST(ObsidianTemplate, BuiltInsHaveIdentifiersOfTheirOwn)
{
    EXPECT_NE(ObsidianTemplate::defaultTemplate().id, ObsidianTemplate::meetingTemplate().id);
    EXPECT_NE(ObsidianTemplate::meetingTemplate().id, ObsidianTemplate::dailyTemplate().id);
    EXPECT_NE(ObsidianTemplate::dailyTemplate().id, ObsidianTemplate::defaultTemplate().id);
}

struct DifferenceRow {
    const char* name;
    void (*change)(ObsidianTemplate&);
};

class TemplatesThatDifferIn : public testing::TestWithParam<DifferenceRow> {};

const DifferenceRow differenceRows[] = {
    {"Id", [](ObsidianTemplate& it) { it.id = QUuid(); }},
    {"Name", [](ObsidianTemplate& it) { it.name = u"other"_qs; }},
    {"Content", [](ObsidianTemplate& it) { it.content = u"other"_qs; }},
    {"ShowInDropdown", [](ObsidianTemplate& it) { it.showInDropdown = false; }},
    {"Type", [](ObsidianTemplate& it) { it.type = TemplateType::synced(u"/t/a.md"_qs); }},
};

TEST_P(TemplatesThatDifferIn, AreNotEqual)
{
    const ObsidianTemplate before = ObsidianTemplate::defaultTemplate();
    ObsidianTemplate after = before;
    EXPECT_EQ(after, before);
    GetParam().change(after);
    EXPECT_NE(after, before);
}

INSTANTIATE_TEST_SUITE_P(Rows, TemplatesThatDifferIn, testing::ValuesIn(differenceRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(TemplateType, OnlySyncedHasAPath)
{
    EXPECT_FALSE(TemplateType::regular().isSynced());
    EXPECT_EQ(TemplateType::regular().filePath(), std::nullopt);
    EXPECT_TRUE(TemplateType::synced(u"/t/a.md"_qs).isSynced());
    EXPECT_EQ(TemplateType::synced(u"/t/a.md"_qs).filePath(), u"/t/a.md"_qs);
}

TEST(TemplateType, EqualByKindAndPath)
{
    const TemplateType synced = TemplateType::synced(u"/t/a.md"_qs);
    EXPECT_EQ(TemplateType::regular(), TemplateType::regular());
    EXPECT_EQ(synced, TemplateType::synced(u"/t/a.md"_qs));
    EXPECT_NE(synced, TemplateType::synced(u"/t/b.md"_qs));
    EXPECT_NE(synced, TemplateType::regular());
    EXPECT_NE(TemplateType::synced(QString()), TemplateType::regular());
}

TEST(ObsidianTemplate, RowOfARegularOne)
{
    const ObsidianTemplate& regular = ObsidianTemplate::meetingTemplate();
    const DropdownItem row = regular.row();
    EXPECT_EQ(std::get<QUuid>(row.id), regular.id);
    EXPECT_EQ(row.displayName, u"Meeting"_qs);
    EXPECT_EQ(row.icon, u"doc.text"_qs);
    EXPECT_EQ(row.description, u"Template for Obsidian notes"_qs);
}

TEST(ObsidianTemplate, RowOfASyncedOne)
{
    ObsidianTemplate synced = ObsidianTemplate::meetingTemplate();
    synced.type = TemplateType::synced(u"/t/Meeting.md"_qs);
    const DropdownItem row = synced.row();
    EXPECT_EQ(std::get<QUuid>(row.id), synced.id);
    EXPECT_EQ(row.displayName, u"Meeting"_qs);
    EXPECT_EQ(row.icon, u"arrow.triangle.2.circlepath"_qs);
    EXPECT_EQ(row.description, u"Synced template from folder"_qs);
}

} // namespace

} // namespace jotwell
