#include "Views/Editor/TextAreaSelection.h"

#include <gtest/gtest.h>

using namespace jotwell;

namespace {

int positionIn(const char16_t* text, qsizetype position)
{
    return cursorPosition(QString::fromUtf16(text), position);
}

} // namespace

TEST(TextAreaSelection, CursorStandsWhereItIsPut)
{
    EXPECT_EQ(positionIn(u"", 0), 0);
    EXPECT_EQ(positionIn(u"plain text", 4), 4);
    EXPECT_EQ(positionIn(u"plain text", 10), 10);
    EXPECT_EQ(positionIn(u"a\U0001F600b", 3), 3);
}

TEST(TextAreaSelection, CursorNeverStandsInsideACharacter)
{
    // One character of two units, and one of eight.
    EXPECT_EQ(positionIn(u"\U0001F600", 1), 2);
    EXPECT_EQ(positionIn(u"\U0001F468\u200D\U0001F469\u200D\U0001F467", 1), 8);
    EXPECT_EQ(positionIn(u"e\u0301x", 1), 2);
}

TEST(TextAreaSelection, CursorNeverStandsBehindTheText)
{
    EXPECT_EQ(positionIn(u"abc", 4), 3);
}
