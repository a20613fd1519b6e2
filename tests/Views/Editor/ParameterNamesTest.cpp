#include "Views/Editor/ParameterNames.h"

#include "Support/TextUnits.h"
#include "Views/Editor/HostileTexts.h"

#include <gtest/gtest.h>

namespace jotwell {

namespace {

constexpr qsizetype none = -1;

qsizetype lengthOf(ParameterNames& names, QStringView text)
{
    return names.lengthAtStart(text).value_or(none);
}

qsizetype lengthOf(const QStringList& names, QStringView text)
{
    ParameterNames prepared(names);
    return lengthOf(prepared, text);
}

// As the rule is told: the name's count of characters makes the stretch that has to equal it.
qsizetype plainLength(const QStringList& names, QStringView text)
{
    for (const QString& name : names) {
        const qsizetype length = std::min(characterCount(name), text.size());
        if (text.first(length) == name)
            return length;
    }
    return none;
}

TEST(ParameterNames, TheFirstInTheListWins)
{
    EXPECT_EQ(lengthOf({u"ab"_qs, u"abc"_qs, u"a"_qs}, u"abcd"), 2);
    EXPECT_EQ(lengthOf({u"abc"_qs, u"ab"_qs, u"a"_qs}, u"abcd"), 3);
    EXPECT_EQ(lengthOf({u"b"_qs, u"a"_qs, u"ab"_qs}, u"abcd"), 1);
    EXPECT_EQ(lengthOf({u"b"_qs, u"ac"_qs}, u"abcd"), none);
    EXPECT_EQ(lengthOf({}, u"abcd"), none);
}

TEST(ParameterNames, ANameHasToFitIntoTheText)
{
    EXPECT_EQ(lengthOf({u"abcd"_qs}, u"abc"), none);
    EXPECT_EQ(lengthOf({u"abc"_qs}, u"abc"), 3);
    EXPECT_EQ(lengthOf({u"abc"_qs}, u""), none);
}

TEST(ParameterNames, AnEmptyNameFitsEverywhere)
{
    EXPECT_EQ(lengthOf({u"b"_qs, u""_qs, u"a"_qs}, u"a"), 0);
    EXPECT_EQ(lengthOf({u"a"_qs, u""_qs, u"b"_qs}, u"a"), 1);
    EXPECT_EQ(lengthOf({u""_qs}, u""), 0);
}

TEST(ParameterNames, ANameOfMoreUnitsThanCharactersIsNeverFound)
{
    EXPECT_EQ(lengthOf({u"e\u0301"_qs}, u"e\u0301 a"), none);
    EXPECT_EQ(lengthOf({u"\U0001F600"_qs, u"\U0001F600a"_qs}, u"\U0001F600a"), none);
    EXPECT_EQ(lengthOf({u"a\r\n"_qs, u"a"_qs}, u"a\r\n"), 1);
}

TEST(ParameterNames, ANulIsACharacterLikeAnyOther)
{
    const QString nul(1, QChar(0));
    EXPECT_EQ(lengthOf({nul}, u"a"), none);
    EXPECT_EQ(lengthOf({u"b"_qs, nul}, nul), 1);
}

// Many questions are answered by other means than the first ones.
TEST(ParameterNames, TheAnswerDoesNotDependOnHowOftenItIsAsked)
{
    HostileTexts texts;
    for (int round = 0; round < 300; ++round) {
        QStringList names;
        for (qsizetype count = texts.upTo(12); count > 0; --count)
            names.append(texts.next(1 + static_cast<std::size_t>(texts.upTo(3))));
        if (round % 3 != 0)
            names.removeAll(QString());
        ParameterNames prepared(names);
        for (int times = 0; times < 300; ++times) {
            const QString text = names.isEmpty() || times % 2 == 0
                                     ? texts.next(6)
                                     : names[times % names.size()] + texts.next(4);
            ASSERT_EQ(lengthOf(prepared, text), plainLength(names, text))
                << qPrintable(text) << " of " << qPrintable(names.join(u'|'));
        }
    }
}

TEST(ParameterNames, EveryShortTextAndEveryFewShortNames)
{
    QStringList words;
    forEachText(u"ab", 3, [&words](const QString& word) { words.append(word); });
    words.removeFirst();
    for (const QString& first : words) {
        for (const QString& second : words) {
            for (const QString& third : words) {
                const QStringList names{first, second, third};
                ParameterNames prepared(names);
                for (int times = 0; times < 3; ++times) {
                    for (const QString& text : words)
                        ASSERT_EQ(lengthOf(prepared, text), plainLength(names, text))
                            << qPrintable(text) << " of " << qPrintable(names.join(u'|'));
                }
            }
        }
    }
}

} // namespace

} // namespace jotwell
