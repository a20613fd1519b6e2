#include "Services/Input/CharacterRemoval.h"

#include "Services/Input/InputSamples.h"

#include "QtPrinters.h"
#include "Support/CharacterClasses.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

QString removed(const QString& text, const std::vector<TextRange>& ranges)
{
    CharacterRemoval removal(text);
    for (const TextRange& range : ranges)
        removal.removeWithSpaceBefore(range);
    return removal.result();
}

TEST(CharacterRemoval, LeavesATextAloneAtFirst)
{
    EXPECT_EQ(removed(u"a b"_qs, {}), u"a b"_qs);
    EXPECT_EQ(removed(QString(), {}), QString());
}

TEST(CharacterRemoval, CountsCharacters)
{
    EXPECT_EQ(removed(u"\U0001f600ab"_qs, {{1, 1}}), u"\U0001f600b"_qs);
    EXPECT_EQ(removed(u"e\u0301\r\nab"_qs, {{2, 1}}), u"e\u0301b"_qs);
}

TEST(CharacterRemoval, TakesTheWhiteSpaceBefore)
{
    EXPECT_EQ(removed(u"a \u2029b"_qs, {{3, 1}}), u"a"_qs);
    EXPECT_EQ(removed(u" \tb"_qs, {{2, 1}}), QString());
    EXPECT_EQ(removed(u"a  b"_qs, {{3, 0}}), u"ab"_qs);
}

TEST(CharacterRemoval, PassesOverWhatReachesBeyondTheText)
{
    EXPECT_EQ(removed(u"abc"_qs, {{1, 3}}), u"abc"_qs);
    EXPECT_EQ(removed(u"abc"_qs, {{1, 2}}), u"a"_qs);
    EXPECT_EQ(removed(u"abc"_qs, {{1, 2}, {0, 2}}), u"a"_qs);
}

TEST(CharacterRemoval, CountsWhatIsLeft)
{
    EXPECT_EQ(removed(u"abcdef"_qs, {{1, 2}, {1, 2}}), u"af"_qs);
    EXPECT_EQ(removed(u"abcdef"_qs, {{1, 2}, {0, 2}}), u"ef"_qs);
}

TEST(CharacterRemoval, WhatClosesUpMayBecomeOneCharacter)
{
    EXPECT_EQ(removed(u"abx\u0308c"_qs, {{2, 1}, {1, 1}}), u"ac"_qs);
    EXPECT_EQ(removed(u"axb\u0308c"_qs, {{1, 1}, {0, 1}}), u"b\u0308c"_qs);
    // The letter that goes leaves its neighbours as one syllable.
    EXPECT_EQ(removed(u"a\u1100b\u1161c"_qs, {{2, 1}, {1, 1}}), u"ac"_qs);
}

QString plainRemoved(QString text, const std::vector<TextRange>& ranges)
{
    for (const TextRange& range : ranges) {
        const auto boundaries = characterBoundaries(text);
        if (range.end() >= static_cast<qsizetype>(boundaries.size()))
            continue;
        qsizetype start = boundaries[range.location];
        while (start > 0 && isSpace(text[start - 1].unicode()))
            --start;
        text.remove(start, boundaries[range.end()] - start);
    }
    return text;
}

TEST(CharacterRemoval, IsThatOfAPlainLoopForAnyRanges)
{
    InputSamples samples(4);
    for (int round = 0; round < 40'000; ++round) {
        const QString text = samples.text(12);
        std::vector<TextRange> ranges;
        for (int count = samples.below(4); count > 0; --count)
            ranges.push_back({samples.below(20), samples.below(5)});
        if (samples.below(2) == 0)
            std::ranges::sort(ranges, std::greater(), &TextRange::location);
        ASSERT_EQ(removed(text, ranges), plainRemoved(text, ranges)) << round;
    }
}

} // namespace

} // namespace jotwell
