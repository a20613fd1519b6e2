#include "Views/Editor/RoundedBackgroundTextView.h"

#include "Fakes/DocumentSelection.h"
#include "Views/Editor/FixedText.h"

#include <QStringList>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using ChipRectangle = RoundedBackgroundTextView::ChipRectangle;

constexpr QRectF everything(-1000, -1000, 10000, 10000);

QString of(const char16_t* text)
{
    return QString::fromUtf16(text);
}

class RoundedBackgroundTextViewTest : public testing::Test {
protected:
    RoundedBackgroundTextViewTest()
    {
        QObject::connect(view.get(), &RoundedBackgroundTextView::needsDisplay,
                         [this] { ++displays; });
    }

    void setText(const char16_t* content)
    {
        view->document().setString(of(content), EditorDocument::UndoStep::own);
    }
    RoundedBackgroundTextView::OnClick noted(const char* name)
    {
        return [this, name](const TextRange& range, const QString& token) {
            clicks.append(QStringLiteral("%1 %2 %3 %4")
                              .arg(QLatin1String(name), QString::number(range.location),
                                   QString::number(range.length), token));
        };
    }
    void noteClicks()
    {
        view->setOnCommandClick(noted("command"));
        view->setOnTemplateClick(noted("template"));
        view->setOnHashtagClick(noted("hashtag"));
    }
    /// The rectangle of a chip from one column of a line to another.
    QRectF chip(int line, int from, int to) const
    {
        return {from * text.advance() + 5 - 2, line * text.lineHeight() + 5 - 1,
                (to - from) * text.advance() + 4, text.lineHeight() + 2};
    }
    /// The middle of that character.
    QPointF at(int line, int column) const
    {
        return {(column + 0.5) * text.advance() + 5, (line + 0.5) * text.lineHeight() + 5};
    }

    FixedText text;
    std::unique_ptr<RoundedBackgroundTextView> view = std::make_unique<RoundedBackgroundTextView>(
        text.document, std::make_unique<DocumentSelection>(text.document));
    QStringList clicks;
    int displays = 0;
};

TEST_F(RoundedBackgroundTextViewTest, AChipBeginsAtItsLocationAndEndsBeforeItsEnd)
{
    setText(u"ab /cd ef");
    view->updateCommandRanges({{3, 3}});
    EXPECT_FALSE(view->mouseDown(2));
    EXPECT_TRUE(view->mouseDown(3));
    EXPECT_TRUE(view->mouseDown(5));
    EXPECT_FALSE(view->mouseDown(6));
}

TEST_F(RoundedBackgroundTextViewTest, AClickIsToldWithTheRangeAndItsText)
{
    setText(u"/a $b #c $d");
    view->updateCommandRanges({{0, 2}});
    view->updateTemplateRanges({{3, 2}, {9, 2}});
    view->updateHashtagRanges({{6, 2}});
    noteClicks();
    for (const qsizetype index : {1, 7, 10, 3})
        EXPECT_TRUE(view->mouseDown(index));
    EXPECT_THAT(clicks, ElementsAre(of(u"command 0 2 /a"), of(u"hashtag 6 2 #c"),
                                    of(u"template 9 2 $d"), of(u"template 3 2 $b")));
}

TEST_F(RoundedBackgroundTextViewTest, CommandsComeBeforeTemplatesAndThoseBeforeTags)
{
    setText(u"0123456789");
    noteClicks();
    view->updateHashtagRanges({{0, 9}});
    view->mouseDown(1);
    view->updateTemplateRanges({{0, 8}, {1, 1}});
    view->mouseDown(1);
    view->updateCommandRanges({{0, 7}, {1, 1}});
    view->mouseDown(1);
    view->mouseDown(7);
    view->mouseDown(8);
    EXPECT_THAT(clicks, ElementsAre(of(u"hashtag 0 9 012345678"), of(u"template 0 8 01234567"),
                                    of(u"command 0 7 0123456"), of(u"template 0 8 01234567"),
                                    of(u"hashtag 0 9 012345678")));
}

