#include "Views/Editor/CustomTextEditor.h"

#include "Views/Editor/ComposingArea.h"
#include "Views/Editor/EditorBench.h"

#include <QTextBlock>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace jotwell {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

QString of(const char16_t* text)
{
    return QString::fromUtf16(text);
}

/// While an input method is composing.
class CustomTextEditorCompositionTest : public testing::Test {
protected:
    void make(const char16_t* text)
    {
        bench.makeIn(area.document(), area.selection(), of(text));
        area.setCursor(static_cast<int>(bench.text.size()));
    }
    void makeComposing(const char16_t* text, const char16_t* preedit)
    {
        make(text);
        area.compose(of(preedit));
    }

    ComposingArea area;
    EditorBench bench;
};

TEST_F(CustomTextEditorCompositionTest, IsNoEdit)
{
    makeComposing(u"x", u"ni");
    EXPECT_TRUE(bench.editor().isComposing());
    EXPECT_EQ(bench.view().string(), of(u"x"));
    EXPECT_FALSE(bench.coordinator().isEditing());
    EXPECT_THAT(bench.calls, IsEmpty());
}

TEST_F(CustomTextEditorCompositionTest, TellsWhenItBeginsAndEnds)
{
    make(u"x");
    std::vector<bool> told;
    QObject::connect(&bench.editor(), &CustomTextEditor::isComposingChanged,
                     [&] { told.push_back(bench.editor().isComposing()); });
    area.compose(of(u"n"));
    area.compose(of(u"ni"));
    area.compose({}, of(u"\u4F60"));
    EXPECT_THAT(told, ElementsAre(true, false));
}

TEST_F(CustomTextEditorCompositionTest, CommitIsOneEdit)
{
    makeComposing(u"x", u"ni");
    area.compose({}, of(u"\u4F60"));
    EXPECT_FALSE(bench.editor().isComposing());
    EXPECT_TRUE(bench.coordinator().isEditing());
    EXPECT_THAT(bench.calls, ElementsAre(of(u"onTextChange x\u4F60")));
}

TEST_F(CustomTextEditorCompositionTest, ACommittedPartIsBoundAndToldAtTheEnd)
{
    makeComposing(u"", u"ni hao");
    area.compose(of(u"hao"), of(u"\u4F60"));
    EXPECT_TRUE(bench.editor().isComposing());
    EXPECT_EQ(bench.text, of(u"\u4F60"));
    EXPECT_THAT(bench.calls, IsEmpty());
    area.compose({}, of(u"\u597D"));
    EXPECT_THAT(bench.calls, ElementsAre(of(u"onTextChange \u4F60\u597D")));
}

TEST_F(CustomTextEditorCompositionTest, CancelledBehindACommittedPartItIsTold)
{
    makeComposing(u"", u"ni hao");
    area.compose(of(u"hao"), of(u"\u4F60"));
    area.compose({});
    EXPECT_THAT(bench.calls, ElementsAre(of(u"onTextChange \u4F60")));
}

TEST_F(CustomTextEditorCompositionTest, CancelledItIsNoEdit)
{
    makeComposing(u"x", u"ni");
    area.compose({});
    EXPECT_FALSE(bench.editor().isComposing());
    EXPECT_FALSE(bench.coordinator().isEditing());
    EXPECT_THAT(bench.calls, IsEmpty());
}

TEST_F(CustomTextEditorCompositionTest, HoldsUpARewriteAndTheFlag)
{
    makeComposing(u"x", u"ni");
    bench.update(of(u"rewritten"), true);
    bench.nextTurn();
    EXPECT_EQ(bench.view().string(), of(u"x"));
    EXPECT_TRUE(bench.editor().isComposing());
    EXPECT_TRUE(bench.forceUpdate);
}

TEST_F(CustomTextEditorCompositionTest, CancelledItLetsTheRewriteThrough)
{
    makeComposing(u"x", u"ni");
    bench.update(of(u"rewritten"), true);
    area.compose({});
    EXPECT_EQ(bench.view().string(), of(u"rewritten"));
    EXPECT_EQ(bench.view().selectedRange(), (TextRange{9, 0}));
    EXPECT_THAT(bench.calls, IsEmpty());
    bench.nextTurn();
    EXPECT_FALSE(bench.forceUpdate);
    bench.calls.clear();
    area.setCursor(0);
    area.compose(of(u"ni"));
    area.compose({}, of(u"!"));
    EXPECT_THAT(bench.calls, ElementsAre(of(u"onTextChange !rewritten")));
}

