#include "Views/LocalKeyMonitor.h"

#include "Fakes/FakeWindowSystem.h"
#include "Views/FloatingWindow.h"
#include "Views/ViewBench.h"

#include <QKeyEvent>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace jotwell;

namespace {

constexpr auto control = Qt::ControlModifier;

class LocalKeyMonitorTest : public testing::Test {
protected:
    LocalKeyMonitorTest()
    {
        monitor.watch(window);
        window.makeKeyAndOrderFront();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    void press(QWindow& target, Qt::Key key, Qt::KeyboardModifiers modifiers, quint32 keyCode,
               const QString& text = {})
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, keyCode, 0, 0, text);
        QCoreApplication::sendEvent(&target, &event);
    }

    ViewBench bench;
    FakeWindowSystem windowSystem;
    FloatingWindow window{bench.floatingWindowView, bench.fake.scheduler, windowSystem};
    QWindow other;
    LocalKeyMonitor monitor{bench.settings, bench.fake.scheduler, windowSystem};
    QSignalSpy hides{&monitor, &LocalKeyMonitor::hideRequested};
    QSignalSpy toggles{&monitor, &LocalKeyMonitor::toggleRequested};
    QSignalSpy commands{&monitor, &LocalKeyMonitor::insertCommand};
};

} // namespace

TEST_F(LocalKeyMonitorTest, EscapeHidesOnALaterTurn)
{
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_EQ(hides.size(), 0);
    bench.advance(0);
    EXPECT_EQ(hides.size(), 1);
    EXPECT_EQ(toggles.size(), 0);
}

TEST_F(LocalKeyMonitorTest, EscapeGoesThroughInAnotherWindow)
{
    press(other, Qt::Key_Escape, {}, 53);
    bench.advance(0);
    EXPECT_EQ(hides.size() + toggles.size(), 0);
}

TEST_F(LocalKeyMonitorTest, EscapeIsWhereTheLayoutHasIt)
{
    press(window, Qt::Key_CapsLock, {}, 53);
    press(window, Qt::Key_A, {}, 53, QStringLiteral("a"));
    press(window, Qt::Key_Escape, {}, 57);
    bench.advance(0);
    EXPECT_EQ(hides.size(), 1);
}

TEST_F(LocalKeyMonitorTest, EscapeBelongsToTheInputMethodWhileItComposes)
{
    bench.compose(QStringLiteral("ni"));
    QTest::keyClick(&window, Qt::Key_Escape);
    bench.advance(0);
    EXPECT_EQ(hides.size(), 0);
    bench.compose({}, QStringLiteral("\u4f60"));
    QTest::keyClick(&window, Qt::Key_Escape);
    bench.advance(0);
    EXPECT_EQ(hides.size(), 1);
}

TEST_F(LocalKeyMonitorTest, HotkeyHidesTheCaptureWindowAndTogglesFromAnother)
{
    press(window, Qt::Key_B, control | Qt::AltModifier, 11);
    bench.advance(0);
    EXPECT_EQ(hides.size(), 1);
    press(other, Qt::Key_B, control | Qt::AltModifier, 11);
    bench.advance(0);
    EXPECT_EQ(toggles.size(), 1);
    EXPECT_EQ(bench.text(), QString());
}

TEST_F(LocalKeyMonitorTest, ChangedHotkeyCountsAtOnce)
{
    bench.settings.setGlobalHotkeyCode(40);
    bench.settings.setGlobalHotkeyModifiers(0x20000 | 0x40000);
    press(window, Qt::Key_K, Qt::ShiftModifier | Qt::MetaModifier, 40);
    press(window, Qt::Key_B, control | Qt::AltModifier, 11);
    bench.advance(0);
    EXPECT_EQ(hides.size(), 1);
}

// A French keyboard: the digits need Shift, and their keys mean other characters.
TEST_F(LocalKeyMonitorTest, KeysOfCommandsAreThoseOfTheirPlaceAndGoNoFurther)
{
    press(window, Qt::Key_Ampersand, control, 18, QStringLiteral("&"));
    press(window, Qt::Key_Eacute, control | Qt::ShiftModifier, 19, QStringLiteral("2"));
    ASSERT_EQ(commands.size(), 2);
    EXPECT_EQ(commands[0][0].value<Command>(), Command::newNote);
    EXPECT_EQ(commands[1][0].value<Command>(), Command::searchNotes);
    EXPECT_EQ(bench.text(), QString());
}

TEST_F(LocalKeyMonitorTest, ThirdLevelOfAKeyIsNoCommand)
{
    press(window, Qt::Key_At, control | Qt::GroupSwitchModifier, 19, QStringLiteral("@"));
    EXPECT_EQ(commands.size(), 0);
}

TEST_F(LocalKeyMonitorTest, LockInThePlaceOfADigitIsNoCommand)
{
    press(window, Qt::Key_CapsLock, control, 18);
    EXPECT_EQ(commands.size(), 0);
}

TEST_F(LocalKeyMonitorTest, KeysOfCommandsBelongToTheInputMethodWhileItComposes)
{
    bench.compose(QStringLiteral("ni"));
    press(window, Qt::Key_1, control, 18);
    EXPECT_EQ(commands.size(), 0);
}

TEST_F(LocalKeyMonitorTest, DigitsWithoutControlAreText)
{
    press(window, Qt::Key_1, {}, 18, QStringLiteral("1"));
    EXPECT_EQ(commands.size(), 0);
    EXPECT_EQ(bench.text(), QStringLiteral("1"));
}

TEST_F(LocalKeyMonitorTest, KeyDownTellsWhetherItIsConsumed)
{
    EXPECT_TRUE(monitor.handleKeyDown({10, 53, 0}, true));
    EXPECT_FALSE(monitor.handleKeyDown({10, 53, 0}, false));
    EXPECT_TRUE(monitor.handleKeyDown({10, 18, 0x100000}, true));
    EXPECT_FALSE(monitor.handleKeyDown({10, 18, 0x100000}, false));
    EXPECT_TRUE(monitor.handleKeyDown({10, 11, 0x180000}, false));
    EXPECT_FALSE(monitor.handleKeyDown({10, 21, 0x100000}, true));
}
