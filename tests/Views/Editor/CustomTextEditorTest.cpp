#include "Views/Editor/CustomTextEditor.h"

#include "Views/Editor/ComposingArea.h"
#include "Views/Editor/EditorBench.h"

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

class CustomTextEditorTest : public testing::Test {
protected:
    /// What is shown and told while the user types.
    void makeWhileTyping(const char16_t* typed)
    {
        bench.make();
        bench.type(of(typed));
        bench.calls.clear();
    }

    EditorBench bench;
};

TEST_F(CustomTextEditorTest, MakesAViewOfTheBoundText)
{
    bench.make(of(u"/recent"));
    EXPECT_EQ(bench.view().string(), of(u"/recent"));
    EXPECT_EQ(bench.document.toPlainText(), of(u"/recent"));
    EXPECT_FALSE(bench.coordinator().isEditing());
    EXPECT_THAT(bench.calls, IsEmpty());
}

TEST_F(CustomTextEditorTest, MakingAViewFindsNoChips)
{
    bench.make(of(u"/recent"));
    bench.nextTurn();
    EXPECT_THAT(bench.view().commandRanges(), IsEmpty());
}

TEST_F(CustomTextEditorTest, TellsOfAnEndlessWordThatAViewIsMadeWith)
{
    bool isTold = false;
    CustomTextEditor editor(bench.bindings, bench.scheduler);
    QObject::connect(&editor, &CustomTextEditor::hasEndlessWordChanged,
                     [&] { isTold = editor.hasEndlessWord(); });
    bench.text = QString(4000, u'a');
    editor.makeView(bench.document, std::make_unique<DocumentSelection>(bench.document));
    EXPECT_TRUE(isTold);
}

TEST_F(CustomTextEditorTest, HandsTheCallbacksForClicksToTheView)
{
    bench.makeStyled(of(u"/new_note $Daily Note #tag"));
    bench.view().mouseDown(0);
    bench.view().mouseDown(10);
    bench.view().mouseDown(22);
    EXPECT_THAT(bench.calls, ElementsAre(of(u"onCommandClick 0 9 /new_note"),
                                         of(u"onTemplateClick 10 11 $Daily Note"),
                                         of(u"onHashtagClick 22 4 #tag")));
}

TEST_F(CustomTextEditorTest, WithoutAViewNothingIsUpdated)
{
    CustomTextEditor editor(bench.bindings, bench.scheduler);
    bench.forceUpdate = true;
    editor.updateView();
    bench.nextTurn();
    EXPECT_TRUE(bench.forceUpdate);
    EXPECT_FALSE(editor.isComposing());
    EXPECT_FALSE(editor.hasEndlessWord());
}

TEST_F(CustomTextEditorTest, OutlivesTheTextArea)
{
    auto area = std::make_unique<ComposingArea>();
    bench.makeIn(area->document(), area->selection(), of(u"/recent"));
    area.reset();
    bench.isFocused = true;
    bench.update(of(u"other /text"), true);
    bench.nextTurn();
    EXPECT_FALSE(bench.forceUpdate);
}

TEST_F(CustomTextEditorTest, AChangeFromOutsideIsTakenOverWhileTheUserIsNotTyping)
{
    bench.make(of(u"before"));
    bench.update(of(u"/recent"));
    EXPECT_EQ(bench.view().string(), of(u"/recent"));
    EXPECT_EQ(bench.view().selectedRange(), (TextRange{7, 0}));
    bench.nextTurn();
    EXPECT_THAT(bench.view().commandRanges(), ElementsAre(TextRange{0, 7}));
    EXPECT_THAT(bench.calls, IsEmpty());
}

TEST_F(CustomTextEditorTest, AChangeFromOutsideIsLeftWhileTheUserIsTyping)
{
    makeWhileTyping(u"typed");
    bench.update(of(u"outside"));
    EXPECT_EQ(bench.view().string(), of(u"typed"));
    EXPECT_TRUE(bench.coordinator().isEditing());
}

TEST_F(CustomTextEditorTest, AForcedChangeIsTakenOverWhileTheUserIsTyping)
{
    makeWhileTyping(u"typed");
    bench.selection().setSelectedRange({1, 2});
    bench.update(of(u"/recent  $All Folders "), true);
    EXPECT_EQ(bench.view().string(), of(u"/recent  $All Folders "));
    EXPECT_EQ(bench.view().selectedRange(), (TextRange{22, 0}));
    EXPECT_FALSE(bench.coordinator().isEditing());
    bench.nextTurn();
    EXPECT_THAT(bench.view().templateRanges(), ElementsAre(TextRange{9, 12}));
}

