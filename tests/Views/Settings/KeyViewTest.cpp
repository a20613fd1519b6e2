#include "Views/Settings/KeyView.h"

#include "Fakes/FakeWindowSystem.h"
#include "Views/Settings/KeyEventHandler.h"

#include <QKeyEvent>
#include <QQuickWindow>
#include <QSignalSpy>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace jotwell;

namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

const QString control = QStringLiteral("⌃");
const QString option = QStringLiteral("⌥");
const QString command = QStringLiteral("⌘");
const QString shift = QStringLiteral("⇧");
const QString space = QStringLiteral("Space");

class KeyViewTest : public testing::Test {
protected:
    KeyViewTest()
    {
        handler.setKeyView(&view);
        handler.setParentItem(window.contentItem());
    }

    void send(QWindow& target, QEvent::Type type, Qt::Key key, Qt::KeyboardModifiers modifiers,
              quint32 keyCode, bool repeats = false)
    {
        QKeyEvent event(type, key, modifiers, keyCode, 0, 0, {}, repeats);
        QCoreApplication::sendEvent(&target, &event);
    }

    FakeWindowSystem windowSystem;
    QQuickWindow window;
    KeyView view{windowSystem};
    KeyEventHandler handler;
    QSignalSpy changes{&view, &KeyView::pressedKeysChanged};
};

} // namespace

TEST_F(KeyViewTest, EachModifierHasItsSymbol)
{
    view.flagsChanged(0x40000);
    EXPECT_THAT(view.pressedKeys(), UnorderedElementsAre(control));
    view.flagsChanged(0x80000);
    EXPECT_THAT(view.pressedKeys(), UnorderedElementsAre(option));
    view.flagsChanged(0x100000);
    EXPECT_THAT(view.pressedKeys(), UnorderedElementsAre(command));
    view.flagsChanged(0x20000);
    EXPECT_THAT(view.pressedKeys(), UnorderedElementsAre(shift));
    view.flagsChanged(0x1E0000 | 0x10100);
    EXPECT_THAT(view.pressedKeys(), UnorderedElementsAre(control, option, command, shift));
    view.flagsChanged(0x10000);
    EXPECT_THAT(view.pressedKeys(), IsEmpty());
}

TEST_F(KeyViewTest, OfOtherKeysOnlySpaceCounts)
{
    view.keyDown(49, 0x100000);
    EXPECT_THAT(view.pressedKeys(), UnorderedElementsAre(command, space));
    view.keyUp(49, 0x100000);
    EXPECT_THAT(view.pressedKeys(), UnorderedElementsAre(command));
    view.keyDown(11, 0x80000);
    EXPECT_THAT(view.pressedKeys(), UnorderedElementsAre(option));
}

TEST_F(KeyViewTest, ModifiersAloneSayNothingOfSpace)
{
    view.keyDown(49, 0);
    view.flagsChanged(0x20000);
    EXPECT_THAT(view.pressedKeys(), UnorderedElementsAre(shift));
}

TEST_F(KeyViewTest, HearsTheKeysOfItsWindow)
{
    send(window, QEvent::KeyPress, Qt::Key_Control, {}, 55);
    EXPECT_THAT(view.pressedKeys(), UnorderedElementsAre(command));
    send(window, QEvent::KeyPress, Qt::Key_Space, Qt::ControlModifier, 49);
    EXPECT_THAT(view.pressedKeys(), UnorderedElementsAre(command, space));
    send(window, QEvent::KeyRelease, Qt::Key_Space, Qt::ControlModifier, 49);
    EXPECT_THAT(view.pressedKeys(), UnorderedElementsAre(command));
    send(window, QEvent::KeyRelease, Qt::Key_Control, Qt::ControlModifier, 55);
    EXPECT_THAT(view.pressedKeys(), IsEmpty());
    EXPECT_EQ(changes.size(), 4);
}

TEST_F(KeyViewTest, KeyThatRepeatsIsHeldAllTheTime)
{
    send(window, QEvent::KeyPress, Qt::Key_Space, {}, 49);
    send(window, QEvent::KeyRelease, Qt::Key_Space, {}, 49, true);
    send(window, QEvent::KeyPress, Qt::Key_Space, {}, 49, true);
    EXPECT_THAT(view.pressedKeys(), UnorderedElementsAre(space));
    EXPECT_EQ(changes.size(), 1);
}

TEST_F(KeyViewTest, NothingIsHeldInAWindowThatLosesTheKeyboard)
{
    send(window, QEvent::KeyPress, Qt::Key_Alt, {}, 58);
    QFocusEvent lost(QEvent::FocusOut);
    QCoreApplication::sendEvent(&window, &lost);
    EXPECT_THAT(view.pressedKeys(), IsEmpty());
}

TEST_F(KeyViewTest, HearsNoOtherWindow)
{
    QQuickWindow other;
    send(other, QEvent::KeyPress, Qt::Key_Control, {}, 55);
    EXPECT_THAT(view.pressedKeys(), IsEmpty());
    handler.setParentItem(other.contentItem());
    send(other, QEvent::KeyPress, Qt::Key_Control, {}, 55);
    EXPECT_THAT(view.pressedKeys(), UnorderedElementsAre(command));
    send(window, QEvent::KeyPress, Qt::Key_Shift, {}, 56);
    EXPECT_THAT(view.pressedKeys(), UnorderedElementsAre(command));
    handler.setParentItem(nullptr);
}

TEST_F(KeyViewTest, HearsNothingOnceItsHandlerHasGone)
{
    {
        KeyView own(windowSystem);
        KeyEventHandler shortLived;
        shortLived.setKeyView(&own);
        shortLived.setParentItem(window.contentItem());
    }
    KeyView kept(windowSystem);
    {
        KeyEventHandler shortLived;
        shortLived.setKeyView(&kept);
        shortLived.setParentItem(window.contentItem());
    }
    send(window, QEvent::KeyPress, Qt::Key_Control, {}, 55);
    EXPECT_THAT(kept.pressedKeys(), IsEmpty());
}
