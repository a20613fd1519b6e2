#include "Support/CharacterClasses.h"

#include <unicode/regex.h>
#include <unicode/unistr.h>

#include <QString>

#include <gtest/gtest.h>

#include <vector>

namespace jotwell {

namespace {

constexpr char32_t lastCode = 0x10FFFF;

// Calls `check` with every code point, the surrogates too.
template <typename Check>
void forEveryCode(Check check)
{
    for (char32_t code = 0; code <= lastCode; ++code)
        check(code);
}

struct ClassRow {
    const char* name;
    bool (*isMember)(char32_t);
    const char16_t* pattern;
};

class CharacterClasses : public testing::TestWithParam<ClassRow> {};

const ClassRow classRows[] = {
    {"Word", isWord, u"\\w"},
    {"Space", isSpace, u"\\s"},
    {"Digit", isDigit, u"\\d"},
    {"Newline", isNewline, u"[\\u000a-\\u000d\\u0085\\u2028\\u2029]"},
    {"Blank", isBlank, u"[\\t\\p{Zs}]"},
    {"WhitespaceOrNewline", isWhitespaceOrNewline, u"[\\u000a-\\u000d\\u0085\\p{Z}]"},
    {"Ascii", isAscii, u"\\p{ASCII}"},
};

TEST_P(CharacterClasses, HasTheMembersThatIcuSays)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::RegexMatcher matcher(icu::UnicodeString(GetParam().pattern), 0, status);
    forEveryCode([&](char32_t code) {
        const icu::UnicodeString text(static_cast<UChar32>(code));
        matcher.reset(text);
        ASSERT_EQ(GetParam().isMember(code), static_cast<bool>(matcher.matches(status)))
            << std::hex << static_cast<unsigned>(code);
    });
    EXPECT_TRUE(U_SUCCESS(status));
}

INSTANTIATE_TEST_SUITE_P(Rows, CharacterClasses, testing::ValuesIn(classRows),
                         [](const auto& row) { return std::string(row.param.name); });

// The rules for lines, and the counting of words on one line, rest on this.
TEST(CharacterClasses, SpacesAreBlanksAndNewlines)
{
    forEveryCode([](char32_t code) {
        ASSERT_EQ(isSpace(code), isBlank(code) || isNewline(code)) << static_cast<unsigned>(code);
        ASSERT_EQ(isSpace(code), isWhitespaceOrNewline(code) || code == '\t');
    });
}

TEST(CharacterClasses, AsciiHasItsShareOfTheClasses)
{
    forEveryCode([](char32_t code) {
        ASSERT_EQ(isAsciiWord(code), isAscii(code) && isWord(code)) << static_cast<unsigned>(code);
        ASSERT_EQ(isAsciiDigit(code), isAscii(code) && isDigit(code));
    });
}

TEST(CharacterClasses, SurrogatesAreOfNoClass)
{
    for (char32_t code = 0xD800; code <= 0xDFFF; ++code) {
        for (const ClassRow& row : classRows)
            ASSERT_FALSE(row.isMember(code)) << row.name << ' ' << static_cast<unsigned>(code);
    }
}

struct StepRow {
    const char* name;
    QString text;
    std::vector<CodePoint> steps;
};

class CodePointSteps : public testing::TestWithParam<StepRow> {};

const QChar high(0xD83D);
const QChar low(0xDE00);

const StepRow stepRows[] = {
    {"Empty", QString(), {}},
    {"Units", u"a\u00e9\uffff"_qs, {{'a', 1}, {0xE9, 1}, {0xFFFF, 1}}},
    {"Pairs", u"\U0001F600\U0010FFFF"_qs, {{0x1F600, 2}, {0x10FFFF, 2}}},
    {"LoneHighAtTheEnd", u"a"_qs + high, {{'a', 1}, {0xD83D, 1}}},
    {"LoneLowAtTheBeginning", low + u"a"_qs, {{0xDE00, 1}, {'a', 1}}},
    {"LoneHighBeforeAUnit", high + u"a"_qs, {{0xD83D, 1}, {'a', 1}}},
    {"LoneLowBehindAUnit", u"a"_qs + low, {{'a', 1}, {0xDE00, 1}}},
    {"HighBeforeAPair", QString(high) + high + low, {{0xD83D, 1}, {0x1F600, 2}}},
    {"LowBehindAPair", QString(high) + low + low, {{0x1F600, 2}, {0xDE00, 1}}},
    {"TurnedRound", QString(low) + high, {{0xDE00, 1}, {0xD83D, 1}}},
};

TEST_P(CodePointSteps, LeadThroughTheTextBothWays)
{
    const QString& text = GetParam().text;
    std::vector<CodePoint> forwards;
    for (qsizetype place = 0; place < text.size(); place += forwards.back().length)
        forwards.push_back(codePointAt(text, place));
    EXPECT_EQ(forwards, GetParam().steps);

    std::vector<CodePoint> backwards;
    for (qsizetype place = text.size(); place > 0; place -= backwards.front().length)
        backwards.insert(backwards.begin(), codePointBefore(text, place));
    EXPECT_EQ(backwards, GetParam().steps);
}

TEST(CodePointSteps, SeeNothingOutsideOfTheText)
{
    const QString pair = QString(high) + low;
    EXPECT_EQ(codePointAt(QStringView(pair).first(1), 0), (CodePoint{0xD83D, 1}));
    EXPECT_EQ(codePointBefore(QStringView(pair).sliced(1), 1), (CodePoint{0xDE00, 1}));
}

INSTANTIATE_TEST_SUITE_P(Rows, CodePointSteps, testing::ValuesIn(stepRows),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace

} // namespace jotwell