TEST_F(CustomTextEditorTest, TheCursorGoesWhereTheNumberOfCharactersSays)
{
    bench.make();
    bench.update(of(u"\U0001F600\U0001F600 abc"), true);
    EXPECT_EQ(bench.view().selectedRange(), (TextRange{6, 0}));
}

TEST_F(CustomTextEditorTest, TheSameTextForcedEndsEditingAndMovesTheCursor)
{
    makeWhileTyping(u"same");
    bench.selection().setSelectedRange({1, 0});
    bench.update(of(u"same"), true);
    EXPECT_FALSE(bench.coordinator().isEditing());
    EXPECT_EQ(bench.view().selectedRange(), (TextRange{4, 0}));
}

TEST_F(CustomTextEditorTest, TheSameTextUnforcedLeavesTheCursor)
{
    bench.make(of(u"same"));
    bench.selection().setSelectedRange({1, 0});
    bench.update(of(u"same"));
    EXPECT_EQ(bench.view().selectedRange(), (TextRange{1, 0}));
    EXPECT_EQ(bench.scheduler.pendingCount(), 0U);
}

TEST_F(CustomTextEditorTest, TheSameTextForcedIsStyledAnew)
{
    bench.makeStyled(of(u"/new_note $Weekly"));
    EXPECT_THAT(bench.view().templateRanges(), IsEmpty());
    bench.templates.append(of(u"Weekly"));
    bench.update(of(u"/new_note $Weekly"), true);
    bench.nextTurn();
    EXPECT_THAT(bench.view().templateRanges(), ElementsAre(TextRange{10, 7}));
}

TEST_F(CustomTextEditorTest, TheFlagIsClearedOnALaterTurn)
{
    bench.make();
    bench.update(of(u"text"), true);
    EXPECT_TRUE(bench.forceUpdate);
    EXPECT_THAT(bench.calls, IsEmpty());
    bench.nextTurn();
    EXPECT_FALSE(bench.forceUpdate);
    EXPECT_THAT(bench.calls, ElementsAre(of(u"unforce")));
}

TEST_F(CustomTextEditorTest, AFlagThatIsNotSetIsNotCleared)
{
    bench.make();
    bench.update(of(u"text"));
    bench.nextTurn();
    EXPECT_THAT(bench.calls, IsEmpty());
}

TEST_F(CustomTextEditorTest, AsksForTheKeyboardOnALaterTurn)
{
    bench.make();
    bench.isFocused = true;
    bench.editor().updateView();
    EXPECT_FALSE(bench.view().isFirstResponder());
    bench.nextTurn();
    EXPECT_TRUE(bench.view().isFirstResponder());
    EXPECT_TRUE(bench.isFocused);
}

TEST_F(CustomTextEditorTest, TakesNoKeyboardThatIsNotWantedAnyMore)
{
    bench.make();
    bench.isFocused = true;
    bench.editor().updateView();
    bench.isFocused = false;
    bench.nextTurn();
    EXPECT_FALSE(bench.view().isFirstResponder());
}

TEST_F(CustomTextEditorTest, DoesNotAskForTheKeyboardThatItHas)
{
    bench.make();
    bench.isFocused = true;
    bench.selection().takeFocus();
    bench.editor().updateView();
    EXPECT_EQ(bench.scheduler.pendingCount(), 0U);
}

TEST_F(CustomTextEditorTest, AsksForNoKeyboardByItself)
{
    bench.make();
    bench.editor().updateView();
    EXPECT_EQ(bench.scheduler.pendingCount(), 0U);
    EXPECT_FALSE(bench.view().isFirstResponder());
}

TEST_F(CustomTextEditorTest, AnEditIsBoundBeforeItIsTold)
{
    bench.make();
    bench.type(of(u"a"));
    EXPECT_TRUE(bench.coordinator().isEditing());
    EXPECT_THAT(bench.calls, ElementsAre(of(u"onTextChange a")));
}

TEST_F(CustomTextEditorTest, WhatTheModelMakesOfAnEditIsUndoneWithIt)
{
    // The model answers by another text, as it does with a rule of the input language.
    bench.bindings.onTextChange = [this] {
        if (bench.text == of(u"/recent"))
            bench.update(of(u"/recent  $All Folders "), true);
    };
    bench.make();
    bench.type(of(u"/recent"));
    EXPECT_EQ(bench.view().string(), of(u"/recent  $All Folders "));
    bench.document.undo();
    EXPECT_EQ(bench.view().string(), QString());
    bench.document.redo();
    EXPECT_EQ(bench.view().string(), of(u"/recent  $All Folders "));
}

TEST_F(CustomTextEditorTest, ALaterRewriteIsUndoneByItself)
{
    makeWhileTyping(u"/re");
    bench.update(of(u"/recent"), true);
    bench.document.undo();
    EXPECT_EQ(bench.view().string(), of(u"/re"));
}

} // namespace

} // namespace jotwell
