#include "Views/FloatingWindow.h"

#include "Fakes/FakeWindowSystem.h"
#include "Views/ViewBench.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <QtQml/qqmlextensionplugin.h>

#include <gtest/gtest.h>

Q_IMPORT_QML_PLUGIN(JotwellPlugin)

using namespace jotwell;

namespace {

class FloatingWindowTest : public testing::Test {
protected:
    void show()
    {
        window.makeKeyAndOrderFront();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    QQuickItem* item(const char* name)
    {
        return window.rootObject()->findChild<QQuickItem*>(QString::fromLatin1(name));
    }

    QString shownText() { return item("textArea")->property("text").toString(); }

    ViewBench bench;
    FakeWindowSystem windowSystem;
    FloatingWindow window{bench.floatingWindowView, bench.fake.scheduler, windowSystem};
};

} // namespace

TEST_F(FloatingWindowTest, IsABareHiddenWindowInTheMiddle)
{
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(window.size(), QSize(860, 600));
    EXPECT_EQ(window.title(), QStringLiteral("Jotwell"));
    EXPECT_TRUE(window.flags().testFlag(Qt::FramelessWindowHint));
    EXPECT_TRUE(window.flags().testFlag(Qt::WindowStaysOnTopHint));
    const QRect frame = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_EQ(window.x(), frame.x() + (frame.width() - 860) / 2);
    EXPECT_EQ(window.y(), frame.y() + (frame.height() - 600) / 2);
}

TEST_F(FloatingWindowTest, StaysWhereItIsWithoutAScreen)
{
    window.setPosition(7, 8);
    windowSystem.hasScreen = false;
    window.centre();
    EXPECT_EQ(window.position(), QPoint(7, 8));
}

TEST_F(FloatingWindowTest, BelongsInNoListAtEachShowing)
{
    show();
    window.hide();
    show();
    EXPECT_EQ(windowSystem.accessories, 2);
}

TEST_F(FloatingWindowTest, KeysReachTheEditorAtOnce)
{
    show();
    EXPECT_FALSE(bench.floatingWindowView.isFocused());
    QTest::keyClick(&window, Qt::Key_A);
    EXPECT_EQ(bench.text(), QStringLiteral("a"));
}

TEST_F(FloatingWindowTest, ClosingOnlyHides)
{
    show();
    bench.setText(QStringLiteral("kept"));
    window.close();
    EXPECT_FALSE(window.isVisible());
    show();
    EXPECT_EQ(shownText(), QStringLiteral("kept"));
}

TEST_F(FloatingWindowTest, ComesUpAnewWhereItCannotBeRaised)
{
    show();
    EXPECT_TRUE(window.isInFront());
    windowSystem.coversWindows = true;
    EXPECT_FALSE(window.isInFront());
    const QSignalSpy visible(&window, &QWindow::visibleChanged);
    window.makeKeyAndOrderFront();
    EXPECT_EQ(visible.count(), 2);
    EXPECT_TRUE(window.isInFront());
}

TEST_F(FloatingWindowTest, IsOnItsWayToTheFrontOnlyForAShortWhile)
{
    window.makeKeyAndOrderFront();
    windowSystem.coversWindows = true;
    bench.advance(999);
    EXPECT_TRUE(window.isInFront());
    bench.advance(1);
    EXPECT_FALSE(window.isInFront()) << "the keyboard may never come";
}

TEST_F(FloatingWindowTest, IsOnItsWayToTheFrontAnewAtEachShowing)
{
    window.makeKeyAndOrderFront();
    bench.advance(900);
    window.hide();
    window.makeKeyAndOrderFront();
    windowSystem.coversWindows = true;
    bench.advance(900);
    EXPECT_TRUE(window.isInFront());
}

TEST_F(FloatingWindowTest, ComesBackFromAnIcon)
{
    EXPECT_FALSE(window.isOnScreen());
    show();
    EXPECT_TRUE(window.isOnScreen());
    window.setWindowStates(Qt::WindowMinimized);
    EXPECT_FALSE(window.isOnScreen());
    const QSignalSpy visible(&window, &QWindow::visibleChanged);
    window.makeKeyAndOrderFront();
    EXPECT_TRUE(window.isOnScreen());
    EXPECT_TRUE(visible.isEmpty()) << "a window manager may lose it in between";
}

TEST_F(FloatingWindowTest, TakesInputOnlyOnTheCard)
{
    show();
    const WindowShape expected{QRectF(30, 218, 800, 164), 12, 1, false};
    EXPECT_EQ(windowSystem.shape, expected);
    EXPECT_EQ(window.color(), QColor(Qt::transparent));
}

TEST_F(FloatingWindowTest, ShapeFollowsTheHeightOfTheCard)
{
    show();
    bench.setText(QStringLiteral("/"));
    bench.state().handleTextChange();
    EXPECT_TRUE(QTest::qWaitFor([&] { return windowSystem.shape.rect.height() == 264; }));
    EXPECT_EQ(windowSystem.shape.rect, QRectF(30, 168, 800, 264));
}

TEST_F(FloatingWindowTest, ShapeFollowsTheScaleOfTheCard)
{
    show();
    item("card")->setScale(1.05);
    EXPECT_TRUE(QTest::qWaitFor([&] { return windowSystem.shape.rect.width() > 820; }));
    EXPECT_NEAR(windowSystem.shape.rect.x(), 30 - 20, 0.001);
    EXPECT_NEAR(windowSystem.shape.radius, 12 * 1.05, 0.001);
}

TEST_F(FloatingWindowTest, ShapeIsToldOnlyWhenItChanges)
{
    show();
    const int told = windowSystem.shapes;
    QSignalSpy frames(&window, &QQuickWindow::frameSwapped);
    QTest::keyClick(&window, Qt::Key_A);
    EXPECT_TRUE(frames.wait());
    EXPECT_EQ(windowSystem.shapes, told);
}

TEST_F(FloatingWindowTest, ShapeIsToldAnewToAWindowManagerThatTakesTheWindowIn)
{
    show();
    window.hide();
    const int told = windowSystem.shapes;
    show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return windowSystem.shapes == told + 1; }));
}

