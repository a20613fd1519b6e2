#include "Views/ShadowImageProvider.h"
#include "Views/SymbolImageProvider.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <ostream>

using namespace jotwell;

namespace {

constexpr QSize size(48, 48);

const char* const symbols[] = {
    "arrow.clockwise",
    "arrow.down.circle.fill",
    "arrow.triangle.2.circlepath",
    "arrow.up.forward.square",
    "checkmark",
    "checkmark.circle.fill",
    "command",
    "command.circle.fill",
    "doc.on.doc.fill",
    "doc.text",
    "exclamationmark.triangle.fill",
    "folder",
    "folder.circle.fill",
    "folder.fill.badge.plus",
    "gearshape.circle.fill",
    "keyboard",
    "magnifyingglass",
    "magnifyingglass.circle",
    "number",
    "o.circle.fill",
    "plus",
    "plus.circle",
    "power.circle.fill",
    "trash",
    "xmark",
    "xmark.circle.fill",
};

int paintedPixels(const QImage& image, const QColor& color)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == color ? 1 : 0;
    return count;
}

QRect paintedBox(const QImage& image)
{
    QRect box;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y).alpha() > 127)
                box |= QRect(x, y, 1, 1);
    return box;
}

/// The share of the image that is painted.
double ink(const QImage& image)
{
    double sum = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            sum += image.pixelColor(x, y).alphaF();
    return sum / (image.width() * image.height());
}

/// Pixels that one of the two images has and the other hasn't.
int difference(const QImage& one, const QImage& other)
{
    int count = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            const int alphas = one.pixelColor(x, y).alpha() - other.pixelColor(x, y).alpha();
            count += std::abs(alphas) > 127 ? 1 : 0;
        }
    return count;
}

QStringList attributeValues(const QString& svg, const QString& name)
{
    QStringList values;
    const QRegularExpression attribute(QStringLiteral("\\b%1=\"([^\"]*)\"").arg(name));
    for (const auto& match : attribute.globalMatch(svg))
        values.append(match.captured(1));
    values.removeDuplicates();
    return values;
}

class SymbolImage : public testing::TestWithParam<const char*> {
protected:
    const QString name = QString::fromLatin1(GetParam());
    const QImage image = symbolImage(name, Qt::red, size);
};

} // namespace

TEST_P(SymbolImage, IsDrawnInOneColourOnNothing)
{
    EXPECT_EQ(image.size(), size);
    EXPECT_GT(paintedPixels(image, Qt::red), 100);
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
}

TEST_P(SymbolImage, FillsItsBoxAndKeepsOffTheEdge)
{
    const QRect box = paintedBox(image);
    EXPECT_GE(std::max(box.width(), box.height()), 30);
    EXPECT_GE(std::min(box.width(), box.height()), 24);
    EXPECT_TRUE(image.rect().adjusted(1, 1, -1, -1).contains(box));
    EXPECT_LE((box.center() - image.rect().center()).manhattanLength(), 4);
}

TEST_P(SymbolImage, HasTheSameInkInEverySize)
{
    const double expected = ink(symbolImage(name, Qt::red, {240, 240}));
    for (const int edge : {13, 15, 18, 20, 27, 36, 54, 90}) {
        const QImage other = symbolImage(name, Qt::red, {edge, edge});
        EXPECT_EQ(other.size(), QSize(edge, edge));
        EXPECT_NEAR(ink(other), expected, 0.1 * expected) << edge;
    }
}

TEST_P(SymbolImage, IsFittedIntoABoxThatIsNoSquare)
{
    const QImage wide = symbolImage(name, Qt::red, {96, 48});
    EXPECT_EQ(wide.copy(24, 0, 48, 48), image);
    EXPECT_EQ(ink(wide.copy(0, 0, 24, 48)), 0);
}

TEST_P(SymbolImage, KeepsToTheGridAndTheLineOfAll)
{
    QFile file(QStringLiteral(":/symbols/%1.svg").arg(name));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString svg = QString::fromUtf8(file.readAll());
    EXPECT_EQ(attributeValues(svg, QStringLiteral("viewBox")),
              QStringList{QStringLiteral("0 0 24 24")});
    if (svg.contains(QLatin1String("stroke"))) {
        EXPECT_EQ(attributeValues(svg, QStringLiteral("stroke")),
                  QStringList{QStringLiteral("#000")});
        EXPECT_EQ(attributeValues(svg, QStringLiteral("stroke-width")),
                  QStringList{QStringLiteral("2")});
        EXPECT_EQ(attributeValues(svg, QStringLiteral("stroke-linecap")),
                  QStringList{QStringLiteral("round")});
        EXPECT_EQ(attributeValues(svg, QStringLiteral("stroke-linejoin")),
                  QStringList{QStringLiteral("round")});
        EXPECT_EQ(attributeValues(svg, QStringLiteral("fill")),
                  QStringList{QStringLiteral("none")});
    } else {
        EXPECT_EQ(attributeValues(svg, QStringLiteral("fill")), QStringList());
    }
    EXPECT_FALSE(svg.contains(QLatin1String("style")));
}

TEST_P(SymbolImage, LooksLikeNoOther)
{
    for (const char* const other : symbols) {
        if (name == QLatin1String(other))
            continue;
        const QImage otherImage = symbolImage(QString::fromLatin1(other), Qt::red, size);
        EXPECT_GT(difference(image, otherImage), 50) << other;
    }
}

INSTANTIATE_TEST_SUITE_P(All, SymbolImage, testing::ValuesIn(symbols));

TEST(SymbolImages, AreThoseThatTheViewsName)
{
    QStringList expected;
    for (const char* const name : symbols)
        expected.append(QString::fromLatin1(name) + QStringLiteral(".svg"));
    expected.sort();
    EXPECT_EQ(QDir(QStringLiteral(":/symbols")).entryList(QDir::Files, QDir::Name), expected);
}

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

TEST(ApplicationIcon, IsAWhiteRingInAVioletDiscAtEverySize)
{
    const QIcon icon = applicationIcon();
    for (const int edge : {16, 24, 32, 48, 64, 128}) {
        const QImage image = icon.pixmap(edge, edge).toImage();
        ASSERT_EQ(image.size(), QSize(edge, edge));
        const QColor ring = image.pixelColor(edge / 2, edge * 34 / 128);
        const QColor ground = image.pixelColor(edge / 2, edge / 2);
        EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0) << edge;
        EXPECT_EQ(ground.alpha(), 255) << edge;
        EXPECT_GT(ground.blue(), ground.green() + 60) << edge;
        EXPECT_GT(ring.green(), 220) << edge;
    }
}
