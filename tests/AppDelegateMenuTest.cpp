#include "AppDelegateBench.h"

#include "Services/GlobalHotkeyManager.h"
#include "Services/LogCapture.h"
#include "Services/SparkleUpdateManager.h"
#include "Views/Settings/SimpleSettingsView.h"

#include <QTest>

#include <gtest/gtest.h>

using namespace jotwell;

namespace {

constexpr quint64 commandAndOption = 0x180000;

class AppDelegateMenuTest : public AppDelegateBench {};

} // namespace

TEST_F(AppDelegateMenuTest, MenuAndDoorShowTheSettings)
{
    launch();
    EXPECT_EQ(windowCalled("Settings"), nullptr);
    entry(2).action();
    ASSERT_NE(windowCalled("Settings"), nullptr);
    EXPECT_TRUE(windowCalled("Settings")->isVisible());
    EXPECT_EQ(viewOf<SimpleSettingsView>(windowCalled("Settings")).selectedItem(),
              QStringLiteral("globalHotkey"));
    windowCalled("Settings")->close();
    turn();
    EXPECT_TRUE(QTest::qWaitFor([] { return !windowCalled("Settings"); }));
    desktop.door.performAction(QStringLiteral("settings"));
    EXPECT_NE(windowCalled("Settings"), nullptr);
}

TEST_F(AppDelegateMenuTest, TellsOfTheMenuAndItsHotkey)
{
    const LogCapture log;
    launch();
    const auto printed = log.prints();
    EXPECT_TRUE(printed.contains(QStringLiteral("[AppDelegate] refreshMenuBar() called")));
    EXPECT_TRUE(printed.contains(
        QStringLiteral("[AppDelegate] Current hotkey settings - keyCode: 11, modifiers: 1572864")));
}

TEST_F(AppDelegateMenuTest, MenuFollowsAChangedHotkey)
{
    launch();
    GlobalHotkeyManager::shared().updateHotkey(40, 0x20000 | 0x40000);
    turn();
    EXPECT_EQ(entry(0).keyEquivalent, QStringLiteral("k"));
    EXPECT_EQ(entry(0).keyEquivalentModifierMask, 0x60000U);
}

TEST_F(AppDelegateMenuTest, MenuIsMadeAnewForTheHotkeyAndForTheNewsOfIt)
{
    launch();
    delegate->showSettings();
    const auto* window = qobject_cast<QQuickView*>(windowCalled("Settings"));
    ASSERT_NE(window, nullptr);
    auto* view = window->rootObject()->property("view").value<SimpleSettingsView*>();
    ASSERT_NE(view, nullptr);
    ShortcutRecorderView& recorder = *view->globalHotkey()->recorder();
    const LogCapture log;
    recorder.startRecording();
    recorder.handleEvent({KeyEvent::keyDown, 40, commandAndOption});
    recorder.saveShortcut();
    turn();
    EXPECT_EQ(entry(0).keyEquivalent, QStringLiteral("k"));
    EXPECT_EQ(log.prints().count(QStringLiteral("[AppDelegate] refreshMenuBar() called")), 2);
}

TEST_F(AppDelegateMenuTest, MenuFollowsAnUpdate)
{
    launch();
    ASSERT_NE(fake.updater.delegate, nullptr);
    fake.updater.delegate->didFindValidUpdate({QStringLiteral("9.9"), {}});
    turn();
    EXPECT_EQ(entry(4).title, QStringLiteral("Download Update... (v9.9)"));
}

TEST_F(AppDelegateMenuTest, MenuOpensTheWindow)
{
    launch();
    entry(0).action();
    turn();
    EXPECT_TRUE(isWindowShown());
}
