#include "Platform/linux/XcbShape.h"

#include <gtest/gtest.h>

using namespace jotwell;

namespace {

WindowShape card(double devicePixelRatio)
{
    return {QRectF(30, 218, 800, 164), 12, devicePixelRatio};
}

} // namespace

TEST(XcbShapeTest, IsTheRectangleWithRoundCorners)
{
    const QRegion pixels = pixelsOf(card(1));
    EXPECT_EQ(pixels.boundingRect(), QRect(30, 218, 800, 164));
    EXPECT_FALSE(pixels.contains(QPoint(31, 219)));
    EXPECT_FALSE(pixels.contains(QPoint(828, 380)));
    EXPECT_TRUE(pixels.contains(QPoint(35, 223)));
    EXPECT_TRUE(pixels.contains(QPoint(430, 218)));
    EXPECT_TRUE(pixels.contains(QPoint(30, 300)));
}

TEST(XcbShapeTest, CountsTheDevicesOwnPixels)
{
    EXPECT_EQ(pixelsOf(card(2)).boundingRect(), QRect(60, 436, 1600, 328));
    EXPECT_EQ(pixelsOf(card(1.5)).boundingRect(), QRect(45, 327, 1200, 246));
}

TEST(XcbShapeTest, HasNoGapsBetweenItsRowsAtBrokenScales)
{
    for (const double ratio : {1.1, 1.25, 1.75}) {
        const QRegion pixels = pixelsOf(card(ratio));
        const QRect bounds = pixels.boundingRect();
        int rows = 0;
        for (const QRect& rect : pixels)
            rows += rect.height();
        EXPECT_EQ(rows, bounds.height()) << ratio;
        EXPECT_NEAR(bounds.width(), 800 * ratio, 1.5) << ratio;
    }
}
