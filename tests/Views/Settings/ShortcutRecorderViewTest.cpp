#include "Views/Settings/ShortcutRecorderView.h"

#include "QtPrinters.h"
#include "Services/LogCapture.h"
#include "Views/Settings/SettingsBench.h"

#include <QKeyEvent>
#include <QSignalSpy>
#include <QWindow>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

using namespace jotwell;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr quint64 command = 0x100000;
constexpr quint64 option = 0x80000;
constexpr int down = KeyEvent::keyDown;
constexpr int flags = KeyEvent::flagsChanged;
constexpr int keyUp = 11;
constexpr Hotkey present{11, command | option};

const QString commandCap = QStringLiteral("⌘");
const QString optionCap = QStringLiteral("⌥");

class Listener : public QWindow {
public:
    int presses = 0;
    int releases = 0;

protected:
    void keyPressEvent(QKeyEvent*) override { ++presses; }
    void keyReleaseEvent(QKeyEvent*) override { ++releases; }
};

class ShortcutRecorderViewTest : public testing::Test {
protected:
    /// Whether the key reached the window.
    bool press(Qt::Key key, Qt::KeyboardModifiers modifiers, quint32 keyCode, bool repeats = false)
    {
        const int before = window.presses;
        QKeyEvent event(QEvent::KeyPress, key, modifiers, keyCode, 0, 0, {}, repeats);
        QCoreApplication::sendEvent(&window, &event);
        return window.presses > before;
    }
    bool release(Qt::Key key, Qt::KeyboardModifiers modifiers, quint32 keyCode)
    {
        const int before = window.releases;
        QKeyEvent event(QEvent::KeyRelease, key, modifiers, keyCode, 0, 0);
        QCoreApplication::sendEvent(&window, &event);
        return window.releases > before;
    }
    void record(int keyCode, quint64 modifiers)
    {
        recorder.startRecording();
        EXPECT_FALSE(recorder.handleEvent({down, keyCode, modifiers}));
    }

    SettingsBench bench;
    Listener window;
    Hotkey bound = present;
    ShortcutRecorderView recorder{
        {[this] { return bound; }, [this](const Hotkey& saved) { bound = saved; }},
        bench.recorderServices()};
    QSignalSpy changes{&recorder, &ShortcutRecorderView::changed};
    QSignalSpy posts{&recorder, &ShortcutRecorderView::globalHotkeyChanged};
};

} // namespace

TEST_F(ShortcutRecorderViewTest, ShowsThePresentShortcutAtFirst)
{
    EXPECT_FALSE(recorder.isRecording());
    EXPECT_FALSE(recorder.isWaiting());
    EXPECT_FALSE(recorder.canSave());
    EXPECT_THAT(recorder.keys(), ElementsAre(optionCap, commandCap, QStringLiteral("B")));
}

TEST_F(ShortcutRecorderViewTest, RecordingBeginsWithNothing)
{
    record(40, command);
    recorder.startRecording();
    EXPECT_TRUE(recorder.isRecording());
    EXPECT_TRUE(recorder.isWaiting());
    EXPECT_EQ(recorder.recorded(), Hotkey());
    EXPECT_EQ(recorder.previous(), present);
    EXPECT_THAT(recorder.keys(), IsEmpty());
}

TEST_F(ShortcutRecorderViewTest, TabAndEscapeKeepTheirEffect)
{
    recorder.startRecording();
    EXPECT_TRUE(recorder.handleEvent({down, 48, command}));
    EXPECT_TRUE(recorder.handleEvent({down, 53, 0}));
    EXPECT_EQ(recorder.recorded(), Hotkey());
    recorder.handleEvent({down, 40, command});
    EXPECT_TRUE(recorder.handleEvent({down, 48, 0}));
    EXPECT_TRUE(recorder.handleEvent({down, 53, option}));
    EXPECT_EQ(recorder.recorded(), (Hotkey{40, command}));
}

