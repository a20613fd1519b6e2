#include "Views/Editor/EditorStyles.h"

#include "Views/Editor/ComposingArea.h"
#include "Views/Editor/EditorBench.h"
#include "Views/SystemFonts.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextLayout>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

QString of(const char16_t* text)
{
    return QString::fromUtf16(text);
}

/// A stretch of a paragraph that is drawn in some way.
struct Shown {
    int start;
    int length;
    bool operator==(const Shown&) const = default;
};

[[maybe_unused]] void PrintTo(const Shown& shown, std::ostream* out)
{
    *out << shown.start << '+' << shown.length;
}

QList<QTextLayout::FormatRange> formatsOf(const QTextDocument& document, int paragraph = 0)
{
    return document.findBlockByNumber(paragraph).layout()->formats();
}

std::vector<Shown> shownIn(const QTextDocument& document, int paragraph = 0)
{
    std::vector<Shown> all;
    for (const auto& each : formatsOf(document, paragraph))
        all.push_back({each.start, each.length});
    return all;
}

/// Lays nothing out, and counts the paragraphs that it was to lay out.
class CountingLayout : public QAbstractTextDocumentLayout {
public:
    explicit CountingLayout(QTextDocument* document) : QAbstractTextDocumentLayout(document) {}

    std::vector<int> laidOut; ///< where what has changed begins

    void draw(QPainter*, const PaintContext&) override {}
    int hitTest(const QPointF&, Qt::HitTestAccuracy) const override { return -1; }
    int pageCount() const override { return 1; }
    QSizeF documentSize() const override { return {}; }
    QRectF frameBoundingRect(QTextFrame*) const override { return {}; }
    QRectF blockBoundingRect(const QTextBlock&) const override { return {}; }

protected:
    void documentChanged(int from, int, int) override { laidOut.push_back(from); }
};

class EditorStylesTest : public testing::Test {
protected:
    void setText(const char16_t* content)
    {
        text.setString(of(content), EditorDocument::UndoStep::own);
    }
    void apply(const std::vector<AttributeRun>& runs, const std::vector<TextRange>& emoji = {})
    {
        styles.apply(text, runs, emoji);
    }
    QTextCharFormat formatFor(const TextAttributes& attributes)
    {
        setText(u"a");
        apply({{{0, 1}, attributes}});
        return formatsOf(document).value(0).format;
    }

    const TextAttributes bold{.font = {.weight = FontWeight::bold}};
    const TextAttributes blue{.font = {}, .color = TextColor::systemBlue};

    QTextDocument document;
    EditorDocument text{document};
    EditorStyles styles;
};

TEST_F(EditorStylesTest, EachParagraphHasItsOwn)
{
    setText(u"one\ntwo\n\nthree");
    apply({{{1, 2}, bold}, {{5, 1}, blue}, {{10, 3}, bold}});
    EXPECT_THAT(shownIn(document, 0), ElementsAre(Shown{1, 2}));
    EXPECT_THAT(shownIn(document, 1), ElementsAre(Shown{1, 1}));
    EXPECT_THAT(shownIn(document, 2), IsEmpty());
    EXPECT_THAT(shownIn(document, 3), ElementsAre(Shown{1, 3}));
}

TEST_F(EditorStylesTest, ARunOverSeveralParagraphsIsCut)
{
    setText(u"one\ntwo\n\nthree");
    apply({{{2, 9}, bold}, {{11, 1}, blue}});
    // With the line end, which is as high as what stands before it.
    EXPECT_THAT(shownIn(document, 0), ElementsAre(Shown{2, 2}));
    EXPECT_THAT(shownIn(document, 1), ElementsAre(Shown{0, 4}));
    EXPECT_THAT(shownIn(document, 2), ElementsAre(Shown{0, 1}));
    EXPECT_THAT(shownIn(document, 3), ElementsAre(Shown{0, 2}, Shown{2, 1}));
}

TEST_F(EditorStylesTest, ARunThatEndsWithItsParagraphStaysInIt)
{
    setText(u"one\ntwo");
    apply({{{0, 4}, bold}, {{4, 3}, blue}});
    EXPECT_THAT(shownIn(document, 0), ElementsAre(Shown{0, 4}));
    EXPECT_THAT(shownIn(document, 1), ElementsAre(Shown{0, 3}));
}

