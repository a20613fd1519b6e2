#include "Support/TextUnits.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

struct CountRow {
    const char* name;
    QString text;
    qsizetype characters;
    qsizetype units;
};

class TextUnitsCount : public testing::TestWithParam<CountRow> {};

const CountRow countRows[] = {
    {"Empty", u""_qs, 0, 0},
    {"Latin", u"abc"_qs, 3, 3},
    {"CarriageReturnAndLineFeedAreOne", u"a\r\nb"_qs, 3, 4},
    {"LoneCarriageReturn", u"a\rb"_qs, 3, 3},
    {"Precomposed", u"\u00e4"_qs, 1, 1},
    {"CombiningMark", u"a\u0308"_qs, 1, 2},
    {"Astral", u"\U0001F600"_qs, 1, 2},
    {"FamilyJoined", u"\U0001F468\u200D\U0001F469\u200D\U0001F467"_qs, 1, 8},
    {"Flag", u"\U0001F1E9\U0001F1EA"_qs, 1, 4},
    {"SkinTone", u"\U0001F44D\U0001F3FD"_qs, 1, 4},
    {"HangulJamo", u"\u1112\u1161\u11ab"_qs, 1, 3},
    {"Nul", QString(1, QChar(0)), 1, 1},
    {"SoftHyphenStandsAlone", u"a\u00adb"_qs, 3, 3},
};

TEST_P(TextUnitsCount, CountsBothWays)
{
    EXPECT_EQ(characterCount(GetParam().text), GetParam().characters);
    EXPECT_EQ(utf16Length(GetParam().text), GetParam().units);
}

INSTANTIATE_TEST_SUITE_P(Rows, TextUnitsCount, testing::ValuesIn(countRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(TextUnits, TheFirstCharactersAreWhole)
{
    EXPECT_EQ(firstCharacters(u"abc", 2), u"ab");
    EXPECT_EQ(firstCharacters(u"abc", 3), u"abc");
    EXPECT_EQ(firstCharacters(u"abc", 4), u"abc");
    EXPECT_EQ(firstCharacters(u"abc", 0), u"");
    EXPECT_EQ(firstCharacters(u"", 2), u"");
    EXPECT_EQ(firstCharacters(u"ab\u0308c", 2), u"ab\u0308");
    EXPECT_EQ(firstCharacters(u"ab\u0308", 1), u"a");
    EXPECT_EQ(firstCharacters(u"\r\n\r\na", 2), u"\r\n\r\n");
    EXPECT_EQ(firstCharacters(u"\U0001F600\U0001F601", 1), u"\U0001F600");
    EXPECT_EQ(firstCharacters(u"a\u0308\u0308\u0308", 2), u"a\u0308\u0308\u0308");
}

TEST(TextUnits, BoundariesAreThoseOfTheCharactersAndTheEnd)
{
    using Places = std::vector<qsizetype>;
    EXPECT_EQ(characterBoundaries(u""), Places({0}));
    EXPECT_EQ(characterBoundaries(u"ab"), Places({0, 1, 2}));
    EXPECT_EQ(characterBoundaries(u"\r\na\u0308"), Places({0, 2, 4}));
    EXPECT_EQ(characterBoundaries(u"x\U0001F600y"), Places({0, 1, 3, 4}));
}

TEST(TextUnits, WhitespaceHasNoLineEnds)
{
    for (const char16_t space : {u' ', u'\t', u'\u00a0', u'\u2003', u'\u202f', u'\u3000'})
        EXPECT_TRUE(isWhitespace(space)) << int(space);
    for (const char16_t other : {u'\n', u'\r', u'\u0085', u'\u2028', u'a', u'\u200b'})
        EXPECT_FALSE(isWhitespace(other)) << int(other);
}

TEST(TextUnits, NewlinesAreTheSevenLineEnds)
{
    for (const char16_t end : {u'\n', u'\v', u'\f', u'\r', u'\u0085', u'\u2028', u'\u2029'})
        EXPECT_TRUE(isNewline(end)) << int(end);
    for (const char16_t other : {u' ', u'\t', u'\x0e', u'\u2027', u'\u202a'})
        EXPECT_FALSE(isNewline(other)) << int(other);
}

TEST(TextUnits, TrimsOnlyTheEnds)
{
    EXPECT_EQ(trimmedWhitespace(u" \ta b\u3000"), u"a b"_qs);
    EXPECT_EQ(trimmedWhitespace(u"\n a \n"), u"\n a \n"_qs);
    EXPECT_EQ(trimmedWhitespaceAndNewlines(u"\r\n\u2028 a\nb \u0085"), u"a\nb"_qs);
    EXPECT_EQ(trimmedWhitespaceAndNewlines(u" \n "), QString());
    EXPECT_EQ(trimmedWhitespaceAndNewlines(u""), QString());
}

TEST(TextUnits, TheFirstLineEndsAtAnyLineEnd)
{
    EXPECT_EQ(firstLine(u"a \nb"), u"a ");
    EXPECT_EQ(firstLine(u"a\u2029b"), u"a");
    EXPECT_EQ(firstLine(u"\nb"), u"");
    EXPECT_EQ(firstLine(u"whole"), u"whole");
}

TEST(TextUnits, SortsByCodePointAndNotByUnit)
{
    EXPECT_TRUE(precedesByCodePoint(u"A", u"a"));
    EXPECT_TRUE(precedesByCodePoint(u"a", u"ab"));
    EXPECT_FALSE(precedesByCodePoint(u"a", u"a"));
    EXPECT_TRUE(precedesByCodePoint(u"\uffee", u"\U0001F600"));
    EXPECT_FALSE(precedesByCodePoint(u"\U0001F600", u"\uffee"));
}

TEST(TextUnits, NothingSortsBeforeEverythingElse)
{
    for (const QStringView nothing : {QStringView(), QStringView(u"")}) {
        EXPECT_TRUE(precedesByCodePoint(nothing, u"a"));
        EXPECT_FALSE(precedesByCodePoint(u"a", nothing));
        EXPECT_FALSE(precedesByCodePoint(nothing, QStringView()));
    }
}

TEST(TextUnits, PlainTextBeforeAMarkIsCountedAsItStands)
{
    for (int before = 0; before < 70; ++before) {
        const QString plain(before, u'a');
        // A mark, a mark that follows a sign of pictures, a pair of line ends, a family.
        EXPECT_EQ(characterCount(plain + u"b\u0301"_qs), before + 1);
        EXPECT_EQ(characterCount(plain + u"\u00A9\uFE0F"_qs), before + 1);
        EXPECT_EQ(characterCount(plain + u"\r\nb"_qs), before + 2);
        EXPECT_EQ(characterCount(plain + u"\U0001F468\u200D\U0001F467\u0301b"_qs), before + 2);
        EXPECT_EQ(characterCount(plain + u"\n"_qs), before + 1);
    }
    EXPECT_EQ(characterCount(u"\n\u0301"_qs), 2);
}

TEST(TextUnits, KeepsAByteOrderMark)
{
    EXPECT_EQ(textFromUtf8("\xef\xbb\xbf\xc3\xa4").toStdU16String(), u"\ufeff\u00e4");
    EXPECT_EQ(textFromUtf8(QByteArrayView("a\0b", 3)).size(), 3);
}

} // namespace

} // namespace jotwell
