#include "Views/Editor/ParagraphDirections.h"

#include <gtest/gtest.h>

#include <QString>

namespace jotwell {

namespace {

QString of(const char16_t* text)
{
    return QString::fromUtf16(text);
}

struct DirectionRow {
    const char* rule;
    const char16_t* text;
    std::optional<Qt::LayoutDirection> direction;
    bool hasRightToLeft;
};

void PrintTo(const DirectionRow& row, std::ostream* out)
{
    *out << row.rule;
}

class Direction : public testing::TestWithParam<DirectionRow> {};

} // namespace

TEST_P(Direction, IsThatOfTheFirstCharacterThatHasOne)
{
    EXPECT_EQ(directionOf(of(GetParam().text)), GetParam().direction);
}

TEST_P(Direction, IsFoundAnywhere)
{
    const QString text = of(GetParam().text);
    for (const int before : {0, 31, 32, 100})
        EXPECT_EQ(hasRightToLeft(QString(before, u'-') + text), GetParam().hasRightToLeft);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Direction,
    testing::Values(
        DirectionRow{"no text", u"", std::nullopt, false},
        DirectionRow{"nothing with a direction", u"12 - (3) \u2026", std::nullopt, false},
        DirectionRow{"Latin", u"- one", Qt::LeftToRight, false},
        DirectionRow{"emoji and dashes", u"\U0001F600 \u2014 one", Qt::LeftToRight, false},
        DirectionRow{"Chinese", u"\u4F60", Qt::LeftToRight, false},
        DirectionRow{"Hebrew", u"12 \u05E9 one", Qt::RightToLeft, true},
        DirectionRow{"Arabic", u"\u0627", Qt::RightToLeft, true},
        DirectionRow{"a script beyond the basic plane", u"\U0001E900 one", Qt::RightToLeft, true},
        DirectionRow{"Latin first", u"one \u05E9", Qt::LeftToRight, true},
        DirectionRow{"emoji before Hebrew", u"\U0001F600\u05E9", Qt::RightToLeft, true}));

} // namespace jotwell