TEST_F(ShortcutRecorderViewTest, LettingGoOfTheKeysKeepsTheChoice)
{
    recorder.startRecording();
    EXPECT_TRUE(recorder.handleEvent({flags, 55, command}));
    EXPECT_THAT(recorder.keys(), ElementsAre(commandCap));
    EXPECT_FALSE(recorder.isWaiting());
    EXPECT_FALSE(recorder.handleEvent({down, 11, command}));
    EXPECT_TRUE(recorder.handleEvent({keyUp, 11, command}));
    EXPECT_TRUE(recorder.handleEvent({flags, 55, 0}));
    EXPECT_EQ(recorder.recorded(), (Hotkey{11, command}));
}

TEST_F(ShortcutRecorderViewTest, ModifiersComeAndGoUntilThereIsAKey)
{
    recorder.startRecording();
    recorder.handleEvent({flags, 55, command});
    recorder.handleEvent({flags, 58, command | option});
    EXPECT_THAT(recorder.keys(), ElementsAre(optionCap, commandCap));
    recorder.handleEvent({flags, 58, 0});
    EXPECT_TRUE(recorder.isWaiting());
}

TEST_F(ShortcutRecorderViewTest, KeyOfCodeZeroIsShownAsItsModifiersAndCannotBeSaved)
{
    record(0, command);
    EXPECT_EQ(recorder.recorded(), (Hotkey{0, command}));
    EXPECT_THAT(recorder.keys(), ElementsAre(commandCap));
    EXPECT_FALSE(recorder.canSave());
}

TEST_F(ShortcutRecorderViewTest, KeyWithoutAModifierIsShownAndCannotBeSaved)
{
    record(40, 0);
    EXPECT_THAT(recorder.keys(), ElementsAre(QStringLiteral("K")));
    EXPECT_FALSE(recorder.canSave());
    EXPECT_FALSE(recorder.isWaiting());
    recorder.saveShortcut();
    bench.advance(0);
    EXPECT_EQ(bound, present);
    EXPECT_EQ(posts.size(), 0);
    EXPECT_FALSE(recorder.isRecording());
}

TEST_F(ShortcutRecorderViewTest, KeyWithoutATextCanBeSaved)
{
    record(104, command);
    EXPECT_THAT(recorder.keys(), ElementsAre(commandCap));
    EXPECT_TRUE(recorder.canSave());
    recorder.handleEvent({down, 105, command});
    EXPECT_THAT(recorder.keys(), ElementsAre(commandCap, QStringLiteral("F13")));
}

TEST_F(ShortcutRecorderViewTest, LaterKeyReplacesTheEarlierOne)
{
    record(40, command);
    EXPECT_FALSE(recorder.handleEvent({down, 11, option | 0x10100}));
    EXPECT_EQ(recorder.recorded(), (Hotkey{11, option}));
}

TEST_F(ShortcutRecorderViewTest, CancelLeavesTheShortcutAsItWas)
{
    record(40, command);
    recorder.cancelRecording();
    bench.advance(0);
    EXPECT_EQ(bound, present);
    EXPECT_EQ(recorder.recorded(), present);
    EXPECT_FALSE(recorder.isRecording());
    EXPECT_EQ(posts.size(), 0);
    EXPECT_EQ(bench.settings.globalHotkeyCode(), 11);
}

TEST_F(ShortcutRecorderViewTest, SavesOnALaterTurn)
{
    record(40, command);
    recorder.saveShortcut();
    EXPECT_FALSE(recorder.isRecording());
    EXPECT_EQ(bound, (Hotkey{40, command}));
    EXPECT_THAT(recorder.keys(), ElementsAre(commandCap, QStringLiteral("K")));
    EXPECT_EQ(bench.settings.globalHotkeyCode(), 11);
    EXPECT_EQ(posts.size(), 0);
    bench.advance(0);
    EXPECT_EQ(bench.settings.globalHotkeyCode(), 40);
    EXPECT_EQ(bench.settings.globalHotkeyModifiers(), command);
    EXPECT_EQ(bench.hotkeys.customKeyCode(), 40);
    EXPECT_EQ(bench.hotkeys.customModifiers(), command);
    EXPECT_EQ(posts.size(), 1);
}

