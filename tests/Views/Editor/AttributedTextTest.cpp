#include "Views/Editor/AttributedText.h"

#include "Views/Editor/HighlightReference.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace jotwell {

namespace {

constexpr FontStyle bold{FontFamily::system, 14, FontWeight::bold, false};
constexpr FontStyle mono{FontFamily::monospaced, 13, FontWeight::regular, false};

std::string runs(const AttributedText& text)
{
    return described(u"abcdefghij", text.runs());
}

TEST(AttributedText, IsPlainAtFirst)
{
    EXPECT_TRUE(AttributedText(0).runs().empty());
    EXPECT_TRUE(AttributedText(1'000).runs().empty());
}

TEST(AttributedText, EachKindIsKeptByItself)
{
    AttributedText text(10);
    text.setFont({0, 5}, bold);
    text.setColor({1, 5}, TextColor::black);
    text.expand({2, 5});
    text.underline({3, 5});
    text.strikeThrough({4, 5});
    EXPECT_EQ(runs(text), "0:a 14 bold; 1:b 14 bold black; 2:c 14 bold black expanded; "
                          "3:d 14 bold black expanded underlined; "
                          "4:e 14 bold black expanded underlined struck; "
                          "5:f black expanded underlined struck; 6:g expanded underlined struck; "
                          "7:h underlined struck; 8:i struck");
}

TEST(AttributedText, ALaterFontReplacesTheWholeFont)
{
    AttributedText text(10);
    text.setFont({0, 4}, {FontFamily::monospaced, 19, FontWeight::medium, true});
    text.setFont({2, 4}, bold);
    EXPECT_EQ(runs(text), "0:ab mono 19 medium italic; 2:cdef 14 bold");
}

TEST(AttributedText, ALaterColorReplacesTheColor)
{
    AttributedText text(10);
    text.setColor({0, 4}, TextColor::systemGreen);
    text.setColor({2, 4}, TextColor::systemBlue);
    EXPECT_EQ(runs(text), "0:ab green; 2:cdef blue");
}

TEST(AttributedText, WhatIsSetBackToPlainIsNoRun)
{
    AttributedText text(10);
    text.setFont({0, 6}, mono);
    text.setColor({0, 6}, TextColor::black);
    text.setFont({2, 2}, FontStyle{});
    text.setColor({2, 2}, TextColor::text);
    EXPECT_EQ(runs(text), "0:ab mono 13 black; 4:ef mono 13 black");
}

TEST(AttributedText, AdjoiningStretchesOfEqualAttributesAreOneRun)
{
    AttributedText text(10);
    text.underline({0, 3});
    text.underline({3, 3});
    text.underline({8, 1});
    EXPECT_EQ(runs(text), "0:abcdef underlined; 8:i underlined");
}

TEST(AttributedText, WhatLiesBeyondTheTextIsPassedOver)
{
    AttributedText text(10);
    text.underline({8, 5});
    text.underline({10, 1});
    text.underline({-2, 3});
    text.underline({5, 0});
    text.underline({7, -1});
    EXPECT_EQ(runs(text), "0:a underlined; 8:ij underlined");
}

TEST(AttributedText, EveryFontComesOutAsItWentIn)
{
    for (const FontFamily family : {FontFamily::system, FontFamily::monospaced}) {
        for (const FontWeight weight :
             {FontWeight::regular, FontWeight::medium, FontWeight::bold}) {
            for (int size = 1; size < 64; ++size) {
                const FontStyle font{family, size, weight, size % 2 == 0};
                AttributedText text(1);
                text.setFont({0, 1}, font);
                ASSERT_EQ(text.runs().size(), font == FontStyle{} ? 0U : 1U);
                for (const AttributeRun& run : text.runs())
                    EXPECT_EQ(run.attributes.font, font);
            }
        }
    }
}

/// One attribute for each unit.
class PlainAttributes {
public:
    explicit PlainAttributes(std::size_t length) : m_units(length) {}

    void set(const TextRange& range, const TextAttributes& look)
    {
        for (qsizetype unit = range.location; unit < range.end(); ++unit)
            m_units[static_cast<std::size_t>(unit)] = look;
    }

    [[nodiscard]] std::vector<AttributeRun> runs() const
    {
        std::vector<AttributeRun> runs;
        for (std::size_t unit = 0; unit < m_units.size(); ++unit) {
            const bool goesOn = unit > 0 && m_units[unit] == m_units[unit - 1];
            if (m_units[unit] == TextAttributes{})
                continue;
            if (goesOn)
                ++runs.back().range.length;
            else
                runs.push_back({{static_cast<qsizetype>(unit), 1}, m_units[unit]});
        }
        return runs;
    }

private:
    std::vector<TextAttributes> m_units;
};

TEST(AttributedText, RunsOfAnyLengthAtAnyPlaceAreFound)
{
    std::mt19937 random(20240305);
    for (int round = 0; round < 2'000; ++round) {
        const std::size_t length = random() % 300;
        AttributedText text(static_cast<qsizetype>(length));
        PlainAttributes plain(length);
        for (int times = 0; times < 4 && length > 0; ++times) {
            const auto start = static_cast<qsizetype>(random() % length);
            const auto rest = static_cast<std::size_t>(static_cast<qsizetype>(length) - start);
            const TextRange range{start, static_cast<qsizetype>(random() % (rest + 1))};
            const auto color = static_cast<TextColor>(random() % 4);
            text.setColor(range, color);
            TextAttributes look;
            look.color = color;
            plain.set(range, look);
        }
        ASSERT_EQ(text.runs(), plain.runs());
    }
}

} // namespace

} // namespace jotwell
