#include "AppDelegateBench.h"

#include "Services/GlobalHotkeyManager.h"
#include "Views/FloatingWindowView.h"
#include "Views/LocalKeyMonitor.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace jotwell;

namespace {

constexpr quint64 commandAndOption = 0x180000;
constexpr KeyEvent hotkeyPress{KeyEvent::keyDown, 11, commandAndOption};

class AppDelegateToggleTest : public AppDelegateBench {};

} // namespace

TEST_F(AppDelegateToggleTest, HotkeyTogglesTheWindowOnALaterTurn)
{
    launch();
    EXPECT_FALSE(fake.hotkeys.tapEvent(hotkeyPress));
    EXPECT_FALSE(isWindowShown());
    turn();
    EXPECT_TRUE(isWindowShown());
    fake.clock.advance(200ms);
    fake.hotkeys.tapEvent(hotkeyPress);
    turn();
    EXPECT_FALSE(isWindowShown());
}

TEST_F(AppDelegateToggleTest, PressSeenByBothChannelsTogglesOnce)
{
    launch();
    fake.hotkeys.tapEvent(hotkeyPress);
    fake.hotkeys.monitorEvent(hotkeyPress);
    turn();
    EXPECT_TRUE(isWindowShown());
}

TEST_F(AppDelegateToggleTest, HotkeyInTheWindowHidesIt)
{
    launch();
    delegate->toggleFloatingWindow();
    turn();
    EXPECT_TRUE(delegate->localKeyMonitor().handleKeyDown(hotkeyPress, true));
    EXPECT_TRUE(delegate->localKeyMonitor().handleKeyDown(hotkeyPress, true));
    turn();
    EXPECT_FALSE(isWindowShown());
}

TEST_F(AppDelegateToggleTest, HotkeyInAnotherWindowToggles)
{
    launch();
    EXPECT_TRUE(delegate->localKeyMonitor().handleKeyDown(hotkeyPress, false));
    turn();
    EXPECT_TRUE(isWindowShown());
}

TEST_F(AppDelegateToggleTest, KeyOfACommandPutsItIntoTheWindow)
{
    launch();
    EXPECT_TRUE(delegate->localKeyMonitor().handleKeyDown({KeyEvent::keyDown, 19, 0x100000}, true));
    turn();
    auto& view = viewOf<FloatingWindowView>(floatingWindow());
    EXPECT_TRUE(view.commandTemplateState().fields().text.contains(u"/search_notes"));
}

TEST_F(AppDelegateToggleTest, ViewThatAsksTwiceIsHiddenOnALaterTurn)
{
    launch();
    delegate->toggleFloatingWindow();
    turn();
    auto& view = viewOf<FloatingWindowView>(floatingWindow());
    emit view.toggleRequested();
    emit view.toggleRequested();
    EXPECT_TRUE(isWindowShown());
    turn();
    EXPECT_FALSE(isWindowShown());
}

TEST_F(AppDelegateToggleTest, WindowComesBackToTheMiddle)
{
    launch();
    delegate->toggleFloatingWindow();
    turn();
    FloatingWindow& window = *floatingWindow();
    const QPoint middle = window.position();
    window.setPosition(middle + QPoint(17, 23));
    delegate->toggleFloatingWindow();
    turn();
    EXPECT_NE(window.position(), middle);
    delegate->toggleFloatingWindow();
    turn();
    EXPECT_EQ(window.position(), middle);
}

TEST_F(AppDelegateToggleTest, WindowThatIsAnIconIsShownRatherThanHidden)
{
    launch();
    delegate->toggleFloatingWindow();
    turn();
    floatingWindow()->setWindowStates(Qt::WindowMinimized);
    delegate->toggleFloatingWindow();
    turn();
    EXPECT_TRUE(isWindowShown());
}

TEST_F(AppDelegateToggleTest, CoveredWindowIsBroughtToTheFrontRatherThanHidden)
{
    launch();
    delegate->toggleFloatingWindow();
    turn();
    ASSERT_TRUE(QTest::qWaitForWindowActive(floatingWindow()));
    desktop.windows.coversWindows = true;
    delegate->toggleFloatingWindow();
    turn();
    EXPECT_TRUE(isWindowShown());
    EXPECT_FALSE(desktop.windows.coversWindows);
    delegate->toggleFloatingWindow();
    turn();
    EXPECT_FALSE(isWindowShown());
}

