#include "Services/Input/TemplateParameters.h"

#include "Services/Input/InputSamples.h"

#include "QtPrinters.h"
#include "Support/IcuRegex.h"

#include <QElapsedTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Ranges = std::vector<TextRange>;

struct RangesRow {
    const char* name;
    QString text;
    QStringList names;
    Ranges ranges;
};

class Highlighted : public testing::TestWithParam<RangesRow> {};

const QStringList daily{u"Daily Note"_qs};
const QString emoji = u"\U0001f600"_qs;

const RangesRow rangesRows[] = {
    {"BehindTwoBlanks", u"/new_note  $Daily Note"_qs, daily, {{11, 11}}},
    {"BehindTwoBlanksAnywhere", u"x  $Daily Note"_qs, daily, {{3, 11}}},
    {"NotAtTheStart", u"$Daily Note"_qs, daily, {}},
    {"NotBehindOneBlankAtTheStart", u" $Daily Note"_qs, daily, {}},
    {"BehindTwoBlanksAtTheStart", u"  $Daily Note"_qs, daily, {{2, 11}}},
    {"NotBehindOneBlankAndAWord", u"x $Daily Note"_qs, daily, {}},
    {"BehindOneBlankAndASlashWord", u"/x $Daily Note"_qs, daily, {{3, 11}}},
    {"SlashWordMayHaveHyphens", u"/x-y_z $Daily Note"_qs, daily, {{7, 11}}},
    {"SlashWordMayStandInAWord", u"a/b $Daily Note"_qs, daily, {{4, 11}}},
    {"SlashWordIsAWord", u"/x! $Daily Note"_qs, daily, {}},
    {"SlashAloneIsNone", u"/ $Daily Note"_qs, daily, {}},
    {"SlashWordEndsAtTheBlank", u"/x y $Daily Note"_qs, daily, {}},
    {"SlashWordOf19UnitsWithItsBlank",
     u"/"_qs + QString(18, u'x') + u" $Daily Note"_qs,
     daily,
     {{20, 11}}},
    {"SlashWordOf20UnitsWithItsBlankIsTooLong",
     u"/"_qs + QString(19, u'x') + u" $Daily Note"_qs,
     daily,
     {}},
    {"SlashWordInsideTheLast20Units",
     u"aaaa /"_qs + QString(18, u'x') + u" $Daily Note"_qs,
     daily,
     {{25, 11}}},
    {"SlashWordBeyondTheBasicPlane", u"/\U0001d49c $Daily Notexx"_qs, daily, {{4, 11}}},
    {"NotBehindATab", u"/x\t$Daily Note"_qs, daily, {}},
    {"NotBehindABlankAndATab", u" \t$Daily Note"_qs, daily, {}},
    {"NotBehindATabAndABlank", u"\t $Daily Note"_qs, daily, {}},
    {"NotBehindALineEnd", u"/x\n$Daily Note"_qs, daily, {}},
    {"NotBehindNoBreakSpaces", u"\u00a0\u00a0$Daily Note"_qs, daily, {}},
    {"BeginOfALongerWord", u"  $Daily Notes"_qs, daily, {{2, 11}}},
    {"NotInAnotherCase", u"  $daily note"_qs, daily, {}},
    {"NotInPart", u"  $Daily"_qs, daily, {}},
    {"FirstNameThatFitsCounts", u"  $Daily Note"_qs, {u"Daily"_qs, u"Daily Note"_qs}, {{2, 6}}},
    {"LongerNameFirst", u"  $Daily Note"_qs, {u"Daily Note"_qs, u"Daily"_qs}, {{2, 11}}},
    {"SeveralInTheOrderOfTheText", u"  $Daily Note  $Daily Note"_qs, daily, {{2, 11}, {15, 11}}},
    {"OneOfTwoDollars", u"  $$Daily Note"_qs, daily, {}},
    {"OverlappingOnes", u"  $a  $b"_qs, {u"a  $b"_qs, u"b"_qs}, {{2, 6}, {6, 2}}},
    {"EmptyName", u"  $ x"_qs, {QString()}, {{2, 1}}},
    {"EmptyNameNotAtTheEnd", u"  $"_qs, {QString()}, {}},
    {"SignsOfPatternsAreThemselves", u"  $a.c"_qs, {u"a.c"_qs}, {{2, 4}}},
    {"SignsOfPatternsMatchNothingElse", u"  $abc"_qs, {u"a.c"_qs}, {}},
    {"EmojiHideTheEnd", emoji + u"  $Daily Note"_qs, daily, {}},
    {"TextBehindMakesUpForEmoji", emoji + u"  $Daily Note."_qs, daily, {{4, 11}}},
    {"EmojiHideADollar", emoji + emoji + emoji + u"  $a"_qs, {u"a"_qs, QString()}, {}},
    {"CombiningMarksHideTheEndToo", u"e\u0301  $Daily Note"_qs, daily, {}},
    {"NameWithAnEmojiIsNeverOne", u"  $"_qs + emoji + u"      "_qs, {emoji}, {}},
    {"NameWithACombiningMarkIsNeverOne", u"  $e\u0301      "_qs, {u"e\u0301"_qs}, {}},
    {"NoNames", u"  $Daily Note"_qs, {}, {}},
    {"NoDollar", u"  Daily Note"_qs, {QString()}, {}},
    {"EmptyText", QString(), {QString()}, {}},
};