TEST_F(FloatingWindowTest, IsCutToTheCardWithoutACompositor)
{
    windowSystem.setCompositing(false);
    show();
    EXPECT_TRUE(windowSystem.shape.isCut);
    EXPECT_EQ(window.color(), window.rootObject()->property("cardColor").value<QColor>());
    EXPECT_EQ(window.color().alpha(), 255);
}

TEST_F(FloatingWindowTest, LookFollowsACompositorThatComesAndGoes)
{
    show();
    windowSystem.setCompositing(false);
    EXPECT_TRUE(windowSystem.shape.isCut);
    EXPECT_EQ(window.color().alpha(), 255);
    windowSystem.setCompositing(true);
    EXPECT_FALSE(windowSystem.shape.isCut);
    EXPECT_EQ(window.color(), QColor(Qt::transparent));
}

TEST_F(FloatingWindowTest, LookFollowsACompositorThatCameWhileHidden)
{
    windowSystem.setCompositing(false);
    show();
    window.hide();
    windowSystem.setCompositing(true);
    show();
    EXPECT_FALSE(windowSystem.shape.isCut);
}

TEST_F(FloatingWindowTest, CompositorMayComeWhenTheWindowHasGone)
{
    {
        FloatingWindow other(bench.floatingWindowView, bench.fake.scheduler, windowSystem);
    }
    windowSystem.setCompositing(false);
    EXPECT_EQ(windowSystem.shapes, 0);
}

TEST_F(FloatingWindowTest, ShortcutIsShownWhileTheUserTypes)
{
    show();
    bench.advance(100);
    QTest::keyClick(&window, Qt::Key_A);
    bench.floatingWindowView.handleCommandShortcut(Command::searchNotes);
    EXPECT_EQ(shownText(), QStringLiteral("a /search_notes "));
}

TEST_F(FloatingWindowTest, KeyboardIsNotTakenAnewAtTheNextShowing)
{
    FloatingWindowView& view = bench.floatingWindowView;
    show();
    bench.advance(100);
    bench.setText(QStringLiteral("/search_notes a"));
    bench.deliver(2);
    QTest::keyClick(&window, Qt::Key_Tab);
    ASSERT_FALSE(view.isFocused());
    window.hide();
    show();
    bench.advance(100);
    EXPECT_FALSE(view.isFocused());
    EXPECT_TRUE(view.searchResultsHaveFocus());
    EXPECT_EQ(view.selectedSearchResultIndex(), 0);
}

TEST_F(FloatingWindowTest, ShortcutIsUndoneAtOnce)
{
    show();
    bench.floatingWindowView.handleCommandShortcut(Command::searchNotes);
    bench.floatingWindowView.handleCommandShortcut(Command::newNote);
    bench.advance(0);
    EXPECT_EQ(shownText(), QStringLiteral("/search_notes  /new_note  $Default "));
    QTest::keySequence(&window, QKeySequence::Undo);
    EXPECT_EQ(bench.text(), QStringLiteral("/search_notes "));
    QTest::keySequence(&window, QKeySequence::Undo);
    EXPECT_EQ(bench.text(), QString());
}

TEST_F(FloatingWindowTest, FiftyTogglesLeaveItHiddenAndOnceMoreShown)
{
    for (int toggle = 0; toggle < 50; ++toggle) {
        if (window.isVisible())
            window.hide();
        else
            window.makeKeyAndOrderFront();
    }
    EXPECT_FALSE(window.isVisible());
    show();
    QTest::keyClick(&window, Qt::Key_A);
    EXPECT_EQ(bench.text(), QStringLiteral("a"));
}

// Looking for places to wrap it would take minutes.
TEST_F(FloatingWindowTest, LargePasteWithoutABlankComesThroughWhole)
{
    const QString text(3'000'000, u'x');
    QGuiApplication::clipboard()->setText(text);
    show();
    QTest::keySequence(&window, QKeySequence::Paste);
    EXPECT_TRUE(bench.text() == text);
    EXPECT_TRUE(bench.floatingWindowView.editor()->hasEndlessWord());
    QTest::keySequence(&window, QKeySequence::SelectAll);
    QTest::keyClick(&window, Qt::Key_Backspace);
    EXPECT_FALSE(bench.floatingWindowView.editor()->hasEndlessWord());
}

TEST_F(FloatingWindowTest, LargePasteComesThroughWhole)
{
    QString text;
    while (text.size() < 1'000'000)
        text += QStringLiteral("A line of a long text that somebody pastes into the field.\n");
    QGuiApplication::clipboard()->setText(text);
    show();
    QTest::keySequence(&window, QKeySequence::Paste);
    EXPECT_EQ(bench.text(), text);
}