TEST_F(AppDelegateToggleTest, WindowThatHasNotGotTheKeyboardYetIsHidden)
{
    launch();
    delegate->toggleFloatingWindow();
    turn();
    ASSERT_TRUE(QTest::qWaitForWindowActive(floatingWindow()));
    delegate->toggleFloatingWindow();
    turn();
    delegate->toggleFloatingWindow();
    turn();
    desktop.windows.coversWindows = true;
    delegate->toggleFloatingWindow();
    turn();
    EXPECT_FALSE(isWindowShown());
}

TEST_F(AppDelegateToggleTest, WindowThatNeverGetsTheKeyboardIsBroughtToTheFrontRatherThanHidden)
{
    launch();
    delegate->toggleFloatingWindow();
    turn();
    fake.scheduler.advance(1s);
    desktop.windows.coversWindows = true;
    delegate->toggleFloatingWindow();
    turn();
    EXPECT_TRUE(isWindowShown());
    EXPECT_FALSE(desktop.windows.coversWindows);
}

TEST_F(AppDelegateToggleTest, DoorTogglesWhenItIsKnockedAtAndByAction)
{
    launch();
    desktop.door.activate();
    turn();
    EXPECT_TRUE(isWindowShown());
    desktop.door.performAction(QStringLiteral("toggle"));
    turn();
    EXPECT_FALSE(isWindowShown());
    desktop.door.performAction(QStringLiteral("dance"));
    turn();
    EXPECT_FALSE(isWindowShown());
}

TEST_F(AppDelegateToggleTest, DoorBringsTheWelcomeToTheFrontAsLongAsItIsOpen)
{
    settings().setOnboardingCompleted(false);
    launch();
    QWindow* const welcome = windowCalled("Welcome to Jotwell");
    ASSERT_NE(welcome, nullptr);
    welcome->setWindowStates(Qt::WindowMinimized);
    desktop.door.activate();
    turn();
    EXPECT_FALSE(welcome->windowStates().testFlag(Qt::WindowMinimized));
    EXPECT_FALSE(isWindowShown());
    desktop.door.performAction(QStringLiteral("toggle"));
    turn();
    EXPECT_TRUE(isWindowShown()) << "who names the window gets it";
    delegate->toggleFloatingWindow();
    welcome->close();
    ASSERT_TRUE(QTest::qWaitFor([this] {
        turn();
        return !windowCalled("Welcome to Jotwell");
    }));
    desktop.door.activate();
    turn();
    EXPECT_TRUE(isWindowShown());
}

TEST_F(AppDelegateToggleTest, DoorDoesNotShowTheWelcomeAnewThatHasJustCome)
{
    settings().setOnboardingCompleted(false);
    launch();
    desktop.windows.coversWindows = true;
    const QSignalSpy changes(windowCalled("Welcome to Jotwell"), &QWindow::visibleChanged);
    desktop.door.activate();
    turn();
    EXPECT_TRUE(changes.isEmpty());
}

TEST_F(AppDelegateToggleTest, PlainClickOnTheStatusItemToggles)
{
    launch();
    desktop.statusItem.action();
    turn();
    EXPECT_TRUE(isWindowShown());
}

TEST_F(AppDelegateToggleTest, ThousandPressesLeaveTheWindowAsTheLastOneWants)
{
    launch();
    for (int press = 0; press < 1001; ++press) {
        fake.clock.advance(101ms);
        fake.hotkeys.tapEvent(hotkeyPress);
        turn();
    }
    EXPECT_TRUE(isWindowShown());
}

TEST_F(AppDelegateToggleTest, HotkeyIsDeadOnceTheDelegateHasGone)
{
    launch();
    delegate.reset();
    fake.hotkeys.tapEvent(hotkeyPress);
    turn();
    EXPECT_FALSE(isWindowShown());
}
