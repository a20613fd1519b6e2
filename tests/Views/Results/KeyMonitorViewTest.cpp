#include "Views/Results/KeyMonitorView.h"

#include "Fakes/FakeScheduler.h"

#include <QKeyEvent>
#include <QTest>
#include <QWindow>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace jotwell;

namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

class KeyMonitorViewTest : public testing::Test {
protected:
    KeyMonitorViewTest()
    {
        QObject::connect(&monitor, &KeyMonitorView::pressedKeysChanged, &monitor,
                         [this] { ++changes; });
    }
    void send(QEvent::Type type, int key, bool isAutoRepeat = false)
    {
        QKeyEvent event(type, key, Qt::NoModifier, {}, isAutoRepeat);
        QCoreApplication::sendEvent(&window, &event);
        scheduler.advance({});
    }
    void press(int key) { send(QEvent::KeyPress, key); }
    void release(int key) { send(QEvent::KeyRelease, key); }

    FakeScheduler scheduler;
    QWindow window;
    KeyMonitorView monitor{scheduler};
    int changes = 0;
};

const QString enter = QStringLiteral("Enter");
const QString tab = QStringLiteral("Tab");
const QString down = QStringLiteral("↓");
const QString up = QStringLiteral("↑");

} // namespace

TEST_F(KeyMonitorViewTest, KnowsTheKeysThatAreHeld)
{
    press(Qt::Key_Tab);
    press(Qt::Key_Down);
    EXPECT_THAT(monitor.pressedKeys(), UnorderedElementsAre(tab, down));
    release(Qt::Key_Tab);
    press(Qt::Key_Return);
    press(Qt::Key_Up);
    EXPECT_THAT(monitor.pressedKeys(), UnorderedElementsAre(down, enter, up));
    release(Qt::Key_Down);
    release(Qt::Key_Return);
    release(Qt::Key_Up);
    EXPECT_THAT(monitor.pressedKeys(), IsEmpty());
}

TEST_F(KeyMonitorViewTest, AnyOtherKeyChangesNothing)
{
    press(Qt::Key_Tab);
    for (const int key : {Qt::Key_A, Qt::Key_Left, Qt::Key_Escape, Qt::Key_Enter, Qt::Key_Shift}) {
        press(key);
        release(key);
    }
    EXPECT_THAT(monitor.pressedKeys(), UnorderedElementsAre(tab));
    EXPECT_EQ(changes, 1);
}

TEST_F(KeyMonitorViewTest, TabIsTheSameKeyWithShift)
{
    press(Qt::Key_Tab);
    release(Qt::Key_Backtab);
    EXPECT_THAT(monitor.pressedKeys(), IsEmpty());
    press(Qt::Key_Backtab);
    EXPECT_THAT(monitor.pressedKeys(), UnorderedElementsAre(tab));
}

TEST_F(KeyMonitorViewTest, AKeyThatRepeatsStaysHeld)
{
    press(Qt::Key_Down);
    send(QEvent::KeyRelease, Qt::Key_Down, true);
    EXPECT_THAT(monitor.pressedKeys(), UnorderedElementsAre(down));
    send(QEvent::KeyPress, Qt::Key_Down, true);
    EXPECT_THAT(monitor.pressedKeys(), UnorderedElementsAre(down));
    EXPECT_EQ(changes, 1);
    release(Qt::Key_Down);
    EXPECT_THAT(monitor.pressedKeys(), IsEmpty());
}

TEST_F(KeyMonitorViewTest, AKeyHeldFromBeforeIsKnownFromItsNextDownEventOn)
{
    press(Qt::Key_Down);
    KeyMonitorView later(scheduler);
    scheduler.advance({});
    EXPECT_THAT(later.pressedKeys(), IsEmpty());
    send(QEvent::KeyPress, Qt::Key_Down, true);
    EXPECT_THAT(later.pressedKeys(), UnorderedElementsAre(down));
}

TEST_F(KeyMonitorViewTest, AKeyReleasedElsewhereStaysUntilItIsSeenGoingUp)
{
    press(Qt::Key_Return);
    window.hide();
    scheduler.advance({});
    EXPECT_THAT(monitor.pressedKeys(), UnorderedElementsAre(enter));
    press(Qt::Key_Return);
    release(Qt::Key_Return);
    EXPECT_THAT(monitor.pressedKeys(), IsEmpty());
}

TEST_F(KeyMonitorViewTest, TellsOfAKeyInTheNextTurn)
{
    monitor.handleKeyDown(KeyMonitorView::tabKey);
    EXPECT_THAT(monitor.currentPressedKeys(), UnorderedElementsAre(tab));
    EXPECT_THAT(monitor.pressedKeys(), IsEmpty());
    scheduler.advance({});
    EXPECT_THAT(monitor.pressedKeys(), UnorderedElementsAre(tab));
    monitor.handleKeyUp(KeyMonitorView::tabKey);
    EXPECT_THAT(monitor.pressedKeys(), UnorderedElementsAre(tab));
    monitor.flagsChanged();
    scheduler.advance({});
    EXPECT_THAT(monitor.pressedKeys(), IsEmpty());
}

TEST_F(KeyMonitorViewTest, KnowsKeysByTheirCodes)
{
    for (const int code : {36, 48, 125, 126, 76, 0})
        monitor.handleKeyDown(code);
    EXPECT_THAT(monitor.currentPressedKeys(), UnorderedElementsAre(enter, tab, down, up));
}

TEST_F(KeyMonitorViewTest, TakesNoKeyAway)
{
    class Listener : public QWindow {
    public:
        int keys = 0;

    protected:
        void keyPressEvent(QKeyEvent*) override { ++keys; }
    } listener;
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
    QCoreApplication::sendEvent(&listener, &event);
    EXPECT_EQ(listener.keys, 1);
}

TEST_F(KeyMonitorViewTest, GoesBeforeWhatItHasAskedFor)
{
    {
        KeyMonitorView shortLived(scheduler);
        shortLived.handleKeyDown(KeyMonitorView::tabKey);
    }
    scheduler.advance({});
    press(Qt::Key_Tab);
    EXPECT_THAT(monitor.pressedKeys(), UnorderedElementsAre(tab));
}
