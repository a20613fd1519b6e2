#include "Services/Input/TokenReplacement.h"

#include "QtPrinters.h"

#include <gtest/gtest.h>

#include <limits>

namespace jotwell {

namespace {

constexpr qsizetype most = std::numeric_limits<qsizetype>::max();
constexpr qsizetype least = std::numeric_limits<qsizetype>::min();

struct RangeRow {
    const char* name;
    TextRange range;
    TextRange clamped;
};

class ClampedRange : public testing::TestWithParam<RangeRow> {};

// In "ab" and then two emoji, units 2 to 5.
const RangeRow rangeRows[] = {
    {"Inside", {1, 3}, {1, 3}},
    {"Whole", {0, 6}, {0, 6}},
    {"Empty", {2, 0}, {2, 0}},
    {"AtTheEnd", {6, 0}, {6, 0}},
    {"BeyondTheEnd", {4, 9}, {4, 2}},
    {"BehindTheEnd", {9, 2}, {6, 0}},
    {"BeforeTheStart", {-3, 4}, {0, 1}},
    {"WhollyBeforeTheStart", {-3, 2}, {0, 0}},
    {"NegativeLength", {1, -1}, {1, 0}},
    {"NegativeLengthBeforeTheStart", {-1, -5}, {0, 0}},
    {"NotFound", {most, 0}, {6, 0}},
    {"LargestNumbers", {most, most}, {6, 0}},
    {"LargestLength", {1, most}, {1, 5}},
    {"SmallestNumbers", {least, least}, {0, 0}},
    {"FromTheSmallestToTheLargest", {least, most}, {0, 0}},
    {"BeginsInsideAPair", {3, 3}, {4, 2}},
    {"EndsInsideAPair", {1, 2}, {1, 1}},
    {"BeginsAndEndsInsidePairs", {3, 2}, {4, 0}},
    {"FirstHalfOfAPair", {2, 1}, {2, 0}},
    {"SecondHalfOfAPair", {3, 1}, {4, 0}},
    {"NothingInsideAPair", {3, 0}, {4, 0}},
};

TEST_P(ClampedRange, LiesInTheText)
{
    EXPECT_EQ(clamped(GetParam().range, u"ab\U0001f600\U0001f600"), GetParam().clamped);
}

INSTANTIATE_TEST_SUITE_P(Rows, ClampedRange, testing::ValuesIn(rangeRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(TokenReplacement, RangeOfAnEmptyTextIsEmpty)
{
    EXPECT_EQ(clamped({0, 1}, u""), TextRange());
    EXPECT_EQ(clamped({-1, 5}, u""), TextRange());
}

TEST(TokenReplacement, LoneSurrogatesAreCutLikeAnyUnit)
{
    const QString text = QString(QChar(0xde00)) + QChar(0xd83d);
    EXPECT_EQ(clamped({1, 1}, text), TextRange({1, 1}));
    EXPECT_EQ(clamped({0, 1}, text), TextRange({0, 1}));
}

TEST(TokenReplacement, CutsAtARangeInUnits)
{
    EXPECT_EQ(cutAt(u"\U0001f600 /re x"_qs, {3, 3}),
              (TokenCut{u"\U0001f600 "_qs, u"/re"_qs, u" x"_qs}));
    EXPECT_EQ(cutAt(u"abc"_qs, {2, 9}), (TokenCut{u"ab"_qs, u"c"_qs, QString()}));
}

TEST(TokenReplacement, CutsAtTheEnd)
{
    EXPECT_EQ(cutAtEnd(u"/re /re"_qs, u"/re"_qs), (TokenCut{u"/re "_qs, u"/re"_qs, QString()}));
}

struct LeavingRow {
    const char* name;
    TokenCut cut;
    TokenOrigin origin;
    bool leaves;
};

class Leaving : public testing::TestWithParam<LeavingRow> {};

const LeavingRow leavingRows[] = {
    {"ClickedNewNote", {u"a"_qs, u"/new_note"_qs, {}}, TokenOrigin::clicked, true},
    {"ClickedOther", {u"a"_qs, u"/recent"_qs, {}}, TokenOrigin::clicked, false},
    {"ClickedOtherBesideANewNote",
     {u"/new_note "_qs, u"/recent"_qs, {}},
     TokenOrigin::clicked,
     false},
    {"ClickedMoreThanNewNote", {{}, u"/new_notes"_qs, {}}, TokenOrigin::clicked, false},
    {"TypedBeginOfNew", {{}, u"/new"_qs, {}}, TokenOrigin::typed, true},
    {"TypedMoreThanNew", {{}, u"/newest"_qs, {}}, TokenOrigin::typed, true},
    {"TypedLessThanNew", {{}, u"/ne"_qs, {}}, TokenOrigin::typed, false},
    {"TypedOther", {u"new "_qs, u"/re"_qs, {}}, TokenOrigin::typed, false},
    {"TypedOtherBesideANewNote", {u"/new_note "_qs, u"/re"_qs, {}}, TokenOrigin::typed, true},
    {"TypedInAnotherCase", {{}, u"/New"_qs, {}}, TokenOrigin::typed, false},
};

TEST_P(Leaving, IsWhatTakesANewNotesPlace)
{
    EXPECT_EQ(leavesNewNote(GetParam().cut, GetParam().origin), GetParam().leaves);
}

INSTANTIATE_TEST_SUITE_P(Rows, Leaving, testing::ValuesIn(leavingRows),
                         [](const auto& row) { return std::string(row.param.name); });

const QStringList names{u"Daily Note"_qs};

TEST(TokenReplacement, NewNoteGetsAParameter)
{
    EXPECT_EQ(newNoteText({u"a "_qs, u"/ne"_qs, {}}, u"Last"_qs, names), u"a /new_note  $Last "_qs);
    EXPECT_EQ(newNoteText({{}, u"/recent"_qs, u" \tb \n"_qs}, u"Last"_qs, names),
              u"/new_note  $Last b \n"_qs);
}

TEST(TokenReplacement, NewNoteKeepsAParameterThatIsThere)
{
    EXPECT_EQ(newNoteText({{}, u"/recent"_qs, u"  $Daily Note b"_qs}, u"Last"_qs, names),
              u"/new_note   $Daily Note b"_qs);
    EXPECT_EQ(newNoteText({{}, u"/recent"_qs, u"  $Daily Notes"_qs}, u"Last"_qs, names),
              u"/new_note  $Last $Daily Notes"_qs);
}

TEST(TokenReplacement, LeavingTakesTheParametersOut)
{
    const TokenCut clicked{{}, u"/new_note"_qs, u"  $Daily Note hello"_qs};
    EXPECT_EQ(leavingText(clicked, TokenOrigin::clicked, Command::searchNotes, names),
              u"/search_notes hello"_qs);
    EXPECT_EQ(leavingText(clicked, TokenOrigin::clicked, Command::recentNotes, names),
              u"/recent hello"_qs);
}

TEST(TokenReplacement, LeavingTakesParametersBeforeTheCommandTooAndThoseThatArise)
{
    const TokenCut before{u"a  $Daily Note "_qs, u"/new_note"_qs, u" b"_qs};
    EXPECT_EQ(leavingText(before, TokenOrigin::clicked, Command::searchNotes, names),
              u"a /search_notes b"_qs);
    const TokenCut behindOneBlank{{}, u"/x!"_qs, u" $Daily Note b"_qs};
    EXPECT_EQ(leavingText(behindOneBlank, TokenOrigin::clicked, Command::searchNotes, names),
              u"/search_notes b"_qs);
}

TEST(TokenReplacement, LeavingPutsABlankBehindATypedCommand)
{
    const TokenCut cut{{}, u"/new"_qs, u"b"_qs};
    EXPECT_EQ(leavingText(cut, TokenOrigin::typed, Command::recentNotes, names), u"/recent b"_qs);
    EXPECT_EQ(leavingText(cut, TokenOrigin::clicked, Command::recentNotes, names), u"/recentb"_qs);
}

TEST(TokenReplacement, SearchKeepsWhatStandsAround)
{
    EXPECT_EQ(searchNotesText({u" a "_qs, u"/se"_qs, u" b "_qs}), u" a /search_notes  b "_qs);
}

TEST(TokenReplacement, RecentNotesGetTheFolderAndABlank)
{
    EXPECT_EQ(recentNotesText({u" a "_qs, u"/re"_qs, u" \tb \n"_qs}, u"All"_qs),
              u" a /recent  $All b \n"_qs);
    EXPECT_EQ(recentNotesText({{}, u"/re"_qs, {}}, u"All"_qs), u"/recent  $All "_qs);
}

} // namespace

} // namespace jotwell
