#include "Views/Results/SnippetLayout.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <cmath>

using namespace jotwell;

namespace {

constexpr qreal width = 300;

SnippetLayout::Style style()
{
    QFont font = QGuiApplication::font();
    font.setPixelSize(11);
    return {font, Qt::black, Qt::red};
}

SnippetLayout laidOut(const QString& snippet)
{
    return SnippetLayout(parseSnippet(snippet), style(), width);
}

/// What is drawn, and around it as much again that has to stay empty.
QImage painted(const SnippetLayout& layout)
{
    QImage image(static_cast<int>(width) + 40, 80, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    layout.paint(painter);
    return image;
}

int count(const QImage& image, const QRect& where, bool (*isWanted)(QRgb))
{
    int found = 0;
    for (int y = where.top(); y <= where.bottom(); ++y) {
        for (int x = where.left(); x <= where.right(); ++x)
            found += isWanted(image.pixel(x, y)) ? 1 : 0;
    }
    return found;
}

bool isInk(QRgb pixel)
{
    return pixel != qRgb(255, 255, 255);
}

bool isRed(QRgb pixel)
{
    return qRed(pixel) > qGreen(pixel) + 60;
}

/// What snippets may hold at their worst.
const QStringList& hostileSnippets()
{
    static const QStringList all{
        QStringLiteral("word ").repeated(200),
        QStringLiteral("W").repeated(500),
        QStringLiteral("i").repeated(5000),
        QStringLiteral("<mark>a</mark> ").repeated(500),
        QStringLiteral("<mark>").repeated(300) + QStringLiteral("word ").repeated(100),
        QStringLiteral("שלום עולם <mark>מילה</mark> ").repeated(40),
        QStringLiteral("مرحبا ").repeated(80) + QStringLiteral("latin"),
        QStringLiteral("👩‍👩‍👧👍🏽 ").repeated(100),
        QStringLiteral("👩‍👩‍👧").repeated(100),
        QStringLiteral("e") + QStringLiteral("\u0301").repeated(900) +
            QStringLiteral(" word").repeated(200),
        QStringLiteral("one\ntwo\r\nthree\u2028four\tfive ").repeated(40),
        QStringLiteral("<b>bold</b> &amp; <img src=x> ").repeated(40),
    };
    return all;
}

} // namespace

TEST(SnippetLayout, TakesOneLineForAShortText)
{
    const SnippetLayout layout = laidOut(QStringLiteral("a <mark>b</mark> c"));
    EXPECT_EQ(layout.lineCount(), 1);
    EXPECT_EQ(layout.text(), QStringLiteral("a b c"));
    EXPECT_LT(layout.size().width(), 60);
}

TEST(SnippetLayout, TakesTwoLinesWithoutAnEllipsisWhereThatIsEnough)
{
    const QString text = QStringLiteral("word ").repeated(14).trimmed();
    const SnippetLayout layout = laidOut(text);
    EXPECT_EQ(layout.lineCount(), 2);
    EXPECT_EQ(layout.text(), text);
    EXPECT_EQ(layout.size().height(), 2 * laidOut(QStringLiteral("a")).size().height());
}

TEST(SnippetLayout, EndsInAnEllipsisWhereTheTextGoesOn)
{
    const SnippetLayout layout = laidOut(QStringLiteral("word ").repeated(200));
    EXPECT_EQ(layout.lineCount(), 2);
    EXPECT_TRUE(layout.text().endsWith(QStringLiteral("…")));
    EXPECT_FALSE(layout.text().endsWith(QStringLiteral(" …")));
    EXPECT_GT(layout.text().size(), 60);
}

TEST(SnippetLayout, StaysInItsRoomWhateverItHolds)
{
    for (const QString& snippet : hostileSnippets()) {
        const SnippetLayout layout = laidOut(snippet);
        EXPECT_EQ(layout.lineCount(), 2) << snippet.left(40).toStdString();
        EXPECT_LE(layout.size().width(), width) << snippet.left(40).toStdString();
        const QImage image = painted(layout);
        EXPECT_EQ(count(image, QRect(static_cast<int>(width) + 2, 0, 30, 40), isInk), 0)
            << snippet.left(40).toStdString();
    }
}

TEST(SnippetLayout, CutsNoCharacterApart)
{
    const QString family = QStringLiteral("👩‍👩‍👧");
    const QString text = laidOut(family.repeated(100)).text();
    ASSERT_TRUE(text.endsWith(u'…'));
    EXPECT_EQ(text.chopped(1), family.repeated((text.size() - 1) / family.size()));
}

TEST(SnippetLayout, LineEndsAreBlanks)
{
    EXPECT_EQ(laidOut(QStringLiteral("a\nb\r\nc\td\u2029e")).text(), QStringLiteral("a b c d e"));
}

TEST(SnippetLayout, ShowsMarkupOfTheNoteAsItStands)
{
    const QString text = QStringLiteral("<b>a</b> &lt; **b**");
    EXPECT_EQ(laidOut(text).text(), text);
}

TEST(SnippetLayout, DrawsOnlyWhatIsMarkedInItsColour)
{
    const QRect all(0, 0, static_cast<int>(width), 40);
    EXPECT_GT(count(painted(laidOut(QStringLiteral("plain"))), all, isInk), 0);
    EXPECT_EQ(count(painted(laidOut(QStringLiteral("plain"))), all, isRed), 0);
    EXPECT_GT(count(painted(laidOut(QStringLiteral("<mark>plain</mark>"))), all, isRed), 0);
}

TEST(SnippetLayout, TheEllipsisIsNotMarked)
{
    const QString words = QStringLiteral("<mark>") + QStringLiteral("word ").repeated(200);
    const SnippetLayout layout = laidOut(words);
    const QImage image = painted(layout);
    const int end = static_cast<int>(layout.size().width());
    const int line = static_cast<int>(layout.size().height() / 2);
    EXPECT_GT(count(image, QRect(0, line, end - 20, line), isRed), 0);
    EXPECT_EQ(count(image, QRect(end - 2, line, 30, line), isRed), 0);
}

TEST(SnippetLayout, RightToLeftTextBeginsAtTheLeftEdgeToo)
{
    const SnippetLayout layout = laidOut(QStringLiteral("שלום"));
    const QImage image = painted(layout);
    const int end = static_cast<int>(std::ceil(layout.size().width()));
    EXPECT_GT(count(image, QRect(0, 0, end + 1, 20), isInk), 0);
    EXPECT_EQ(count(image, QRect(end + 2, 0, static_cast<int>(width) - end, 20), isInk), 0);
}

TEST(SnippetLayout, NothingIsALineWithoutInk)
{
    const SnippetLayout layout = laidOut({});
    EXPECT_EQ(layout.text(), QString());
    EXPECT_EQ(count(painted(layout), QRect(0, 0, 300, 60), isInk), 0);
}