TEST_F(CustomTextEditorCompositionTest, CommittedItGoesBehindTheRewrite)
{
    makeComposing(u"x", u"ni");
    bench.update(of(u"rewritten "), true);
    area.compose({}, of(u"\u4F60"));
    EXPECT_THAT(bench.calls, ElementsAre(of(u"onTextChange rewritten \u4F60")));
    EXPECT_EQ(bench.text, of(u"rewritten \u4F60"));
    EXPECT_EQ(bench.view().string(), of(u"rewritten \u4F60"));
}

TEST_F(CustomTextEditorCompositionTest, ACommittedEmojiGoesBehindTheRewriteAsAWhole)
{
    // The two faces share their first unit.
    make(u"\U0001F600");
    area.setCursor(0);
    area.compose(of(u"grin"));
    bench.update(of(u"rewritten "), true);
    area.compose({}, of(u"\U0001F601"));
    EXPECT_EQ(bench.text, of(u"rewritten \U0001F601"));
}

TEST_F(CustomTextEditorCompositionTest, ACommittedPartDoesNotOverwriteTheRewrite)
{
    makeComposing(u"x", u"ni hao");
    bench.update(of(u"rewritten "), true);
    area.compose(of(u"hao"), of(u"\u4F60"));
    EXPECT_EQ(bench.text, of(u"rewritten "));
    area.compose({}, of(u"\u597D"));
    EXPECT_EQ(bench.text, of(u"rewritten \u4F60\u597D"));
}

TEST_F(CustomTextEditorCompositionTest, ARewriteIsHeldUpOnce)
{
    makeComposing(u"x", u"ni");
    bench.update(of(u"rewritten "), true);
    area.compose({}, of(u"a"));
    bench.nextTurn();
    bench.calls.clear();
    area.compose(of(u"ni"));
    area.compose({}, of(u"b"));
    EXPECT_THAT(bench.calls, ElementsAre(of(u"onTextChange rewritten ab")));
}

TEST_F(CustomTextEditorCompositionTest, AnUnforcedChangeFromOutsideWaits)
{
    makeComposing(u"x", u"ni");
    bench.update(of(u"outside"));
    EXPECT_EQ(bench.view().string(), of(u"x"));
    area.compose({});
    EXPECT_EQ(bench.view().string(), of(u"outside"));
}

TEST_F(CustomTextEditorCompositionTest, AnUnforcedChangeFromOutsideGivesWayToACommit)
{
    makeComposing(u"x", u"ni");
    bench.update(of(u"outside"));
    area.compose({}, of(u"\u4F60"));
    EXPECT_EQ(bench.view().string(), of(u"x\u4F60"));
    EXPECT_THAT(bench.calls, ElementsAre(of(u"onTextChange x\u4F60")));
}

TEST_F(CustomTextEditorCompositionTest, TurnsNoParagraphUntilItsEnd)
{
    make(u"one\n");
    const auto direction = [this] {
        return area.document().lastBlock().blockFormat().layoutDirection();
    };
    area.compose(of(u"rest"), of(u"\u05E9"));
    EXPECT_NE(direction(), Qt::RightToLeft);
    EXPECT_TRUE(bench.editor().isComposing());
    area.compose({});
    EXPECT_EQ(direction(), Qt::RightToLeft);
    EXPECT_EQ(bench.view().string(), of(u"one\n\u05E9"));
}

TEST_F(CustomTextEditorCompositionTest, AsksForNoKeyboardMeanwhile)
{
    makeComposing(u"x", u"ni");
    bench.nextTurn();
    bench.isFocused = true;
    bench.editor().updateView();
    EXPECT_EQ(bench.scheduler.pendingCount(), 0U);
}

TEST_F(CustomTextEditorCompositionTest, LeavesChipsAloneUntilItsEnd)
{
    makeComposing(u"", u"/recent");
    area.compose(of(u"more"), of(u"/recent"));
    bench.nextTurn();
    EXPECT_THAT(bench.view().commandRanges(), IsEmpty());
    area.compose({}, {});
    bench.nextTurn();
    EXPECT_THAT(bench.view().commandRanges(), ElementsAre(TextRange{0, 7}));
}

TEST_F(CustomTextEditorCompositionTest, InPlaceOfASelectionIsOneEdit)
{
    make(u"one two");
    bench.view().setSelectedRange({4, 3});
    area.compose(of(u"ni"));
    EXPECT_EQ(bench.view().string(), of(u"one "));
    EXPECT_EQ(bench.text, of(u"one "));
    EXPECT_THAT(bench.calls, IsEmpty());
    area.compose({}, of(u"\u4F60"));
    EXPECT_THAT(bench.calls, ElementsAre(of(u"onTextChange one \u4F60")));
}

} // namespace

} // namespace jotwell
