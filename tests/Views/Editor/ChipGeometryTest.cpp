#include "Views/Editor/ChipGeometry.h"

#include "Views/Editor/FixedText.h"

#include <QTextBlock>

#include <gtest/gtest.h>

namespace jotwell {

namespace {

QString of(const char16_t* text)
{
    return QString::fromUtf16(text);
}

class ChipGeometryTest : public testing::Test {
protected:
    /// A rectangle from one column of a line to another.
    QRectF cell(int line, int from, int to) const
    {
        return {from * text.advance(), line * text.lineHeight(), (to - from) * text.advance(),
                text.lineHeight()};
    }
    QList<QRectF> rects(int from, int to) const { return rectsForRange(text.document, from, to); }

    FixedText text;
};

TEST_F(ChipGeometryTest, OneLine)
{
    text.setText(of(u"abc defg hi"));
    EXPECT_EQ(rects(4, 8), QList<QRectF>{cell(0, 4, 8)});
    EXPECT_EQ(rects(0, 11), QList<QRectF>{cell(0, 0, 11)});
    EXPECT_EQ(rects(10, 11), QList<QRectF>{cell(0, 10, 11)});
}

TEST_F(ChipGeometryTest, NothingHasNoRectangle)
{
    text.setText(of(u"abc\n\ndef"));
    EXPECT_EQ(rects(1, 1), QList<QRectF>());
    EXPECT_EQ(rects(4, 4), QList<QRectF>());
    EXPECT_EQ(rects(20, 22), QList<QRectF>());
}

TEST_F(ChipGeometryTest, AWrappedRangeHasOnePerLine)
{
    text.wrapBehind(4);
    text.setText(of(u"abcdefghijkl"));
    EXPECT_EQ(rects(2, 10), (QList<QRectF>{cell(0, 2, 4), cell(1, 0, 4), cell(2, 0, 2)}));
    EXPECT_EQ(rects(4, 8), QList<QRectF>{cell(1, 0, 4)});
    EXPECT_EQ(rects(3, 5), (QList<QRectF>{cell(0, 3, 4), cell(1, 0, 1)}));
}

TEST_F(ChipGeometryTest, ARangeOverParagraphsHasOnePerLine)
{
    text.setText(of(u"abc\n\nde\nfgh"));
    EXPECT_EQ(rects(1, 9), (QList<QRectF>{cell(0, 1, 3), cell(2, 0, 2), cell(3, 0, 1)}));
    EXPECT_EQ(rects(5, 7), QList<QRectF>{cell(2, 0, 2)});
    EXPECT_EQ(rects(8, 11), QList<QRectF>{cell(3, 0, 3)});
}

TEST_F(ChipGeometryTest, TheMarginMovesIt)
{
    text.setText(of(u"abc"));
    text.document.setDocumentMargin(7);
    EXPECT_EQ(rects(1, 2), QList<QRectF>{cell(0, 1, 2).translated(7, 7)});
}

TEST_F(ChipGeometryTest, TextThatRunsToTheLeftEndsOnTheLeft)
{
    text.wrapBehind(20);
    text.setText(of(u"\u05D0\u05D1\u05D2 \u05D3\u05D4\u05D5"));
    const qreal right = text.document.textWidth();
    const QList<QRectF> all = rects(0, 7);
    const QList<QRectF> first = rects(0, 3);
    const QList<QRectF> last = rects(4, 7);
    ASSERT_EQ(all.size() * first.size() * last.size(), 1);
    EXPECT_NEAR(all[0].right(), right, 0.1);
    EXPECT_EQ(first[0].right(), all[0].right());
    EXPECT_EQ(last[0].left(), all[0].left());
    EXPECT_GT(first[0].left(), last[0].right());
    EXPECT_GT(first[0].width(), 0);
}

TEST_F(ChipGeometryTest, InALineThatRunsBothWaysItSpansAllOfIts)
{
    // The first letter of the Hebrew word stands behind the second.
    text.setText(of(u"ab \u05D0\u05D1 cd"));
    const QRectF first = rects(3, 4).value(0);
    const QRectF second = rects(4, 5).value(0);
    EXPECT_EQ(second.left(), rects(0, 3).value(0).right());
    EXPECT_EQ(first.left(), second.right());
    EXPECT_GT(second.width(), 1);
    EXPECT_EQ(rects(5, 8).value(0).left(), first.right());
    EXPECT_EQ(rects(3, 5).value(0), first.united(second));
    EXPECT_EQ(rects(0, 4).value(0).right(), first.right());
    EXPECT_EQ(rects(4, 8).value(0).left(), second.left());
}

TEST_F(ChipGeometryTest, AtTheEndOfALineItHasItsFirstLetterToo)
{
    text.setText(of(u"x /\u05D0\u05D1"));
    const QRectF word = rects(2, 5).value(0);
    EXPECT_EQ(word.left(), cell(0, 2, 3).left());
    EXPECT_EQ(word.right(), rects(3, 4).value(0).right());
    EXPECT_GT(word.width(), rects(2, 3).value(0).united(rects(4, 5).value(0)).width());
}

TEST_F(ChipGeometryTest, BehindALineThatRunsTheOtherWay)
{
    text.wrapBehind(2);
    text.setText(of(u"\u05D0\u05D1cdef"));
    const QRectF next = rects(2, 4).value(0);
    EXPECT_EQ(next.top(), rects(0, 2).value(0).bottom());
    EXPECT_EQ(next.width(), 2 * text.advance());
    EXPECT_NEAR(next.right(), text.document.textWidth(), 0.1);
}

TEST_F(ChipGeometryTest, ARangeMayEndBehindACharacterOfTwoUnits)
{
    text.setText(of(u"a\U0001F600\u05D0\u05D1 b"));
    EXPECT_EQ(rects(1, 3).value(0).left(), text.advance());
    EXPECT_EQ(rects(1, 3).value(0).right(), rects(3, 5).value(0).left());
}

TEST_F(ChipGeometryTest, ItIsAsHighAsItsLine)
{
    text.setText(of(u"ab\ncd"));
    QTextCharFormat large;
    large.setProperty(QTextFormat::FontPixelSize, 40);
    text.show(0, {{1, 1, large}});
    const QRectF small = rects(0, 1).value(0);
    EXPECT_EQ(small.height(), rects(1, 2).value(0).height());
    EXPECT_GT(small.height(), 1.5 * text.lineHeight());
    // The next line makes room for it.
    EXPECT_EQ(rects(3, 4).value(0).top(), small.bottom());
    EXPECT_EQ(rects(3, 4).value(0).height(), text.lineHeight());
}

TEST_F(ChipGeometryTest, WhatIsBeingComposedMovesWhatIsBehindIt)
{
    text.setText(of(u"ab cd\nef"));
    text.document.firstBlock().layout()->setPreeditArea(3, of(u"xyz"));
    text.layOut(0);
    EXPECT_EQ(rects(0, 2), QList<QRectF>{cell(0, 0, 2)});
    EXPECT_EQ(rects(4, 5), QList<QRectF>{cell(0, 7, 8)});
    EXPECT_EQ(rects(0, 5), QList<QRectF>{cell(0, 0, 8)});
    // Right before it, nothing moves.
    EXPECT_EQ(rects(2, 3), QList<QRectF>{cell(0, 2, 3)});
    EXPECT_EQ(rects(6, 8), QList<QRectF>{cell(1, 0, 2)});
}

TEST_F(ChipGeometryTest, WholeParagraphsAreSeen)
{
    using Positions = std::pair<int, int>;
    text.setText(of(u"ab\ncde\n\nf"));
    const qreal line = text.lineHeight();
    const auto between = [&](qreal from, qreal to) {
        return positionsBetween(text.document, from * line, to * line);
    };
    EXPECT_EQ(between(0.1, 0.9), Positions(0, 3));
    EXPECT_EQ(between(0.1, 1.1), Positions(0, 7));
    EXPECT_EQ(between(1.1, 1.9), Positions(3, 7));
    EXPECT_EQ(between(1.1, 2.5), Positions(3, 8));
    EXPECT_EQ(between(3.1, 3.9), Positions(8, 10));
    EXPECT_EQ(between(-5, 100), Positions(0, 10));
}

} // namespace

} // namespace jotwell