TEST_F(EditorStylesTest, LineEndsOfTwoUnitsAreOneInTheDocument)
{
    setText(u"a\r\nb\r\ncd");
    apply({{{3, 1}, bold}, {{7, 1}, blue}});
    EXPECT_THAT(shownIn(document, 0), IsEmpty());
    EXPECT_THAT(shownIn(document, 1), ElementsAre(Shown{0, 1}));
    EXPECT_THAT(shownIn(document, 2), ElementsAre(Shown{1, 1}));
}

TEST_F(EditorStylesTest, WhatIsPlainAgainIsShownPlain)
{
    setText(u"one");
    apply({{{0, 3}, bold}});
    apply({});
    EXPECT_THAT(shownIn(document), IsEmpty());
}

TEST_F(EditorStylesTest, WhatOthersHaveReplacedIsShownAgain)
{
    setText(u"one");
    apply({{{0, 3}, bold}});
    QTextLayout& layout = *document.firstBlock().layout();
    layout.setFormats({});
    apply({{{0, 3}, bold}});
    EXPECT_THAT(shownIn(document), ElementsAre(Shown{0, 3}));
    QTextCharFormat underlined;
    underlined.setFontUnderline(true);
    layout.setFormats({{1, 1, underlined}});
    apply({{{0, 3}, bold}});
    EXPECT_THAT(shownIn(document), ElementsAre(Shown{0, 3}, Shown{1, 1}));
}

TEST_F(EditorStylesTest, FontsAreTheSystems)
{
    const QTextCharFormat system = formatFor({.font = {.size = 19, .weight = FontWeight::bold}});
    EXPECT_FALSE(system.hasProperty(QTextFormat::FontFamilies));
    EXPECT_EQ(system.property(QTextFormat::FontPixelSize).toInt(), 19);
    EXPECT_EQ(system.fontWeight(), QFont::Bold);
    EXPECT_FALSE(system.fontItalic());
    const QTextCharFormat monospaced = formatFor(
        {.font = {.family = FontFamily::monospaced, .size = 13, .weight = FontWeight::medium}});
    EXPECT_EQ(monospaced.fontFamilies().toStringList(), SystemFonts().monospaced);
    EXPECT_EQ(monospaced.property(QTextFormat::FontPixelSize).toInt(), 13);
    EXPECT_EQ(monospaced.fontWeight(), QFont::Medium);
    const QTextCharFormat italic = formatFor({.font = {.italic = true}});
    EXPECT_TRUE(italic.fontItalic());
    EXPECT_EQ(italic.fontWeight(), QFont::Normal);
}

TEST_F(EditorStylesTest, ColoursAreTheThemes)
{
    styles.setColors({.systemBlue = Qt::blue, .systemGreen = Qt::green});
    EXPECT_EQ(formatFor(blue).foreground().color(), QColor(Qt::blue));
    EXPECT_EQ(formatFor({.font = {}, .color = TextColor::systemGreen}).foreground().color(),
              QColor(Qt::green));
    EXPECT_EQ(formatFor({.font = {}, .color = TextColor::black}).foreground().color(),
              QColor(Qt::black));
    EXPECT_FALSE(formatFor(bold).hasProperty(QTextFormat::ForegroundBrush));
}

TEST_F(EditorStylesTest, LinesAndWidth)
{
    const QTextCharFormat none = formatFor(bold);
    EXPECT_FALSE(none.fontUnderline());
    EXPECT_FALSE(none.fontStrikeOut());
    EXPECT_FALSE(none.hasProperty(QTextFormat::FontStretch));
    EXPECT_TRUE(formatFor({.font = {}, .isUnderlined = true}).fontUnderline());
    EXPECT_TRUE(formatFor({.font = {}, .isStruckThrough = true}).fontStrikeOut());
    EXPECT_EQ(formatFor({.font = {}, .isExpanded = true}).fontStretch(), 105);
}

TEST_F(EditorStylesTest, EmojiAreCutOutOfTheRuns)
{
    setText(u"0123456789");
    apply({{{2, 6}, bold}}, {{3, 2}, {7, 2}});
    EXPECT_THAT(shownIn(document),
                ElementsAre(Shown{2, 1}, Shown{3, 2}, Shown{5, 2}, Shown{7, 1}, Shown{8, 1}));
    std::vector<bool> isBold;
    std::vector<bool> isEmoji;
    for (const auto& each : formatsOf(document)) {
        isBold.push_back(each.format.fontWeight() == QFont::Bold);
        isEmoji.push_back(each.format.fontFamilies().toStringList() == SystemFonts().emoji);
    }
    EXPECT_THAT(isBold, ElementsAre(true, true, true, true, false));
    EXPECT_THAT(isEmoji, ElementsAre(false, true, false, true, true));
}

