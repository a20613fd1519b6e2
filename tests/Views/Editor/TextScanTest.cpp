#include "Views/Editor/TextScan.h"

#include <QString>

#include <gtest/gtest.h>

namespace jotwell {

namespace {

bool isStar(char16_t unit)
{
    return unit == u'*';
}

TEST(TextScan, TheFirstUnitIsFoundAtAnyPlaceFromAnyPlace)
{
    for (qsizetype place = 0; place < 150; ++place) {
        QString text(150, u'a');
        text[place] = u'*';
        text[149] = u'*';
        for (qsizetype from = 0; from < 150; ++from) {
            const qsizetype expected = from <= place ? place : 149;
            ASSERT_EQ(findUnit(text, from, isStar), expected) << from;
            ASSERT_EQ(find(text, u'*', from), expected) << from;
        }
    }
}

TEST(TextScan, WhatIsNotThereIsFoundAtTheEnd)
{
    for (qsizetype length = 0; length < 100; ++length) {
        const QString text = QString(length, u'a') + u'*';
        const QStringView seen = QStringView(text).first(length);
        for (qsizetype from = 0; from <= length; ++from) {
            ASSERT_EQ(findUnit(seen, from, isStar), length);
            ASSERT_EQ(find(seen, u'*', from), length);
            ASSERT_EQ(findRepeated(seen, u'*', 2, from), length);
        }
    }
}

TEST(TextScan, UnitsInARowAreFound)
{
    EXPECT_EQ(findRepeated(u"a*b**c***", u'*', 2, 0), 3);
    EXPECT_EQ(findRepeated(u"a*b**c***", u'*', 2, 3), 3);
    EXPECT_EQ(findRepeated(u"a*b**c***", u'*', 2, 4), 6);
    EXPECT_EQ(findRepeated(u"a*b**c***", u'*', 3, 0), 6);
    EXPECT_EQ(findRepeated(u"a*b**c***", u'*', 3, 7), 9);
    EXPECT_EQ(findRepeated(u"a*b**c***", u'*', 4, 0), 9);
    EXPECT_EQ(findRepeated(u"***", u'*', 2, 1), 1);
}

TEST(TextScan, EveryLineEndIsFound)
{
    for (const char16_t newline : u"\n\v\f\r\u0085\u2028\u2029") {
        if (newline == u'\0')
            continue;
        QString text(50, u'a');
        text[40] = newline;
        EXPECT_EQ(findNewline(text, 3), 40) << int(newline);
    }
    EXPECT_EQ(findNewline(u"\t\x1c\x1f \u00a0\u2027\u202a\u3000", 0), 8);
}

TEST(TextScan, WordsAndSpacesEndWhereTheirClassDoes)
{
    EXPECT_EQ(afterSpaces(u"a \t\u3000\r\nb", 1), 6);
    EXPECT_EQ(afterSpaces(u"a", 0), 0);
    EXPECT_EQ(afterSpaces(u"  ", 1), 2);
    EXPECT_EQ(afterWord(u"a_\u00e9\u0301\U0001D49C-b", 0), 6);
    EXPECT_EQ(afterHyphenatedWord(u"a_\u00e9\u0301\U0001D49C-b c", 0), 8);
    EXPECT_EQ(afterHyphenatedWord(u"\U0001F600", 0), 0);
}

} // namespace

} // namespace jotwell