TEST_P(Highlighted, AreTheParametersOfTemplates)
{
    EXPECT_EQ(highlightedTemplateRanges(GetParam().text, GetParam().names), GetParam().ranges);
}

INSTANTIATE_TEST_SUITE_P(Rows, Highlighted, testing::ValuesIn(rangesRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct RemovedRow {
    const char* name;
    QString text;
    QString result;
};

class Removed : public testing::TestWithParam<RemovedRow> {};

const RemovedRow removedRows[] = {
    {"WithTheBlanksBefore", u"/new_note  $Daily Note hello"_qs, u"/new_note hello"_qs},
    {"WithAllWhiteSpaceBefore", u"a\n\t\u3000\n  $Daily Note b"_qs, u"a b"_qs},
    {"EachOfThem", u"a  $Daily Note b  $Daily Note c"_qs, u"a b c"_qs},
    {"EachOfAdjoiningOnes", u"a  $Daily Note  $Daily Note  $Daily Note."_qs, u"a."_qs},
    {"OnlyParameters", u"a $Daily Note b $x"_qs, u"a $Daily Note b $x"_qs},
    {"BlanksAtTheEndsGo", u" \ta\u00a0 "_qs, u"a"_qs},
    {"LineEndsAtTheEndsStay", u"\na\n"_qs, u"\na\n"_qs},
    {"NothingIsLeft", u"  $Daily Note"_qs, QString()},
    {"NothingOfNothing", QString(), QString()},
    {"WordsCloseUp", u"a  $Daily Notes"_qs, u"as"_qs},
    // The ranges are found in units and taken as characters: the parameter isn't what goes.
    {"EmojiShiftWhatGoes", u"\U0001f600  $Daily Note abc"_qs, u"\U0001f600  $abc"_qs},
    {"EmojiShiftWhatGoesToTheEnd", u"\U0001f600\U0001f600  $Daily Note.."_qs,
     u"\U0001f600\U0001f600  $D"_qs},
};

TEST_P(Removed, WithWhatStandsBefore)
{
    EXPECT_EQ(removeTemplateParameters(GetParam().text, daily), GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(Rows, Removed, testing::ValuesIn(removedRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct ValidRow {
    const char* name;
    QString text;
    QStringList names;
    bool isValid;
};

class ValidTemplate : public testing::TestWithParam<ValidRow> {};

const ValidRow validRows[] = {
    {"Alone", u"$Daily Note"_qs, daily, true},
    {"BehindBlanks", u" \t$Daily Note more"_qs, daily, true},
    {"BeforeALineEnd", u"$Daily Note\nmore"_qs, daily, true},
    {"BeforeACarriageReturnAndALineFeed", u"$Daily Note\r\nmore"_qs, daily, true},
    {"NotBeforeALetter", u"$Daily Notes"_qs, daily, false},
    {"NotBeforeASign", u"$Daily Note, more"_qs, daily, false},
    {"NotBehindALineEnd", u"\n$Daily Note"_qs, daily, false},
    {"NotBehindAWord", u"x $Daily Note"_qs, daily, false},
    {"NotWithoutDollar", u"Daily Note"_qs, daily, false},
    {"NotInAnotherCase", u"$daily note"_qs, daily, false},
    {"NotAnEmptyText", QString(), {QString()}, false},
    {"NotADollarAlone", u"$"_qs, daily, false},
    {"NotWithoutNames", u"$Daily Note"_qs, {}, false},
    {"AnyOfTheNames", u"$b c"_qs, {u"a"_qs, u"b"_qs}, true},
    {"LaterNameThatFits", u"$Daily Note"_qs, {u"Dai"_qs, u"Daily"_qs}, true},
    {"EmptyNameAlone", u" $ "_qs, {QString()}, true},
    {"EmptyNameBeforeABlank", u"$ x"_qs, {QString()}, true},
    {"EmptyNameNotBeforeALetter", u"$x"_qs, {QString()}, false},
    {"NameThatEndsInABlankIsCutOff", u"$a "_qs, {u"a "_qs}, false},
    {"NameThatEndsInABlankBeforeAnother", u"$a  x"_qs, {u"a "_qs}, true},
    {"NameWithAnEmoji", u"$\U0001f600 x"_qs, {emoji}, true},
    {"NameWithAnEmojiNotBeforeALetter", u"$\U0001f600x"_qs, {emoji}, false},
    // The character behind the name is looked for by the number of characters.
    {"MarkBehindTheNameCountsToIt", u"$ab\u0308 x"_qs, {u"ab"_qs}, true},
};

TEST_P(ValidTemplate, IsAWholeNameAtTheStart)
{
    EXPECT_EQ(checkForValidTemplate(GetParam().text, GetParam().names), GetParam().isValid);
}

INSTANTIATE_TEST_SUITE_P(Rows, ValidTemplate, testing::ValuesIn(validRows),
                         [](const auto& row) { return std::string(row.param.name); });

// The rules in their plain form.

bool isAccepted(const QString& text, qsizetype position)
{
    static const IcuRegex slashWord(u"/[\\w-]+\\s$");
    if (position >= 2 && text.sliced(position - 2, 2) == u"  ")
        return true;
    const TextRange before{std::max(qsizetype(0), position - 20),
                           std::min(position, qsizetype(20))};
    return position >= 2 && text[position - 1] == u' ' && slashWord.firstMatch(text, before);
}

Ranges plainRanges(const QString& text, const QStringList& names)
{
    static const IcuRegex dollar(u"\\$");
    const qsizetype count = characterCount(text);
    Ranges ranges;
    for (const RegexMatch& match : dollar.matches(text, {0, count})) {
        const qsizetype position = match.range().location;
        if (position + 1 >= count)
            continue;
        for (const QString& name : names) {
            const qsizetype end = std::min(position + 1 + characterCount(name), count);
            const qsizetype length = end - position;
            if (text.sliced(position, length) == u'$' + name && isAccepted(text, position)) {
                ranges.push_back({position, length});
                break;
            }
        }
    }
    return ranges;
}

bool isSpaceCharacter(QChar unit)
{
    static const IcuRegex space(u"\\s");
    return space.firstMatch(QStringView(&unit, 1)).has_value();
}

QString plainRemoved(const QString& text, const QStringList& names)
{
    Ranges ranges = plainRanges(text, names);
    std::ranges::reverse(ranges);
    QString result = text;
    for (const TextRange& range : ranges) {
        const auto boundaries = characterBoundaries(result);
        if (range.end() >= static_cast<qsizetype>(boundaries.size()))
            continue;
        qsizetype start = boundaries[range.location];
        while (start > 0 && isSpaceCharacter(result[start - 1]))
            --start;
        result.remove(start, boundaries[range.end()] - start);
    }
    return trimmedWhitespace(result);
}

bool plainValid(const QString& text, const QStringList& names)
{
    const QString trimmed = trimmedWhitespace(text);
    const auto boundaries = characterBoundaries(trimmed);
    return std::ranges::any_of(names, [&](const QString& name) {
        const QString parameter = u'$' + name;
        const qsizetype count = characterCount(parameter);
        return trimmed.startsWith(parameter) &&
               (characterCount(trimmed) <= count || isSpaceCharacter(trimmed[boundaries[count]]));
    });
}

TEST(TemplateParameters, AreThoseOfThePlainRulesInAnyText)
{
    InputSamples samples(3);
    int found = 0;
    int valid = 0;
    for (int round = 0; round < 30'000; ++round) {
        const QString text = samples.text(10);
        const QStringList names{samples.anyOf(InputSamples::names()),
                                samples.anyOf(InputSamples::names()), u"Daily Note"_qs};
        const Ranges ranges = plainRanges(text, names);
        ASSERT_EQ(highlightedTemplateRanges(text, names), ranges) << round;
        ASSERT_EQ(removeTemplateParameters(text, names), plainRemoved(text, names)) << round;
        const bool isValid = plainValid(text, names);
        ASSERT_EQ(checkForValidTemplate(text, names), isValid) << round;
        found += ranges.empty() ? 0 : 1;
        valid += isValid ? 1 : 0;
    }
    EXPECT_GT(found, 1000);
    EXPECT_GT(valid, 300);
}

TEST(TemplateParameters, TakeTimeInProportionToTheText)
{
    const QString text = emoji + u"word  $Daily Note "_qs.repeated(10'000);
    QStringList names;
    for (int each = 0; each < 200; ++each)
        names.append(u"Name %1"_qs.arg(each));
    names.append(daily);
    QElapsedTimer timer;
    timer.start();
    EXPECT_THAT(removeTemplateParameters(text, names).size(), testing::Lt(text.size() / 2));
    EXPECT_LT(timer.elapsed(), 1000) << "square, it would take minutes";
}

} // namespace

} // namespace jotwell