TEST_F(EditorStylesTest, EmojiStandInPlainTextToo)
{
    setText(u"0123\n56789");
    apply({}, {{1, 2}, {5, 1}, {8, 2}});
    EXPECT_THAT(shownIn(document, 0), ElementsAre(Shown{1, 2}));
    EXPECT_THAT(shownIn(document, 1), ElementsAre(Shown{0, 1}, Shown{3, 2}));
}

TEST_F(EditorStylesTest, AnEmojiOverAllOfARun)
{
    setText(u"0123456789");
    apply({{{3, 2}, bold}, {{6, 2}, blue}}, {{2, 5}});
    EXPECT_THAT(shownIn(document),
                ElementsAre(Shown{2, 1}, Shown{3, 2}, Shown{5, 1}, Shown{6, 1}, Shown{7, 1}));
}

TEST_F(EditorStylesTest, AParagraphThatLooksAsBeforeIsNotLaidOut)
{
    auto* const layout = new CountingLayout(&document);
    document.setDocumentLayout(layout);
    setText(u"one\ntwo\nthree");
    apply({{{0, 1}, bold}, {{8, 1}, bold}});
    layout->laidOut.clear();
    apply({{{0, 1}, bold}, {{8, 1}, bold}});
    EXPECT_THAT(layout->laidOut, IsEmpty());
    apply({{{0, 1}, bold}, {{8, 1}, blue}});
    EXPECT_THAT(layout->laidOut, ElementsAre(8));
    layout->laidOut.clear();
    apply({{{0, 1}, bold}, {{4, 3}, bold}, {{8, 1}, blue}});
    EXPECT_THAT(layout->laidOut, ElementsAre(4));
    layout->laidOut.clear();
    apply({{{4, 3}, bold}, {{8, 1}, blue}});
    EXPECT_THAT(layout->laidOut, ElementsAre(0));
}

TEST_F(EditorStylesTest, APlainTextIsNotLaidOutForItsStyles)
{
    auto* const layout = new CountingLayout(&document);
    document.setDocumentLayout(layout);
    setText(u"one\ntwo");
    layout->laidOut.clear();
    apply({});
    EXPECT_THAT(layout->laidOut, IsEmpty());
}

TEST_F(EditorStylesTest, OtherColoursAreShownAtTheNextTime)
{
    auto* const layout = new CountingLayout(&document);
    document.setDocumentLayout(layout);
    styles.setColors({.systemBlue = Qt::blue, .systemGreen = Qt::green});
    setText(u"one\ntwo");
    const std::vector<AttributeRun> runs{{{0, 3}, blue}, {{4, 3}, blue}};
    apply(runs);
    layout->laidOut.clear();
    styles.setColors({.systemBlue = Qt::blue, .systemGreen = Qt::green});
    apply(runs);
    EXPECT_THAT(layout->laidOut, IsEmpty());
    styles.setColors({.systemBlue = Qt::cyan, .systemGreen = Qt::green});
    apply(runs);
    EXPECT_THAT(layout->laidOut, ElementsAre(0)); // all at once
    EXPECT_EQ(formatsOf(document, 0).value(0).format.foreground().color(), QColor(Qt::cyan));
    EXPECT_EQ(formatsOf(document, 1).value(0).format.foreground().color(), QColor(Qt::cyan));
}

TEST_F(EditorStylesTest, NothingGoesIntoTheDocument)
{
    setText(u"one two");
    const QString html = document.toHtml();
    const int steps = document.availableUndoSteps();
    apply({{{0, 3}, bold}}, {{4, 1}});
    EXPECT_EQ(document.toHtml(), html);
    EXPECT_EQ(document.availableUndoSteps(), steps);
    EXPECT_FALSE(document.isRedoAvailable());
}

TEST(StylesOfTheEditor, TenTypedCharactersAreOneStepToUndo)
{
    EditorBench bench;
    bench.make();
    for (const QChar character : of(u"/re **b** "))
        bench.type(character);
    EXPECT_EQ(bench.document.availableUndoSteps(), 1);
    bench.document.undo();
    EXPECT_EQ(bench.view().string(), QString());
    bench.document.redo();
    EXPECT_EQ(bench.view().string(), of(u"/re **b** "));
    EXPECT_THAT(shownIn(bench.document), ElementsAre(Shown{0, 3}, Shown{4, 5}));
}