TEST_F(RoundedBackgroundTextViewTest, AChipTakesTheClickAlsoIfNobodyListens)
{
    setText(u"/ab");
    view->updateCommandRanges({{0, 3}});
    view->updateHashtagRanges({{0, 3}});
    view->setOnHashtagClick(noted("hashtag"));
    EXPECT_TRUE(view->mouseDown(1));
    EXPECT_THAT(clicks, IsEmpty());
}

TEST_F(RoundedBackgroundTextViewTest, AClickLeavesTheSelection)
{
    setText(u"/ab cd");
    view->updateCommandRanges({{0, 3}});
    view->setSelectedRange({4, 2});
    EXPECT_TRUE(view->mouseDown(1));
    EXPECT_EQ(view->selectedRange(), (TextRange{4, 2}));
}

TEST_F(RoundedBackgroundTextViewTest, AClickMayChangeTheChips)
{
    setText(u"/ab cd");
    view->updateCommandRanges({{0, 3}});
    view->updateTemplateRanges({{0, 3}});
    view->setOnCommandClick([this](const TextRange& range, const QString&) {
        view->updateCommandRanges({});
        clicks.append(QString::number(range.length));
    });
    EXPECT_TRUE(view->mouseDown(0));
    EXPECT_THAT(clicks, ElementsAre(of(u"3")));
}

TEST_F(RoundedBackgroundTextViewTest, ChipsThatAreBehindTheTextHaveWhatIsLeftOfIt)
{
    setText(u"/ab");
    view->updateCommandRanges({{1, 7}});
    view->setOnCommandClick(noted("command"));
    EXPECT_TRUE(view->mouseDown(2));
    EXPECT_THAT(clicks, ElementsAre(of(u"command 1 7 ab")));
}

TEST_F(RoundedBackgroundTextViewTest, IsDrawnAnewWhenThePointerComesToAnotherChip)
{
    setText(u"/a $b #c d");
    view->updateCommandRanges({{0, 2}});
    view->updateTemplateRanges({{3, 2}});
    view->updateHashtagRanges({{6, 2}});
    displays = 0;
    EXPECT_FALSE(view->mouseMoved(9));
    EXPECT_TRUE(view->mouseMoved(0));
    EXPECT_EQ(view->hoveredRange(), (TextRange{0, 2}));
    EXPECT_FALSE(view->mouseMoved(1));
    EXPECT_TRUE(view->mouseMoved(3));
    EXPECT_EQ(view->hoveredRange(), (TextRange{3, 2}));
    EXPECT_TRUE(view->mouseMoved(7));
    EXPECT_EQ(view->hoveredRange(), (TextRange{6, 2}));
    EXPECT_TRUE(view->mouseMoved(8));
    EXPECT_EQ(view->hoveredRange(), std::nullopt);
    EXPECT_FALSE(view->mouseMoved(9));
    EXPECT_EQ(displays, 4);
}

TEST_F(RoundedBackgroundTextViewTest, IsDrawnAnewWhenThePointerLeavesAChip)
{
    setText(u"/a");
    view->updateCommandRanges({{0, 2}});
    view->mouseMoved(0);
    displays = 0;
    EXPECT_TRUE(view->mouseExited());
    EXPECT_EQ(view->hoveredRange(), std::nullopt);
    EXPECT_FALSE(view->mouseExited());
    EXPECT_EQ(displays, 1);
}

TEST_F(RoundedBackgroundTextViewTest, TheHoveredRangeStaysUntilThePointerMoves)
{
    setText(u"/a");
    view->updateCommandRanges({{0, 2}});
    view->mouseMoved(0);
    view->updateCommandRanges({});
    EXPECT_EQ(view->hoveredRange(), (TextRange{0, 2}));
}

TEST_F(RoundedBackgroundTextViewTest, IsDrawnAnewWhenTheLastListIsStored)
{
    view->updateCommandRanges({{0, 1}});
    view->updateTemplateRanges({{1, 1}});
    EXPECT_EQ(displays, 0);
    view->updateHashtagRanges({{2, 1}});
    EXPECT_EQ(displays, 1);
    EXPECT_THAT(view->commandRanges(), ElementsAre(TextRange{0, 1}));
    EXPECT_THAT(view->templateRanges(), ElementsAre(TextRange{1, 1}));
    EXPECT_THAT(view->hashtagRanges(), ElementsAre(TextRange{2, 1}));
}

