#include "Views/ShadowImageProvider.h"
#include "Views/SymbolImageProvider.h"

#include <gtest/gtest.h>

#include <ostream>

using namespace jotwell;

namespace {

class SymbolImage : public testing::TestWithParam<const char*> {};

int paintedPixels(const QImage& image, const QColor& color)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == color ? 1 : 0;
    return count;
}

} // namespace

TEST_P(SymbolImage, IsDrawnInOneColourOnNothing)
{
    const auto image = symbolImage(QString::fromLatin1(GetParam()), Qt::red, {48, 48});
    EXPECT_EQ(image.size(), QSize(48, 48));
    EXPECT_GT(paintedPixels(image, Qt::red), 100);
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
}

INSTANTIATE_TEST_SUITE_P(All, SymbolImage,
                         testing::Values("checkmark.circle.fill", "exclamationmark.triangle.fill",
                                         "xmark.circle.fill", "xmark", "o.circle.fill"));

TEST(SymbolImageProvider, UnknownSymbolIsTransparent)
{
    const auto image = symbolImage(QStringLiteral("no.such.symbol"), Qt::red, {24, 24});
    EXPECT_EQ(paintedPixels(image, Qt::red), 0);
}

TEST(SymbolImageProvider, ReadsNameAndColourFromItsUrl)
{
    SymbolImageProvider provider;
    QSize size;
    const auto image =
        provider.requestImage(QStringLiteral("o.circle.fill/%23ff00ff00"), &size, {24, 24});
    EXPECT_EQ(size, QSize(24, 24));
    EXPECT_GT(paintedPixels(image, QColor(0, 255, 0)), 50);
}

TEST(ShadowImageProvider, FadesFromFullToNothing)
{
    const QImage image = shadowImage(12, 24);
    const int middle = image.width() / 2;
    EXPECT_EQ(image.width(), 2 * (12 + 24) + 1);
    EXPECT_EQ(image.pixelColor(middle, middle).alpha(), 255);
    EXPECT_LT(image.pixelColor(0, middle).alpha(), 3);
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    for (int x = 1; x < middle; ++x)
        EXPECT_GE(image.pixelColor(x, middle).alpha(), image.pixelColor(x - 1, middle).alpha());
}
