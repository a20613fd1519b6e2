#include "Views/FloatingWindowView.h"

#include "Views/ViewBench.h"

#include <QTest>

#include <gtest/gtest.h>

using namespace jotwell;
using namespace std::chrono_literals;

namespace {

class FloatingWindowViewTest : public testing::Test {
protected:
    bool showsAccent() const
    {
        return view.showAccentBorder() && view.showAccentBackground() && !showsError();
    }
    bool showsError() const { return view.showErrorBorder() && view.showErrorBackground(); }
    bool showsNothing() const
    {
        return !view.showAccentBorder() && !view.showAccentBackground() &&
               !view.showErrorBorder() && !view.showErrorBackground();
    }

    ViewBench bench;
    FloatingWindowView& view = bench.floatingWindowView;
};

} // namespace

TEST_F(FloatingWindowViewTest, HeightFollowsWhatTheCardShows)
{
    EXPECT_EQ(FloatingWindowView::dynamicHeight(false, false), 164);
    EXPECT_EQ(FloatingWindowView::dynamicHeight(true, false), 264);
    EXPECT_EQ(FloatingWindowView::dynamicHeight(false, true), 484);
    EXPECT_EQ(FloatingWindowView::dynamicHeight(true, true), 584);
    EXPECT_EQ(view.dynamicHeight(), 164);
}

TEST_F(FloatingWindowViewTest, TakesTheKeyboardATenthOfASecondAfterAppearing)
{
    view.appear();
    bench.advance(99);
    EXPECT_FALSE(view.isFocused());
    bench.advance(1);
    EXPECT_TRUE(view.isFocused());
}

TEST_F(FloatingWindowViewTest, SpringPlaysBeforeTheOutcomeIsKnown)
{
    bench.setText(QStringLiteral("Call Ada /new_note"));
    view.handleCommandEnter();
    EXPECT_EQ(view.springScale(), 1.05);
    EXPECT_TRUE(showsNothing());
    bench.advance(99);
    EXPECT_EQ(view.springScale(), 1.05);
    bench.advance(1);
    EXPECT_EQ(view.springScale(), 1.0);
}

TEST_F(FloatingWindowViewTest, SuccessFlashesInTheAccentColourAndClearsTheText)
{
    bench.setText(QStringLiteral("Call Ada /new_note"));
    view.handleCommandEnter();
    ASSERT_TRUE(QTest::qWaitFor([this] { return showsAccent(); }));
    EXPECT_EQ(bench.text(), QString());
    EXPECT_EQ(bench.noteCount(), 1);
    bench.advance(299);
    EXPECT_TRUE(showsAccent());
    bench.advance(1);
    EXPECT_TRUE(showsNothing());
}

TEST_F(FloatingWindowViewTest, FailureFlashesInRedAndKeepsTheText)
{
    bench.settings.setObsidianFolderPath(std::nullopt);
    bench.setText(QStringLiteral("Call Ada /new_note"));
    view.handleCommandEnter();
    ASSERT_TRUE(QTest::qWaitFor([this] { return showsError(); }));
    EXPECT_EQ(bench.text(), QStringLiteral("Call Ada /new_note"));
    EXPECT_FALSE(bench.forceTextUpdate());
    bench.advance(300);
    EXPECT_TRUE(showsNothing());
}

TEST_F(FloatingWindowViewTest, TextWithoutACommandFails)
{
    bench.setText(QStringLiteral("Call Ada"));
    view.handleCommandEnter();
    EXPECT_TRUE(showsError());
    EXPECT_EQ(bench.text(), QStringLiteral("Call Ada"));
    EXPECT_EQ(bench.toastCount(), 0);
}

TEST_F(FloatingWindowViewTest, EndOfAnEarlierFlashSwitchesALaterOneOff)
{
    view.handleCommandEnter();
    bench.advance(200);
    view.handleCommandEnter();
    EXPECT_TRUE(showsError());
    bench.advance(99);
    EXPECT_TRUE(showsError());
    bench.advance(1);
    EXPECT_TRUE(showsNothing());
}

TEST_F(FloatingWindowViewTest, StepOfAnEarlierSpringEndsALaterOne)
{
    view.handleCommandEnter();
    bench.advance(60);
    view.handleCommandEnter();
    bench.advance(40);
    EXPECT_EQ(view.springScale(), 1.0);
}
