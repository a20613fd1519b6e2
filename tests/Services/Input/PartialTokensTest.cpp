#include "Services/Input/PartialTokens.h"

#include "Services/Input/InputSamples.h"

#include "QtPrinters.h"
#include "Support/IcuRegex.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <algorithm>

namespace jotwell {

namespace {

struct CommandRow {
    const char* name;
    QString text;
    QString input;
};

class CommandInput : public testing::TestWithParam<CommandRow> {};

const CommandRow commandRows[] = {
    {"NoneInEmptyText", QString(), QString()},
    {"SlashAlone", u"/"_qs, u"/"_qs},
    {"WholeText", u"/re"_qs, u"/re"_qs},
    {"LastWord", u"hello /se"_qs, u"/se"_qs},
    {"LastWordOnly", u"/se hello"_qs, QString()},
    {"BlankEndsIt", u"hello / "_qs, QString()},
    {"TabEndsIt", u"/re\t"_qs, QString()},
    {"LineEndEndsIt", u"/re\n"_qs, QString()},
    {"OtherLineEndEndsIt", u"/re\u2028"_qs, QString()},
    {"CarriageReturnAndLineFeedEndIt", u"/re\r\n"_qs, QString()},
    {"BehindALineEnd", u"a\n/re"_qs, u"/re"_qs},
    {"BehindANoBreakSpace", u"a\u00a0/re"_qs, u"/re"_qs},
    {"ZeroWidthSpacePartsNoWords", u"a\u200b/re"_qs, QString()},
    {"SlashWithinAWordIsNone", u"a/re"_qs, QString()},
    {"SecondSlashBelongsToIt", u"a //re/x"_qs, u"//re/x"_qs},
    {"WholeCommand", u"/new_note"_qs, u"/new_note"_qs},
    {"AnyCharactersBelongToIt", u" /\U0001f600$#"_qs, u"/\U0001f600$#"_qs},
};

TEST_P(CommandInput, IsTheLastWordWithASlash)
{
    EXPECT_EQ(currentCommandInput(GetParam().text), GetParam().input);
}

INSTANTIATE_TEST_SUITE_P(Rows, CommandInput, testing::ValuesIn(commandRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct TokenRow {
    const char* name;
    QString text;
    std::optional<QString> input;
};

class ParameterInput : public testing::TestWithParam<TokenRow> {};

const TokenRow parameterRows[] = {
    {"NoneWithoutDollar", u"/new_note Da"_qs, std::nullopt},
    {"DollarAlone", u"/new_note  $"_qs, u"$"_qs},
    {"FirstWord", u"/new_note  $Da"_qs, u"$Da"_qs},
    {"LastDollarCounts", u"$a b $Da"_qs, u"$Da"_qs},
    {"DollarWithinAWordCounts", u"cost5$Da"_qs, u"$Da"_qs},
    {"BlankBehindStaysOpen", u"$Da "_qs, u"$Da "_qs},
    {"BlanksBehindStayOpen", u"$Da \t\u3000"_qs, u"$Da \t\u3000"_qs},
    {"SecondWordFinishesIt", u"$Daily N"_qs, std::nullopt},
    {"SecondWordAfterALineEndFinishesIt", u"$Daily\nN"_qs, std::nullopt},
    {"SignBehindABlankFinishesIt", u"$Daily $"_qs, u"$"_qs},
    {"AnySignBehindABlankFinishesIt", u"$Daily \U0001f600"_qs, std::nullopt},
    {"SignsWithinTheWordKeepItOpen", u"$Da!ly more words"_qs, u"$Da!ly more words"_qs},
    {"HyphenBelongsToTheWord", u"$to-do x"_qs, std::nullopt},
    {"BlankMayNotComeFirst", u"$ x"_qs, u"$ x"_qs},
    {"TwoBlanksBeforeAWordFinishIt", u"$  x"_qs, std::nullopt},
    {"BlankBehindABlankAndAWordFinishes", u"$ x y"_qs, std::nullopt},
    {"LineEndBehindIsKept", u"$Da\n"_qs, u"$Da\n"_qs},
    {"LineEndsBehindDontFinish", u"$Da \r\n\u2029"_qs, u"$Da \r\n\u2029"_qs},
    {"LetterBeyondTheBasicPlane", u"$\U0001d49c x"_qs, std::nullopt},
    {"BlankBehindALineEndKeepsItOpen", u"$a\n "_qs, u"$a\n "_qs},
    {"EmojiKeepsItOpen", u"$\U0001f600 x"_qs, u"$\U0001f600 x"_qs},
};

TEST_P(ParameterInput, IsTheEndOfTheTextUntilASecondWord)
{
    EXPECT_EQ(currentParameterInput(GetParam().text), GetParam().input);
}

INSTANTIATE_TEST_SUITE_P(Rows, ParameterInput, testing::ValuesIn(parameterRows),
                         [](const auto& row) { return std::string(row.param.name); });

class HashtagInput : public testing::TestWithParam<TokenRow> {};

const TokenRow hashtagRows[] = {
    {"NoneWithoutHash", u"note tag"_qs, std::nullopt},
    {"AtTheStart", u"#ta"_qs, u"#ta"_qs},
    {"BehindABlank", u"note #ta"_qs, u"#ta"_qs},
    {"BehindALineEnd", u"note\n#ta"_qs, u"#ta"_qs},
    {"BehindANoBreakSpace", u"note\u00a0#ta"_qs, u"#ta"_qs},
    {"HashAlone", u"note #"_qs, u"#"_qs},
    {"NotWithinAWord", u"a#tag"_qs, std::nullopt},
    {"NotBehindAnotherHash", u"##tag"_qs, std::nullopt},
    {"NotBehindAZeroWidthSpace", u"a\u200b#tag"_qs, std::nullopt},
    {"LastHashAloneCounts", u"#one a#two"_qs, std::nullopt},
    {"BlankFinishesIt", u"note #tag "_qs, std::nullopt},
    {"TabFinishesIt", u"#tag\t"_qs, std::nullopt},
    {"CommaFinishesIt", u"note #tag, more"_qs, std::nullopt},
    {"FullStopFinishesIt", u"#tag."_qs, std::nullopt},
    {"ExclamationMarkFinishesIt", u"#tag!"_qs, std::nullopt},
    {"QuestionMarkFinishesIt", u"#tag?"_qs, std::nullopt},
    {"OtherSignsDont", u"#tag: more"_qs, u"#tag: more"_qs},
    {"SlashDoesnt", u"#tag/sub"_qs, u"#tag/sub"_qs},
    {"LineEndBehindDoesntAndIsKept", u"#tag\n"_qs, u"#tag\n"_qs},
    {"LineEndBeforeMoreDoes", u"#tag\nmore"_qs, std::nullopt},
    {"HyphenBelongsToIt", u"#to-do"_qs, u"#to-do"_qs},
    {"HyphenedOneIsFinishedToo", u"#to-do "_qs, std::nullopt},
    {"BlankMayComeFirst", u"# "_qs, u"# "_qs},
    {"SignMayComeFirst", u"#, x"_qs, u"#, x"_qs},
    {"LetterBeyondTheBasicPlane", u"#\U0001d49c "_qs, std::nullopt},
    {"EmojiKeepsItOpen", u"#\U0001f600 "_qs, u"#\U0001f600 "_qs},
};

TEST_P(HashtagInput, IsTheEndOfTheTextUntilTheWordEnds)
{
    EXPECT_EQ(currentHashtagInput(GetParam().text), GetParam().input);
}

INSTANTIATE_TEST_SUITE_P(Rows, HashtagInput, testing::ValuesIn(hashtagRows),
                         [](const auto& row) { return std::string(row.param.name); });

struct ExistingRow {
    const char* name;
    QString text;
    QStringList names;
    bool exists;
};

class ExistingParameter : public testing::TestWithParam<ExistingRow> {};

const QString million(1'000'000, u'm');

const ExistingRow existingRows[] = {
    {"AtTheEnd", u"/new_note  $Daily Note"_qs, {u"Daily Note"_qs}, true},
    {"BeforeABlank", u"$Daily Note x"_qs, {u"Daily Note"_qs}, true},
    {"BeforeALineEnd", u"$Daily Note\nx"_qs, {u"Daily Note"_qs}, true},
    {"BeforeASpaceOfAnotherKind", u"$Daily Note\u2003x"_qs, {u"Daily Note"_qs}, true},
    {"NotBeforeALetter", u"$Daily Notes"_qs, {u"Daily Note"_qs}, false},
    {"NotBeforeASign", u"$Daily Note,"_qs, {u"Daily Note"_qs}, false},
    {"NotWithoutDollar", u"Daily Note"_qs, {u"Daily Note"_qs}, false},
    {"NotInAnotherCase", u"$daily note"_qs, {u"Daily Note"_qs}, false},
    {"NotInPart", u"$Daily"_qs, {u"Daily Note"_qs}, false},
    {"AnyOfTheNames", u"$Work"_qs, {u"Inbox"_qs, u"Work"_qs}, true},
    {"ShorterNameOfTwo", u"$Daily x"_qs, {u"Daily Note"_qs, u"Daily"_qs}, true},
    {"LongerNameOfTwo", u"$Daily Note"_qs, {u"Daily Note"_qs, u"Daily Nota"_qs}, true},
    {"OneOfManyDollars", u"$5 $$Work"_qs, {u"Work"_qs}, true},
    {"EmptyNameAtTheEnd", u"cost $"_qs, {QString()}, true},
    {"EmptyNameBeforeABlank", u"$ x"_qs, {QString()}, true},
    {"EmptyNameNotBeforeALetter", u"$x"_qs, {QString()}, false},
    {"NoNames", u"$Work"_qs, {}, false},
    {"SignsOfPatternsAreThemselves", u"$a.c"_qs, {u"a.c"_qs}, true},
    {"SignsOfPatternsMatchNothingElse", u"$abc"_qs, {u"a.c"_qs}, false},
    {"BracketsAreThemselves", u"$[(x"_qs, {u"[(x"_qs}, true},
    {"NameWithALineEnd", u"$a\nb"_qs, {u"a\nb"_qs}, true},
    {"NameWithADollar", u"$a $b"_qs, {u"a $b"_qs}, true},
    {"HalfACharacterIsNone", u"$\U0001f600"_qs, {QString(QChar(0xd83d))}, false},
    {"LoneSurrogateIsItself", u'$' + QString(QChar(0xd83d)), {QString(QChar(0xd83d))}, true},
    {"DecomposedIsAnother", u"$e\u0301"_qs, {u"\u00e9"_qs}, false},
    {"NameOfAMillionUnits", u'$' + million, {million}, true},
    {"NameOfAMillionUnitsAndOne", u'$' + million, {million + u'm'}, false},
};

TEST_P(ExistingParameter, IsAWholeNameBehindADollar)
{
    EXPECT_EQ(hasExistingParameter(GetParam().text, GetParam().names), GetParam().exists);
}

INSTANTIATE_TEST_SUITE_P(Rows, ExistingParameter, testing::ValuesIn(existingRows),
                         [](const auto& row) { return std::string(row.param.name); });

// The rules in their plain form, as patterns.

QString trimmedNewlines(QString text)
{
    while (!text.isEmpty() && isNewline(text.back()))
        text.chop(1);
    return text;
}

std::optional<QString> plainToken(const QString& text, QChar sign, const IcuRegex& finished)
{
    const qsizetype position = text.lastIndexOf(sign);
    if (position < 0)
        return std::nullopt;
    const QString rest = text.sliced(position);
    return finished.firstMatch(trimmedNewlines(rest)) ? std::nullopt : std::optional(rest);
}

bool plainExisting(const QString& text, const QStringList& names)
{
    return std::ranges::any_of(names, [&text](const QString& name) {
        const IcuRegex pattern(u"\\$"_qs + IcuRegex::escaped(name) + u"(?=\\s|$)"_qs);
        return pattern.firstMatch(text).has_value();
    });
}

TEST(PartialTokens, AreThoseOfTheirPatternsInAnyText)
{
    const IcuRegex finishedParameter(u"^\\$[\\w\\s-]+\\s+\\S");
    const IcuRegex finishedTag(u"^#[\\w-]+[\\s,\\.!?]");
    const IcuRegex space(u"\\s");
    InputSamples samples(1);
    for (int round = 0; round < 40'000; ++round) {
        const QString text = samples.text(8);
        ASSERT_EQ(currentParameterInput(text), plainToken(text, u'$', finishedParameter)) << round;
        const qsizetype hash = text.lastIndexOf(u'#');
        const bool begins = hash <= 0 || space.firstMatch(text, {hash - 1, 1});
        ASSERT_EQ(currentHashtagInput(text),
                  begins ? plainToken(text, u'#', finishedTag) : std::nullopt)
            << round;
    }
}

TEST(PartialTokens, ExistIfTheirPatternsMatchInAnyText)
{
    InputSamples samples(2);
    int existing = 0;
    int many = 0;
    for (int round = 0; round < 8'000; ++round) {
        // With few places to look at and with many.
        const QString text = samples.text(round % 2 == 0 ? 6 : 60);
        const QStringList names{samples.anyOf(InputSamples::names()),
                                samples.anyOf(InputSamples::names())};
        const bool expected = plainExisting(text, names);
        ASSERT_EQ(hasExistingParameter(text, names), expected) << round;
        existing += expected ? 1 : 0;
        many += text.count(u'$') > 8 ? 1 : 0;
    }
    EXPECT_GT(existing, 400);
    EXPECT_GT(many, 400);
}

TEST(PartialTokens, AreFoundHoweverFarBeforeTheEnd)
{
    for (const qsizetype length : {0, 1, 1022, 1023, 1024, 1025, 2047, 2048, 5000}) {
        const QString rest = u'!' + QString(length, u'x');
        EXPECT_EQ(currentParameterInput(u"$a b $"_qs + rest), u'$' + rest) << length;
        EXPECT_EQ(currentHashtagInput(u"#a "_qs + u'#' + rest), u'#' + rest) << length;
        EXPECT_EQ(currentParameterInput(rest), std::nullopt) << length;
    }
}

TEST(PartialTokens, TakeTimeInProportionToTheText)
{
    const QString openParameter = u'$' + QString(200'000, u' ') + u'x';
    const QString tokens = u"$a #b, "_qs.repeated(20'000);
    QStringList names;
    for (int each = 0; each < 700; ++each)
        names.append(u"Name %1"_qs.arg(each, each % 40));
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(currentParameterInput(openParameter), std::nullopt);
    EXPECT_FALSE(hasExistingParameter(tokens, names));
    EXPECT_EQ(currentParameterInput(tokens), std::nullopt);
    EXPECT_EQ(currentHashtagInput(tokens), std::nullopt);
    EXPECT_LT(timer.elapsed(), 1000) << "square, it would take minutes";
}

} // namespace

} // namespace jotwell
