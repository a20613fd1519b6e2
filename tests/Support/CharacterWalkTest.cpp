#include "Support/CharacterWalk.h"

#include "Support/TextUnits.h"

#include <unicode/ubrk.h>

#include <QString>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <random>
#include <thread>
#include <vector>

namespace jotwell {

namespace {

/// ICU's break iterator, over the whole of each text.
class Reference {
public:
    Reference()
    {
        UErrorCode status = U_ZERO_ERROR;
        m_iterator = ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &status);
        EXPECT_TRUE(U_SUCCESS(status));
    }
    ~Reference() { ubrk_close(m_iterator); }
    Reference(const Reference&) = delete;
    Reference& operator=(const Reference&) = delete;

    std::vector<qsizetype> endsIn(const QString& text)
    {
        UErrorCode status = U_ZERO_ERROR;
        ubrk_setText(m_iterator, reinterpret_cast<const UChar*>(text.utf16()),
                     static_cast<int32_t>(text.size()), &status);
        EXPECT_TRUE(U_SUCCESS(status));
        std::vector<qsizetype> ends;
        for (int end = ubrk_next(m_iterator); end != UBRK_DONE; end = ubrk_next(m_iterator))
            ends.push_back(end);
        return ends;
    }

private:
    UBreakIterator* m_iterator = nullptr;
};

std::string unitsOf(const QString& text)
{
    QString units;
    for (const QChar unit : text)
        units += QString::number(unit.unicode(), 16) + u' ';
    return units.toStdString();
}

// Each number of characters that the text can be cut to, and one more.
void expectSameEnds(Reference& reference, const QString& text)
{
    const std::vector<qsizetype> ends = reference.endsIn(text);
    const auto count = static_cast<qsizetype>(ends.size());
    ASSERT_EQ(characterCount(text), count) << unitsOf(text);
    ASSERT_EQ(firstCharacters(text, 0).size(), 0);
    std::vector<qsizetype> boundaries{0};
    boundaries.insert(boundaries.end(), ends.begin(), ends.end());
    ASSERT_EQ(characterBoundaries(text), boundaries) << unitsOf(text);
    for (qsizetype most = 1; most <= count + 1; ++most) {
        const qsizetype end = ends.empty() ? 0 : ends[std::min(most, count) - 1];
        ASSERT_EQ(firstCharacters(text, most).size(), end) << unitsOf(text) << "by " << most;
    }
}

QString textOf(char32_t code)
{
    return QStringView(QChar::fromUcs4(code)).toString(); // QString::fromUcs4 drops U+FEFF
}

// At least one of each way in which code points make characters, and of what hinders it.
const char32_t hostileCodes[] = {
    'a',     ' ',     '\n',     '\r',    '\t',
    0,       0xA9,    0xAD,                      // a symbol that joins emoji, a soft hyphen
    0x300,   0x5B0,   0x5D0,    0x64B,   0x627,  // marks, Hebrew and Arabic with theirs
    0x600,   0x110BD,                            // marks that stand before a number
    0x915,   0x93F,   0x94D,    0x93C,   0xD4D,  // Devanagari, its virama and nukta; Malayalam's
    0xE01,   0xE33,   0xE48,                     // Thai, with a vowel that belongs to the letter
    0x1039,  0x1000,  0x17D2,                    // stackers
    0x1100,  0x1161,  0x11A8,   0xAC00,  0xAC01, // Hangul: L, V, T, LV, LVT
    0x200B,  0x200C,  0x200D,   0x2028,  0x85,   // spaces without width, joiners, line ends
    0x20E3,  0xFE0F,  0x2764,                    // emoji made of others
    0x1F468, 0x1F3FD, 0x1F1E9,  0x1F1EA, 0x1F600,
    0xE0020, 0xE0001, 0x1D165,  0x20000, // tags, a mark in the music, Han
    0xD83D,  0xDC68,  0xD800,   0xDFFF,  0xFEFF,
    0xFFFD,  0xFFFF,  0x10FFFF,
};

TEST(CharacterWalk, EveryCodePointIsAsTheBreakIteratorHasIt)
{
    Reference reference;
    for (char32_t code = 0; code <= 0xE0FFF; ++code) {
        if (code == 0x34000)
            code = 0xE0000; // no characters between
        const QString one = textOf(code);
        const QString text = one + one + u'x' + one + u'\r' + one + u'\u0915' + one + u'\u0915' +
                             one + u'\u1100' + one + u'\u0300' + one;
        ASSERT_EQ(characterCount(text), qsizetype(reference.endsIn(text).size()))
            << std::hex << unsigned(code);
    }
}

TEST(CharacterWalk, EveryThreeHostileCodePointsAreAsTheBreakIteratorHasThem)
{
    Reference reference;
    for (const char32_t first : hostileCodes) {
        for (const char32_t second : hostileCodes) {
            for (const char32_t third : hostileCodes)
                expectSameEnds(reference, textOf(first) + textOf(second) + textOf(third));
        }
    }
}

TEST(CharacterWalk, HostileTextsAreAsTheBreakIteratorHasThem)
{
    Reference reference;
    std::mt19937 random(20240229);
    std::uniform_int_distribution<std::size_t> anyCode(0, std::size(hostileCodes) - 1);
    for (int round = 0; round < 20000; ++round) {
        // Few different ones at a time, so that long chains of them come up: neighbours of the
        // list, as they have to do with each other, or any.
        const std::size_t choice = 1 + random() % 8;
        const bool isOfNeighbours = random() % 2 == 0;
        const std::size_t first = anyCode(random);
        std::vector<QString> pieces;
        while (pieces.size() < choice) {
            const std::size_t place = isOfNeighbours ? first + pieces.size() : anyCode(random);
            pieces.push_back(textOf(hostileCodes[place % std::size(hostileCodes)]));
        }
        QString text;
        for (unsigned length = random() % 24; length > 0; --length)
            text += pieces[random() % choice];
        expectSameEnds(reference, text);
    }
}

TEST(CharacterWalk, AnyUnitsAreAsTheBreakIteratorHasThem)
{
    Reference reference;
    std::mt19937 random(7);
    for (int round = 0; round < 20000; ++round) {
        QString text;
        for (unsigned length = random() % 12; length > 0; --length)
            text += QChar(static_cast<char16_t>(random()));
        expectSameEnds(reference, text);
    }
}

TEST(CharacterWalk, LongTextsOfAllScriptsAreAsTheBreakIteratorHasThem)
{
    Reference reference;
    const QString page =
        u"Call Ada about the garden. \u05E9\u05B8\u05C1\u05DC\u05D5\u05B9\u05DD "
        u"\u041F\u0440\u0438\u0432\u0435\u0442 \u4F60\u597D\uFF0C\u4E16\u754C "
        u"\uD55C\uAD6D\uC5B4 \u0928\u092E\u0938\u094D\u0924\u0947 \u0E19\u0E49\u0E33 "
        u"\U0001F468\u200D\U0001F469\u200D\U0001F467 \U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7 "
        u"\U0001F44D\U0001F3FD 1\uFE0F\u20E3 e\u0301\r\n"_qs;
    QString text;
    while (text.size() < 20000)
        text += page;
    const std::vector<qsizetype> ends = reference.endsIn(text);
    EXPECT_EQ(characterCount(text), qsizetype(ends.size()));
    for (qsizetype most = 1; most <= qsizetype(ends.size()); most += 97)
        EXPECT_EQ(firstCharacters(text, most).size(), ends[most - 1]);
}

TEST(CharacterWalk, ThreadsCountTheSame)
{
    QString text; // of every page of the kinds, which are made by whoever comes first
    for (char32_t code = 0xFFFF; code > 0x40; code -= 0x40)
        text += QChar(static_cast<char16_t>(code));
    std::array<qsizetype, 4> counts{};
    std::vector<std::thread> threads;
    for (qsizetype& count : counts)
        threads.emplace_back([&count, &text] { count = characterCount(text); });
    for (std::thread& thread : threads)
        thread.join();
    const auto expected = static_cast<qsizetype>(Reference().endsIn(text).size());
    EXPECT_THAT(counts, testing::Each(expected));
}

TEST(CharacterWalk, NoCharactersAreAskedFor)
{
    EXPECT_EQ(walkCharacters(u"", 3).end, 0);
    EXPECT_EQ(walkCharacters(u"\u0300", 0).end, 0);
    EXPECT_EQ(walkCharacters(u"\u200D", 0).count, 0);
}

} // namespace

} // namespace jotwell
