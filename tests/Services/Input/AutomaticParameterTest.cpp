#include "Services/Input/AutomaticParameter.h"

#include "QtPrinters.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

struct NeedRow {
    const char* name;
    QString text;
    bool needs;
};

class ParameterNeed : public testing::TestWithParam<NeedRow> {};

const NeedRow needRows[] = {
    {"CommandAlone", u"/recent"_qs, true},     {"CommandWithinAWord", u"x/recenty"_qs, true},
    {"NoCommand", u"recent"_qs, false},        {"OtherCommand", u"/new_note"_qs, false},
    {"OtherCase", u"/Recent"_qs, false},       {"DollarAnywhere", u"cost $5 /recent"_qs, false},
    {"DollarAtTheEnd", u"/recent$"_qs, false}, {"EmptyText", QString(), false},
};

TEST_P(ParameterNeed, IsOfACommandInATextWithoutDollar)
{
    EXPECT_EQ(needsParameter(GetParam().text, Command::recentNotes), GetParam().needs);
}

INSTANTIATE_TEST_SUITE_P(Rows, ParameterNeed, testing::ValuesIn(needRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct ParameterRow {
    const char* name;
    QString text;
    QString result;
};

class Parameter : public testing::TestWithParam<ParameterRow> {};

const ParameterRow parameterRows[] = {
    {"AtTheEnd", u"/recent"_qs, u"/recent  $In box"_qs},
    {"AtTheEndOfAText", u"see /recent"_qs, u"see /recent  $In box"_qs},
    {"BeforeABlank", u"/recent "_qs, u"/recent  $In box "_qs},
    {"BeforeABlankAndText", u"a /recent b"_qs, u"a /recent  $In box b"_qs},
    {"BeforeALetter", u"/recentx"_qs, u"/recent  $In boxx"_qs},
    {"BeforeALineEnd", u"/recent\nx"_qs, u"/recent  $In box\nx"_qs},
    {"BeforeATab", u"/recent\tx"_qs, u"/recent  $In box\tx"_qs},
    {"AtTheEndAlone", u"/recent /recent"_qs, u"/recent /recent  $In box"_qs},
    {"BeforeEachBlank", u"/recent a /recent b"_qs, u"/recent  $In box a /recent  $In box b"_qs},
    {"BeforeBlanksAlone", u"/recentx /recent b"_qs, u"/recentx /recent  $In box b"_qs},
    {"BeforeEachLetter", u"/recentx/recenty"_qs, u"/recent  $In boxx/recent  $In boxy"_qs},
};

TEST_P(Parameter, StandsBehindTheCommand)
{
    EXPECT_EQ(withParameter(GetParam().text, Command::recentNotes, u"In box"_qs),
              GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(Rows, Parameter, testing::ValuesIn(parameterRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(AutomaticParameter, IsThatOfTheCommandAskedFor)
{
    EXPECT_EQ(withParameter(u"/recent /new_note x"_qs, Command::newNote, u"Day"_qs),
              u"/recent /new_note  $Day x"_qs);
}

TEST(AutomaticParameter, NameMayHoldTheCommand)
{
    EXPECT_EQ(withParameter(u"/new_note a"_qs, Command::newNote, u"/new_note "_qs),
              u"/new_note  $/new_note  a"_qs);
}

TEST(AutomaticParameter, NameMayBeEmpty)
{
    EXPECT_EQ(withParameter(u"/new_note"_qs, Command::newNote, QString()), u"/new_note  $"_qs);
}

} // namespace

} // namespace jotwell
