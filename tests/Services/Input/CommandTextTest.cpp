#include "Services/Input/CommandText.h"

#include "QtPrinters.h"
#include "Services/Input/InputSamples.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

struct CommandRow {
    const char* name;
    QString text;
    std::optional<Command> command;
};

class CommandIn : public testing::TestWithParam<CommandRow> {};

const CommandRow commandRows[] = {
    {"NoneInPlainText", u"buy milk"_qs, std::nullopt},
    {"NoneInEmptyText", QString(), std::nullopt},
    {"New", u"/new_note milk"_qs, Command::newNote},
    {"Search", u"/search_notes milk"_qs, Command::searchNotes},
    {"Recent", u"/recent"_qs, Command::recentNotes},
    {"OrderOfTheCommandsAndNotOfTheText", u"x /recent y /new_note"_qs, Command::newNote},
    {"SearchBeforeRecent", u"/recent /search_notes"_qs, Command::searchNotes},
    {"AnywhereInTheText", u"milk/recently"_qs, Command::recentNotes},
    {"CaseMatters", u"/Recent"_qs, std::nullopt},
    {"HalfACommandIsNone", u"/new"_qs, std::nullopt},
};

TEST_P(CommandIn, IsTheFirstThatTheTextContains)
{
    EXPECT_EQ(findCommand(GetParam().text), GetParam().command);
}

INSTANTIATE_TEST_SUITE_P(Rows, CommandIn, testing::ValuesIn(commandRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct NameRow {
    const char* name;
    QString text;
    std::optional<QString> templateName;
    std::optional<QString> folderName;
};

class ParameterIn : public testing::TestWithParam<NameRow> {};

NameRow sameForBoth(const char* name, const QString& text, const std::optional<QString>& found)
{
    return {name, text, found, found};
}

const QString twoEmoji = u"\U0001F600\U0001F600"_qs;

const NameRow nameRows[] = {
    sameForBoth("NoneWithoutDollar", u"/recent Inbox"_qs, std::nullopt),
    sameForBoth("NoneBehindABareDollar", u"costs 5$"_qs, std::nullopt),
    sameForBoth("NoneBeforeASymbol", u"$!x"_qs, std::nullopt),
    sameForBoth("UpToTheEnd", u"/new_note  $Daily Note"_qs, u"Daily Note"_qs),
    sameForBoth("UpToASymbol", u"/new_note  $Daily Note, hello"_qs, u"Daily Note"_qs),
    sameForBoth("FurtherWordsRunOn", u"$Daily Note hello world"_qs, u"Daily Note hello world"_qs),
    sameForBoth("LineEndsRunOn", u"$Daily Note\nhello"_qs, u"Daily Note\nhello"_qs),
    sameForBoth("HyphensAndUnderscoresCount", u"$to-do_list."_qs, u"to-do_list"_qs),
    sameForBoth("LettersOfAllScriptsCount", u"$\u65e5\u8a18 \u00dcber!"_qs,
                u"\u65e5\u8a18 \u00dcber"_qs),
    sameForBoth("BlanksAndTabsAreTrimmed", u"$ \tDaily Note\u00a0 "_qs, u"Daily Note"_qs),
    sameForBoth("LineEndsAreNotTrimmed", u"$Daily Note\n"_qs, u"Daily Note\n"_qs),
    sameForBoth("BlanksAloneAreTheEmptyName", u"/recent $  "_qs, QString()),
    sameForBoth("FirstDollarWithAName", u"$$ $Inbox $Other"_qs, QString()),
    sameForBoth("SecondParameterDoesNotCount", u"$Inbox $Daily Note"_qs, u"Inbox"_qs),
    {"EmojiShortenTheSearchForTemplates", twoEmoji + u" $Daily Note"_qs, u"Daily No"_qs,
     u"Daily Note"_qs},
    {"EmojiHideATemplateAtTheEnd", twoEmoji + u"$a"_qs, std::nullopt, u"a"_qs},
    {"TextBehindTheNameMakesUpForEmoji", twoEmoji + u" $Daily Note, hello"_qs, u"Daily Note"_qs,
     u"Daily Note"_qs},
    {"CombiningMarksShortenTheSearchToo", u"a\u0308o\u0308 $Plan"_qs, u"Pl"_qs, u"Plan"_qs},
};

TEST_P(ParameterIn, IsTheTemplateName)
{
    EXPECT_EQ(templateNameIn(GetParam().text), GetParam().templateName);
}

TEST_P(ParameterIn, IsTheFolderName)
{
    EXPECT_EQ(folderNameIn(GetParam().text), GetParam().folderName);
}

INSTANTIATE_TEST_SUITE_P(Rows, ParameterIn, testing::ValuesIn(nameRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct QueryRow {
    const char* name;
    QString text;
    QString query;
};

class QueryIn : public testing::TestWithParam<QueryRow> {};

const QueryRow queryRows[] = {
    {"NoneInEmptyText", QString(), QString()},
    {"NoneBesideTheCommand", u"/search_notes"_qs, QString()},
    {"NoneBesideBlanksAndLineEnds", u" \t\n/search_notes\u00a0\r\n\u2028"_qs, QString()},
    {"BlanksAroundItGo", u"/search_notes \t two words\n"_qs, u"two words"_qs},
    {"CommandMayStandBehindIt", u"milk /search_notes"_qs, u"milk"_qs},
    {"CommandMayStandWithinAWord", u"mi/search_noteslk"_qs, u"milk"_qs},
    {"EveryCommandGoes", u"/search_notes cats /search_notes dogs"_qs, u"cats  dogs"_qs},
    {"WhatClosesUpToACommandStays", u"/search/search_notes_notes"_qs, u"/search_notes"_qs},
    {"OtherCommandsStay", u"/search_notes /recent $Inbox"_qs, u"/recent $Inbox"_qs},
    {"CaseMatters", u"/Search_notes milk"_qs, u"/Search_notes milk"_qs},
    {"WholeTextWithoutACommand", u"milk"_qs, u"milk"_qs},
};

TEST_P(QueryIn, IsWhatIsLeftOfTheText)
{
    EXPECT_EQ(searchQueryIn(GetParam().text), GetParam().query);
}

INSTANTIATE_TEST_SUITE_P(Rows, QueryIn, testing::ValuesIn(queryRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(CommandText, ContainsACommandAsAnyText)
{
    InputSamples samples(5);
    for (int round = 0; round < 20'000; ++round) {
        const QString text = samples.text(8) + samples.anyOf({u"/"_qs, u"/recen"_qs, QString()});
        for (const Command each : allCommands)
            ASSERT_EQ(containsCommand(text, each), text.contains(rawValue(each))) << round;
    }
}

TEST(CommandText, NameOfTenMegabytesIsFoundWhole)
{
    const QString name(10'000'000, u'x');
    EXPECT_EQ(templateNameIn(u'$' + name), name);
    EXPECT_EQ(folderNameIn(u'$' + name), name);
}

} // namespace

} // namespace jotwell