TEST_F(ShortcutRecorderViewTest, StoresThenUpdatesThenPostsThenLogs)
{
    QStringList steps;
    LogCapture log;
    QObject::connect(&bench.hotkeys, &GlobalHotkeyManager::hotkeyUpdated, &recorder, [&] {
        steps.append(QStringLiteral("updated to %1").arg(bench.settings.globalHotkeyCode()));
    });
    QObject::connect(&recorder, &ShortcutRecorderView::globalHotkeyChanged, &recorder, [&] {
        steps.append(QStringLiteral("posted after %1 lines").arg(log.prints().size()));
    });
    record(40, command | option);
    recorder.saveShortcut();
    bench.advance(0);
    EXPECT_THAT(steps, ElementsAre(QStringLiteral("updated to 40"),
                                   QStringLiteral("posted after 0 lines")));
    EXPECT_THAT(log.prints(),
                ElementsAre(QStringLiteral("Saved shortcut: keyCode=40, modifiers=1572864"),
                            QStringLiteral("Posted GlobalHotkeyChanged notification")));
}

TEST_F(ShortcutRecorderViewTest, EventsGoOnWhileThereIsNoMonitor)
{
    EXPECT_TRUE(recorder.handleEvent({down, 40, command}));
    EXPECT_EQ(recorder.recorded(), Hotkey());
    EXPECT_TRUE(press(Qt::Key_K, Qt::ControlModifier, 40));
    recorder.startRecording();
    EXPECT_FALSE(press(Qt::Key_K, Qt::ControlModifier, 40));
    recorder.cancelRecording();
    EXPECT_TRUE(press(Qt::Key_K, Qt::ControlModifier, 40));
}

TEST_F(ShortcutRecorderViewTest, MonitorHearsTheKeysOfWindows)
{
    recorder.startRecording();
    EXPECT_TRUE(press(Qt::Key_Control, {}, 55));
    EXPECT_THAT(recorder.keys(), ElementsAre(commandCap));
    EXPECT_TRUE(press(Qt::Key_Alt, Qt::ControlModifier, 58));
    EXPECT_FALSE(press(Qt::Key_K, Qt::ControlModifier | Qt::AltModifier, 40));
    EXPECT_TRUE(release(Qt::Key_K, Qt::ControlModifier | Qt::AltModifier, 40));
    EXPECT_TRUE(release(Qt::Key_Alt, Qt::ControlModifier | Qt::AltModifier, 58));
    EXPECT_TRUE(release(Qt::Key_Control, Qt::ControlModifier, 55));
    EXPECT_EQ(recorder.recorded(), (Hotkey{40, command | option}));
}

// X11 calls the Alt key Meta while Shift is held, and Qt says that Meta is held, then.
TEST_F(ShortcutRecorderViewTest, AltIsKnownByItsPlaceWhileShiftIsHeld)
{
    recorder.startRecording();
    press(Qt::Key_Shift, {}, 56);
    press(Qt::Key_Meta, Qt::ShiftModifier | Qt::MetaModifier, 58);
    EXPECT_EQ(recorder.recorded(), (Hotkey{0, option | 0x20000}));
    release(Qt::Key_Meta, Qt::ShiftModifier | Qt::AltModifier | Qt::MetaModifier, 58);
    EXPECT_EQ(recorder.recorded(), (Hotkey{0, 0x20000}));
    press(Qt::Key_Meta, Qt::ShiftModifier, 59);
    EXPECT_EQ(recorder.recorded(), (Hotkey{0, 0x60000}));
}

TEST_F(ShortcutRecorderViewTest, MonitorLetsTabAndEscapeAndUnknownKeysThrough)
{
    recorder.startRecording();
    EXPECT_TRUE(press(Qt::Key_Tab, {}, 48));
    EXPECT_TRUE(press(Qt::Key_Tab, {}, 48, true));
    EXPECT_TRUE(press(Qt::Key_Escape, {}, 53));
    EXPECT_TRUE(press(Qt::Key_VolumeUp, {}, static_cast<quint32>(-1)));
    EXPECT_TRUE(recorder.isWaiting());
}