TEST_F(RoundedBackgroundTextViewTest, FillsCommandsAndTemplatesButNoTags)
{
    setText(u"/a $bc #d");
    view->updateCommandRanges({{0, 2}});
    view->updateTemplateRanges({{3, 3}});
    view->updateHashtagRanges({{7, 2}});
    EXPECT_THAT(view->chipRectangles(everything),
                ElementsAre(ChipRectangle{chip(0, 0, 2), true, false},
                            ChipRectangle{chip(0, 3, 6), false, false}));
}

TEST_F(RoundedBackgroundTextViewTest, FillsNothingForAnEmptyRange)
{
    setText(u"/a");
    view->updateCommandRanges({{0, 0}, {1, -1}});
    view->updateTemplateRanges({{2, 0}});
    EXPECT_THAT(view->chipRectangles(everything), IsEmpty());
}

TEST_F(RoundedBackgroundTextViewTest, FillsTheHoveredRangeMoreWhereverItIs)
{
    setText(u"/a $b");
    view->updateCommandRanges({{0, 2}});
    view->updateTemplateRanges({{3, 2}, {0, 2}});
    view->mouseMoved(1);
    EXPECT_THAT(view->chipRectangles(everything),
                ElementsAre(ChipRectangle{chip(0, 0, 2), true, true},
                            ChipRectangle{chip(0, 3, 5), false, false},
                            ChipRectangle{chip(0, 0, 2), false, true}));
}

TEST_F(RoundedBackgroundTextViewTest, FillsAWrappedChipLineByLine)
{
    text.wrapBehind(4);
    setText(u"abcdef");
    view->updateCommandRanges({{0, 6}});
    EXPECT_THAT(view->chipRectangles(everything),
                ElementsAre(ChipRectangle{chip(0, 0, 4), true, false},
                            ChipRectangle{chip(1, 0, 2), true, false}));
}

TEST_F(RoundedBackgroundTextViewTest, FillsWhereTheTextIsBehindLineEndsOfTwoUnits)
{
    setText(u"a\r\n\r\n/b c");
    view->updateCommandRanges({{5, 2}});
    EXPECT_THAT(view->chipRectangles(everything),
                ElementsAre(ChipRectangle{chip(2, 0, 2), true, false}));
}

TEST_F(RoundedBackgroundTextViewTest, FillsWhatCanBeSeen)
{
    setText(u"/a\n/b\n/c\n/d");
    view->updateCommandRanges({{0, 2}, {3, 2}, {6, 2}, {9, 2}});
    const auto seenBetween = [this](qreal top, qreal bottom) {
        std::vector<QRectF> seen;
        for (const ChipRectangle& each : view->chipRectangles({0, top, 100, bottom - top}))
            seen.push_back(each.rectangle);
        return seen;
    };
    const qreal line = text.lineHeight();
    EXPECT_THAT(seenBetween(5 + 1.5 * line, 5 + 2.5 * line),
                ElementsAre(chip(1, 0, 2), chip(2, 0, 2)));
    // One that reaches into the line above by its margin alone.
    EXPECT_THAT(seenBetween(5 + 1.5 * line, 5 + 2 * line - 0.5),
                ElementsAre(chip(1, 0, 2), chip(2, 0, 2)));
    EXPECT_THAT(seenBetween(5 + 2 * line + 0.5, 5 + 2.5 * line),
                ElementsAre(chip(1, 0, 2), chip(2, 0, 2)));
}

