#include "Models/Command.h"

#include "QtPrinters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace jotwell {

namespace {

struct CommandRow {
    const char* name;
    Command command;
    QString rawValue;
    QString icon;
    QString description;
};

class CommandTable : public testing::TestWithParam<CommandRow> {};

const CommandRow commandRows[] = {
    {"NewNote", Command::newNote, u"/new_note"_qs, u"\U0001F4DD"_qs, u"Create new note"_qs},
    {"SearchNotes", Command::searchNotes, u"/search_notes"_qs, u"\U0001F50D"_qs,
     u"Search notes in Obsidian"_qs},
    {"RecentNotes", Command::recentNotes, u"/recent"_qs, u"\U0001F550"_qs, u"Show recent notes"_qs},
};

TEST_P(CommandTable, RowShowsWhatTheUserTypes)
{
    const CommandRow& row = GetParam();
    const DropdownItem shown = jotwell::row(row.command);
    EXPECT_EQ(rawValue(row.command), row.rawValue);
    EXPECT_EQ(std::get<QString>(shown.id), row.rawValue);
    EXPECT_EQ(shown.displayName, row.rawValue);
    EXPECT_EQ(shown.icon, row.icon);
    EXPECT_EQ(shown.description, row.description);
}

TEST_P(CommandTable, ExactRawValueMakesTheCommand)
{
    EXPECT_EQ(commandFromRawValue(GetParam().rawValue), GetParam().command);
}

INSTANTIATE_TEST_SUITE_P(Rows, CommandTable, testing::ValuesIn(commandRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Command, OrderIsNewSearchRecent)
{
    EXPECT_THAT(allCommands,
                testing::ElementsAre(Command::newNote, Command::searchNotes, Command::recentNotes));
}

struct OtherTextRow {
    const char* name;
    QString text;
};

class CommandFromOtherText : public testing::TestWithParam<OtherTextRow> {};

const OtherTextRow otherTextRows[] = {
    {"Empty", QString()},
    {"OtherCase", u"/Recent"_qs},
    {"TrailingBlank", u"/recent "_qs},
    {"LeadingBlank", u" /recent"_qs},
    {"NoSlash", u"recent"_qs},
    {"OnlyItsBeginning", u"/new"_qs},
    {"MoreThanIt", u"/new_notes"_qs},
    {"SlashAlone", u"/"_qs},
};

TEST_P(CommandFromOtherText, GivesNothing)
{
    EXPECT_EQ(commandFromRawValue(GetParam().text), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Rows, CommandFromOtherText, testing::ValuesIn(otherTextRows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

} // namespace jotwell