TEST_F(ShortcutRecorderViewTest, KeyThatBeganTheRecordingIsNotRecordedByRepeating)
{
    recorder.startRecording();
    EXPECT_FALSE(press(Qt::Key_Return, {}, 36, true));
    EXPECT_TRUE(recorder.isWaiting());
    press(Qt::Key_K, Qt::ControlModifier, 40);
    EXPECT_FALSE(press(Qt::Key_K, Qt::ControlModifier, 40, true));
    EXPECT_EQ(recorder.recorded(), (Hotkey{40, command}));
}

TEST_F(ShortcutRecorderViewTest, ButtonWithTheKeyboardIsWorkedByItsKeys)
{
    record(40, command);
    recorder.setHasFocusedButton(true);
    EXPECT_TRUE(press(Qt::Key_Space, {}, 49));
    EXPECT_TRUE(press(Qt::Key_Return, {}, 36));
    EXPECT_TRUE(press(Qt::Key_Enter, Qt::KeypadModifier, 76));
    EXPECT_EQ(recorder.recorded(), (Hotkey{40, command}));
    EXPECT_FALSE(press(Qt::Key_J, {}, 38));
    EXPECT_FALSE(press(Qt::Key_Space, Qt::ControlModifier, 49));
    EXPECT_EQ(recorder.recorded(), (Hotkey{49, command}));
    recorder.setHasFocusedButton(false);
    EXPECT_FALSE(press(Qt::Key_Return, {}, 36));
    EXPECT_EQ(recorder.recorded(), (Hotkey{36, 0}));
}

TEST_F(ShortcutRecorderViewTest, MonitorEndsWithTheRecorder)
{
    {
        ShortcutRecorderView other({[] { return present; }, [](const Hotkey&) {}},
                                   bench.recorderServices());
        other.startRecording();
        EXPECT_FALSE(press(Qt::Key_K, Qt::ControlModifier, 40));
    }
    EXPECT_TRUE(press(Qt::Key_K, Qt::ControlModifier, 40));
}

TEST_F(ShortcutRecorderViewTest, PresentHotkeyIsRecordedAndDoesNothingElse)
{
    int toggles = 0;
    bench.hotkeys.setHotkeyHandler([&] { ++toggles; });
    bench.fake.hotkeys.trusted = true;
    bench.hotkeys.checkAndStartMonitoring();
    const auto pressHotkey = [&] {
        bench.fake.hotkeys.tapEvent({down, 11, command | option});
        bench.advance(1000);
        bench.fake.clock.advance(std::chrono::seconds(1));
    };
    for (const auto end :
         {&ShortcutRecorderView::cancelRecording, &ShortcutRecorderView::saveShortcut}) {
        recorder.startRecording();
        pressHotkey();
        EXPECT_EQ(recorder.recorded(), present);
        EXPECT_TRUE(recorder.canSave());
        EXPECT_EQ(toggles, 0);
        (recorder.*end)();
        bench.advance(0);
        pressHotkey();
        EXPECT_EQ(std::exchange(toggles, 0), 1) << "it is what it was";
    }
    {
        ShortcutRecorderView other({[] { return present; }, [](const Hotkey&) {}},
                                   bench.recorderServices());
        other.startRecording();
    }
    pressHotkey();
    EXPECT_EQ(toggles, 1) << "the recorder has gone while it recorded";
}

TEST_F(ShortcutRecorderViewTest, TellsOnlyOfChanges)
{
    recorder.startRecording();
    changes.clear();
    recorder.handleEvent({flags, 55, 0});
    EXPECT_EQ(changes.size(), 0);
    recorder.handleEvent({flags, 55, command});
    recorder.handleEvent({flags, 55, command | 0x10000});
    EXPECT_EQ(changes.size(), 1);
}
