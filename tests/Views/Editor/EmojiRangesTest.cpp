#include "Views/Editor/EmojiRanges.h"

#include "Views/Editor/HighlightReference.h"
#include "Views/Editor/HostileTexts.h"

#include <unicode/uchar.h>
#include <unicode/uset.h>

#include <gtest/gtest.h>

#include <ostream>

namespace jotwell {

namespace {

struct Emoji {
    const char* rule;
    QStringView text;
    std::vector<TextRange> ranges;
};

void PrintTo(const Emoji& emoji, std::ostream* out)
{
    *out << emoji.rule;
}

class EmojiRangesTable : public testing::TestWithParam<Emoji> {};

TEST_P(EmojiRangesTable, Are)
{
    const QStringView text = GetParam().text;
    EXPECT_EQ(emojiRanges(text), GetParam().ranges) << described(text, emojiRanges(text));
}

const Emoji noEmoji[] = {
    {"an empty text", u"", {}},
    {"plain text", u"Plain text, 1 # 2 * 3", {}},
    {"signs of law", u"\u00a9 \u00ae \u2122", {}},
    {"symbols drawn as text", u"\u2764 \u2714 \u2194 \u263a \u25b6 \u303d \u3297", {}},
    {"an emoji that is to be text", u"a\u231a\ufe0e \U0001F600\ufe0e", {}},
    {"a letter with a selector", u"a\ufe0f", {}},
    {"a selector at the start", u"\ufe0f\ufe0f", {}},
    {"a keycap without a selector", u"1\u20e3", {}},
    {"text symbols joined", u"\u2764\u200d\u2714", {}},
    {"a tag on a text symbol", u"\u2764\U000E0067\U000E007F", {}},
    {"half an emoji",
     u"\xD83D"
     u"a\xDE00",
     {}},
    {"letters and signs beyond the basic plane", u"\U0001D49C\U0001F100\U00020000", {}},
    {"scripts", u"\u4e2d\u3042\uac00\u05d0\u2500\u2588", {}}};

const Emoji oneEmoji[] = {
    {"an emoji by itself", u"\U0001F600", {{0, 2}}},
    {"one in the basic plane", u"a\u231ab", {{1, 1}}},
    {"within text", u"ab \U0001F600 c", {{3, 2}}},
    {"a symbol with a selector", u"a \u2764\ufe0f b", {{2, 2}}},
    {"a sign of law with a selector", u"\u00a9\ufe0f", {{0, 2}}},
    {"a symbol of the east with a selector", u"\u303d\ufe0f\u3297\ufe0f", {{0, 4}}},
    {"an emoji with a selector", u"\U0001F600\ufe0fa", {{0, 3}}},
    {"a keycap", u"1\ufe0f\u20e3", {{0, 3}}},
    {"a digit with a selector", u"1\ufe0f 2", {{0, 2}}},
    {"all keycaps", u"a#\ufe0f\u20e3*\ufe0f\u20e3", {{1, 6}}},
    {"a flag", u"\U0001F1E9\U0001F1EA", {{0, 4}}},
    {"half a flag", u"\U0001F1E9", {{0, 2}}},
    {"a skin tone", u"\U0001F44D\U0001F3FD", {{0, 4}}},
    {"a skin tone on a text symbol", u"\u261d\U0001F3FD", {{0, 3}}},
    {"a skin tone behind a selector", u"\u261d\ufe0f\U0001F3FD", {{0, 4}}},
    {"a skin tone alone", u"a\U0001F3FD", {{1, 2}}},
    {"a family", u"\U0001F468\u200d\U0001F469\u200d\U0001F467", {{0, 8}}},
    {"a heart in a sequence", u"\U0001F468\u200d\u2764\ufe0f\u200d\U0001F468", {{0, 8}}},
    {"a sequence that lacks its selector", u"\u2764\u200d\U0001F525", {{0, 4}}},
    {"a text symbol that ends a sequence", u"\U0001F468\u200d\u2695", {{0, 4}}},
    {"a flag of tags",
     u"\U0001F3F4\U000E0067\U000E0062\U000E0065\U000E006E\U000E0067\U000E007Fa",
     {{0, 14}}},
    {"tags without an end", u"\U0001F3F4\U000E0067\U000E0062a", {{0, 2}}},
    {"a joiner with nothing behind it", u"\U0001F468\u200da", {{0, 2}}},
    {"a joiner before text", u"\U0001F468\u200d\u2764\ufe0e", {{0, 2}}},
    {"a joiner before an emoji that is to be text", u"\U0001F468\u200d\U0001F525\ufe0e", {{0, 2}}},
    {"a joiner behind what is to be text", u"\u2764\ufe0e\u200d\U0001F525", {{3, 2}}},
    {"an arrow that ends a sequence", u"\U0001F642\u200d\u2194\ufe0f", {{0, 5}}},
    {"a joiner at the end", u"\U0001F468\u200d", {{0, 2}}},
    {"a joiner before half an emoji", u"\U0001F468\u200d\xD83D", {{0, 2}}},
    {"a selector too many", u"\U0001F600\ufe0f\ufe0f", {{0, 3}}},
    {"a tone on a symbol that is to be text", u"\u261d\ufe0e\U0001F3FD", {{2, 2}}},
    {"a tone on a text symbol that takes none", u"\u2764\U0001F3FD", {{1, 2}}},
    {"a flag behind a text symbol", u"\u2764\U0001F1E9\U0001F1EA", {{1, 4}}},
    {"an end of tags without tags", u"\U0001F3F4\U000E007F", {{0, 2}}},
    {"a joiner before a digit", u"\U0001F468\u200d1", {{0, 2}}},
    {"crossed out", u"\U0001F6AC\u20e0", {{0, 3}}}};

const Emoji moreEmoji[] = {
    {"adjoining ones are one range", u"\U0001F600\U0001F600\u231a", {{0, 5}}},
    {"a flag and a half", u"\U0001F1E9\U0001F1EA\U0001F1EB", {{0, 6}}},
    {"among lines", u"a\n\U0001F600\n\u231a", {{2, 2}, {5, 1}}},
    {"two flags", u"\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7 ", {{0, 8}}},
    {"a blank parts them", u"\U0001F600 \U0001F600", {{0, 2}, {3, 2}}},
    {"text among them", u"\U0001F600\u231a\ufe0e\U0001F600", {{0, 2}, {4, 2}}},
    {"a tone on what takes none", u"\U0001F600\U0001F3FD", {{0, 4}}}};

INSTANTIATE_TEST_SUITE_P(None, EmojiRangesTable, testing::ValuesIn(noEmoji));
INSTANTIATE_TEST_SUITE_P(One, EmojiRangesTable, testing::ValuesIn(oneEmoji));
INSTANTIATE_TEST_SUITE_P(More, EmojiRangesTable, testing::ValuesIn(moreEmoji));

bool has(char32_t code, UProperty property)
{
    return u_hasBinaryProperty(static_cast<UChar32>(code), property) != 0;
}

TEST(EmojiRanges, EveryCharacterIsDrawnAsUnicodePresentsIt)
{
    for (char32_t code = 0; code <= 0x10FFFF; ++code) {
        const QString character = QString::fromUcs4(&code, 1);
        const std::vector<TextRange> whole{{0, character.size()}};
        const std::vector<TextRange> withSelector{{0, character.size() + 1}};
        ASSERT_EQ(emojiRanges(character) == whole, has(code, UCHAR_EMOJI_PRESENTATION))
            << std::uint32_t{code};
        ASSERT_EQ(emojiRanges(character + QChar(0xFE0F)) == withSelector, has(code, UCHAR_EMOJI))
            << std::uint32_t{code};
        ASSERT_TRUE(emojiRanges(character + QChar(0xFE0E)).empty()) << std::uint32_t{code};
    }
}

/// Every sequence that Unicode recommends for general interchange.
std::vector<QString> recommendedSequences()
{
    std::vector<QString> sequences;
    UErrorCode status = U_ZERO_ERROR;
    const USet* const set = u_getBinaryPropertySet(UCHAR_RGI_EMOJI, &status);
    for (int32_t item = 0; U_SUCCESS(status) && item < uset_getItemCount(set); ++item) {
        char16_t units[64];
        UChar32 start = 0;
        UChar32 end = 0;
        const int32_t length = uset_getItem(set, item, &start, &end, units, 64, &status);
        if (length > 0)
            sequences.emplace_back(reinterpret_cast<const QChar*>(units), length);
    }
    return sequences;
}

TEST(EmojiRanges, EveryRecommendedSequenceIsOneRange)
{
    const std::vector<QString> sequences = recommendedSequences();
    ASSERT_GT(sequences.size(), 2'000U);
    for (const QString& sequence : sequences) {
        const std::vector<TextRange> expected{{2, sequence.size()}};
        EXPECT_EQ(emojiRanges(u"a "_qs + sequence + u'b'), expected) << qPrintable(sequence);
    }
}

TEST(EmojiRanges, RangesNeverTouchNorPartACharacter)
{
    HostileTexts texts;
    for (int round = 0; round < 30'000; ++round) {
        const QString text = texts.next(20);
        qsizetype end = -1;
        for (const TextRange& range : emojiRanges(text)) {
            ASSERT_GT(range.location, end) << qPrintable(text);
            ASSERT_GT(range.length, 0) << qPrintable(text);
            end = range.end();
            ASSERT_LE(end, text.size()) << qPrintable(text);
            for (const qsizetype edge : {range.location, end}) {
                const bool parts = edge > 0 && edge < text.size() &&
                                   text[edge - 1].isHighSurrogate() && text[edge].isLowSurrogate();
                ASSERT_FALSE(parts) << qPrintable(text);
            }
        }
    }
}

TEST(EmojiRanges, EndlessTextsAreReadOnce)
{
    std::size_t ranges = 0;
    for (const QString& text : endlessTexts())
        ranges += emojiRanges(text).size();
    EXPECT_GT(ranges, 5U);
}

} // namespace

} // namespace jotwell