/// While an input method is composing.
class ComposedStylesTest : public testing::Test {
protected:
    void make(const char16_t* text, int cursor)
    {
        bench.makeIn(area.document(), area.selection());
        bench.update(of(text));
        area.setCursor(cursor);
    }
    QTextLayout& layout(int paragraph = 0)
    {
        return *area.document().findBlockByNumber(paragraph).layout();
    }
    std::vector<Shown> shown(int paragraph = 0) { return shownIn(area.document(), paragraph); }
    /// Of the one format that is the input method's own.
    Shown underline(int paragraph = 0)
    {
        for (const auto& each : formatsOf(area.document(), paragraph)) {
            if (each.format.fontUnderline())
                return {each.start, each.length};
        }
        return {-1, 0};
    }

    ComposingArea area;
    EditorBench bench;
};

TEST_F(ComposedStylesTest, OursMoveBehindWhatIsComposed)
{
    make(u"**a** x **b**", 6);
    area.compose(of(u"ni"));
    EXPECT_EQ(layout().preeditAreaText(), of(u"ni"));
    EXPECT_EQ(underline(), (Shown{6, 2}));
    EXPECT_THAT(shown(), ElementsAre(Shown{0, 5}, Shown{10, 5}, Shown{6, 2}));
}

TEST_F(ComposedStylesTest, OursAreKeptUpAtEachStep)
{
    make(u"**a** x **b**", 6);
    area.compose(of(u"n"));
    area.compose(of(u"nihao"));
    EXPECT_EQ(underline(), (Shown{6, 5}));
    EXPECT_THAT(shown(), ElementsAre(Shown{0, 5}, Shown{13, 5}, Shown{6, 5}));
}

TEST_F(ComposedStylesTest, OneInWhoseMidstIsComposedGrows)
{
    make(u"**bold**", 4);
    area.compose(of(u"ni"));
    EXPECT_THAT(shown(), ElementsAre(Shown{0, 10}, Shown{4, 2}));
}

TEST_F(ComposedStylesTest, WhatIsComposedAtItsBordersIsPlain)
{
    make(u"**b**", 0);
    area.compose(of(u"ni"));
    EXPECT_THAT(shown(), ElementsAre(Shown{2, 5}, Shown{0, 2}));
    area.compose({});
    area.setCursor(5);
    area.compose(of(u"ni"));
    EXPECT_THAT(shown(), ElementsAre(Shown{0, 5}, Shown{5, 2}));
}

TEST_F(ComposedStylesTest, OtherParagraphsStayAsTheyAre)
{
    make(u"**a**\nx\n**b**", 7);
    area.compose(of(u"ni"));
    EXPECT_THAT(shown(0), ElementsAre(Shown{0, 5}));
    EXPECT_THAT(shown(1), ElementsAre(Shown{1, 2}));
    EXPECT_THAT(shown(2), ElementsAre(Shown{0, 5}));
}

TEST_F(ComposedStylesTest, AtTheEndTheTextIsStyledAnew)
{
    make(u"**a** x", 7);
    area.compose(of(u"ni"));
    area.compose({}, of(u" **b**"));
    EXPECT_THAT(shown(), ElementsAre(Shown{0, 5}, Shown{8, 5}));
}

TEST_F(ComposedStylesTest, CancelledOursAreBackInTheirPlace)
{
    make(u"**a** x **b**", 6);
    area.compose(of(u"ni"));
    area.compose({});
    EXPECT_THAT(shown(), ElementsAre(Shown{0, 5}, Shown{8, 5}));
    EXPECT_EQ(underline().start, -1);
}

TEST_F(ComposedStylesTest, OursStayWhenTextComesWithoutAComposition)
{
    make(u"**a** x", 7);
    area.compose({}, of(u"\u00E9")); // a dead key and a letter
    EXPECT_EQ(bench.view().string(), of(u"**a** x\u00E9"));
    EXPECT_THAT(shown(), ElementsAre(Shown{0, 5}));
    area.compose({}); // some input methods say that there is nothing
    EXPECT_THAT(shown(), ElementsAre(Shown{0, 5}));
}

TEST_F(ComposedStylesTest, NothingOfItCanBeUndone)
{
    make(u"**a** x", 7);
    const int steps = area.document().availableUndoSteps();
    area.compose(of(u"ni"));
    area.compose({});
    EXPECT_EQ(area.document().availableUndoSteps(), steps);
}

} // namespace

} // namespace jotwell
