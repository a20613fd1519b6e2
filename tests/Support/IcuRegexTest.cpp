#include "Support/IcuRegex.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

TEST(IcuRegex, WordCharactersAreUnicode)
{
    const auto match = IcuRegex(u"/[\\w-]+").firstMatch(u"x /neue_n\u00f6tiz-\u00e9 y");
    ASSERT_TRUE(match);
    EXPECT_EQ(match->range(), (TextRange{2, 13}));
}

TEST(IcuRegex, RangesAreInUtf16Units)
{
    const auto match = IcuRegex(u"b").firstMatch(u"\U0001F600b");
    ASSERT_TRUE(match);
    EXPECT_EQ(match->range(), (TextRange{2, 1}));
}

TEST(IcuRegex, AGroupThatTookNoPartHasNoRange)
{
    const auto match = IcuRegex(u"(a)|(b)").firstMatch(u"b");
    ASSERT_TRUE(match);
    ASSERT_EQ(match->groups.size(), 3U);
    EXPECT_FALSE(match->groups[1]);
    EXPECT_EQ(match->groups[2], (TextRange{0, 1}));
}

TEST(IcuRegex, ALimitedRangeHidesWhatLiesAround)
{
    const IcuRegex word(u"\\bDay\\b");
    EXPECT_FALSE(word.firstMatch(u"Days"));
    EXPECT_TRUE(word.firstMatch(u"Days", TextRange{0, 3}));
    EXPECT_TRUE(IcuRegex(u"^b$").firstMatch(u"abc", TextRange{1, 1}));
    EXPECT_FALSE(IcuRegex(u"a(?=b)").firstMatch(u"ab", TextRange{0, 1}));
}

TEST(IcuRegex, ReplacesOnlyInsideTheRange)
{
    EXPECT_EQ(IcuRegex(u"a").replaced(u"aXaXa", TextRange{1, 3}, u"$1\\"), u"aX$1\\Xa"_qs);
}

TEST(IcuRegex, GivesEveryMatch)
{
    const auto matches = IcuRegex(u"#(\\w+)").matches(u"#a #bc", TextRange{0, 6});
    ASSERT_EQ(matches.size(), 2U);
    EXPECT_EQ(matches[1].groups[1], (TextRange{4, 2}));
}

TEST(IcuRegex, ABrokenPatternIsNone)
{
    EXPECT_FALSE(IcuRegex::compile(u"["));
    EXPECT_FALSE(IcuRegex::compile(u"(a"));
}

TEST(IcuRegex, AnEscapedTextMatchesItselfAlone)
{
    QString everyAsciiUnit;
    for (char16_t code = 1; code < 0x80; ++code)
        everyAsciiUnit += QChar(code);
    for (const QString& text :
         {everyAsciiUnit, u"\\E[a](b)*"_qs, u"a\\Qb"_qs, u"\u00e4\U0001F600"_qs, u"#x y"_qs}) {
        const auto regex = IcuRegex::compile(IcuRegex::escaped(text));
        ASSERT_TRUE(regex) << qPrintable(text);
        const QString around = u'<' + text + u'>';
        const auto match = regex->firstMatch(around);
        ASSERT_TRUE(match) << qPrintable(text);
        EXPECT_EQ(match->range(), (TextRange{1, text.size()}));
    }
}

TEST(IcuRegex, ALongRunDoesNotExhaustTheMatcher)
{
    const QString text = u'$' + QString(5'000'000, u'a');
    const auto match = IcuRegex(u"\\$([\\w\\s-]+)").firstMatch(text);
    ASSERT_TRUE(match);
    EXPECT_EQ(match->range().length, text.size());
}

} // namespace

} // namespace jotwell