TEST_F(RoundedBackgroundTextViewTest, AChipIsUnderThePointerAsFarAsItIsFilled)
{
    setText(u"a /bc d");
    view->updateCommandRanges({{2, 3}});
    const QRectF filled = chip(0, 2, 5);
    const QPointF middle = filled.center();
    EXPECT_TRUE(view->isOverChip(middle));
    EXPECT_TRUE(view->isOverChip({filled.left() + 0.5, middle.y()}));
    EXPECT_FALSE(view->isOverChip({filled.left() - 0.5, middle.y()}));
    EXPECT_TRUE(view->isOverChip({filled.right() - 0.5, middle.y()}));
    EXPECT_FALSE(view->isOverChip({filled.right() + 0.5, middle.y()}));
    EXPECT_TRUE(view->isOverChip({middle.x(), filled.top() + 0.25}));
    EXPECT_FALSE(view->isOverChip({middle.x(), filled.top() - 0.5}));
    EXPECT_TRUE(view->isOverChip({middle.x(), filled.bottom() - 0.25}));
    EXPECT_FALSE(view->isOverChip({middle.x(), filled.bottom() + 0.5}));
}

TEST_F(RoundedBackgroundTextViewTest, AChipIsUnderThePointerOverItsMarginInOtherLines)
{
    setText(u"long line\n/bc\nanother");
    view->updateCommandRanges({{10, 3}});
    const QRectF filled = chip(1, 0, 3);
    EXPECT_TRUE(view->isOverChip({filled.center().x(), filled.top() + 0.25}));
    EXPECT_FALSE(view->isOverChip({filled.center().x(), filled.top() - 0.25}));
    EXPECT_TRUE(view->isOverChip({filled.center().x(), filled.bottom() - 0.25}));
    EXPECT_FALSE(view->isOverChip({filled.center().x(), filled.bottom() + 0.25}));
}

TEST_F(RoundedBackgroundTextViewTest, ChipsOfAllKindsAreUnderThePointer)
{
    setText(u"/a b $c d #e f");
    view->updateCommandRanges({{0, 2}});
    view->updateTemplateRanges({{5, 2}});
    view->updateHashtagRanges({{10, 2}});
    EXPECT_TRUE(view->isOverChip(at(0, 0)));
    EXPECT_FALSE(view->isOverChip(at(0, 3)));
    EXPECT_TRUE(view->isOverChip(at(0, 5)));
    EXPECT_FALSE(view->isOverChip(at(0, 8)));
    EXPECT_TRUE(view->isOverChip(at(0, 10)));
    EXPECT_FALSE(view->isOverChip(at(0, 13)));
}

TEST_F(RoundedBackgroundTextViewTest, APointIsNearestToAPlaceBetweenCharacters)
{
    setText(u"ab\r\ncd");
    const QPointF half(text.advance() / 4, 0);
    EXPECT_EQ(view->characterIndexForInsertion(at(0, 0) - half), 0);
    EXPECT_EQ(view->characterIndexForInsertion(at(0, 0) + half), 1);
    EXPECT_EQ(view->characterIndexForInsertion(at(0, 9)), 2);
    EXPECT_EQ(view->characterIndexForInsertion(at(1, 0) - half), 4);
    EXPECT_EQ(view->characterIndexForInsertion(at(9, 9)), 6);
}

TEST_F(RoundedBackgroundTextViewTest, TheSelectionIsOneOfTheText)
{
    setText(u"ab\r\ncd");
    view->setSelectedRange({1, 4});
    EXPECT_EQ(view->selectedRange(), (TextRange{1, 4}));
    view->insertNewline();
    EXPECT_EQ(view->string(), of(u"a\nd"));
}

TEST_F(RoundedBackgroundTextViewTest, TakesTheKeyboard)
{
    EXPECT_FALSE(view->isFirstResponder());
    view->makeFirstResponder();
    EXPECT_TRUE(view->isFirstResponder());
}

TEST(OrphanedTextView, ShowsNothing)
{
    auto text = std::make_unique<FixedText>();
    text->setText(of(u"/ab"));
    struct NoSelection : TextSelection {
        TextRange selectedRange() const override { return {}; }
        void setSelectedRange(const TextRange&) override {}
        bool hasFocus() const override { return false; }
        void takeFocus() override {}
    };
    RoundedBackgroundTextView view(text->document, std::make_unique<NoSelection>());
    view.updateCommandRanges({{0, 3}});
    text.reset();
    EXPECT_THAT(view.chipRectangles(everything), IsEmpty());
    EXPECT_FALSE(view.isOverChip({10, 10}));
    EXPECT_EQ(view.characterIndexForInsertion({10, 10}), 0);
}

} // namespace

} // namespace jotwell
