#include "AppDelegate.h"

#include "Fakes/FakeDesktop.h"
#include "Fakes/FakePlatform.h"
#include "Services/GlobalHotkeyManager.h"
#include "Services/LogCapture.h"
#include "Services/SettingsService.h"
#include "Services/SharedServices.h"
#include "Services/SparkleUpdateManager.h"
#include "Services/TagIndexService.h"
#include "Services/ToastLog.h"
#include "Views/FloatingWindow.h"
#include "Views/LocalKeyMonitor.h"

#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTest>
#include <QtQml/qqmlextensionplugin.h>

#include <gtest/gtest.h>

Q_IMPORT_QML_PLUGIN(JotwellPlugin)

using namespace jotwell;
using namespace std::chrono_literals;

namespace {

constexpr quint64 commandAndOption = 0x180000;
constexpr KeyEvent hotkeyPress{KeyEvent::keyDown, 11, commandAndOption};

class AppDelegateTest : public testing::Test {
protected:
    AppDelegateTest()
    {
        installPlatform(fake.platform);
        toasts.emplace(ToastManager::shared());
        fake.hotkeys.trusted = true;
        settings().setOnboardingCompleted(true);
    }
    ~AppDelegateTest() override
    {
        delegate.reset();
        fake.background.waitForDone();
        fake.bulk.waitForDone();
        QCoreApplication::processEvents();
        releaseSharedServices();
    }

    static SettingsService& settings() { return SettingsService::shared(); }

    void launch()
    {
        delegate =
            std::make_unique<AppDelegate>(Desktop{desktop.door, desktop.statusItem, desktop.windows,
                                                  desktop.terminationSignals, desktop.folders},
                                          fake.scheduler, fake.background);
        delegate->applicationDidFinishLaunching();
        turn();
    }

    /// Lets what was put off to the next turns of the event loop happen.
    void turn() { fake.scheduler.advance(0ms); }

    static bool isWindowShown()
    {
        const auto windows = QGuiApplication::topLevelWindows();
        return std::ranges::any_of(windows, [](const QWindow* window) {
            const auto* floating = qobject_cast<const FloatingWindow*>(window);
            return floating && floating->isOnScreen();
        });
    }

    static QWindow* windowCalled(const char* title)
    {
        for (QWindow* window : QGuiApplication::topLevelWindows()) {
            if (window->title() == QLatin1String(title))
                return window;
        }
        return nullptr;
    }

    const MenuEntry& entry(std::size_t index) { return desktop.statusItem.menu.at(index); }

    FakePlatform fake;
    FakeDesktop desktop;
    std::optional<ToastLog> toasts;
    std::unique_ptr<AppDelegate> delegate;
};

} // namespace

TEST_F(AppDelegateTest, WaitsUnseenWithItsMenu)
{
    launch();
    EXPECT_FALSE(isWindowShown());
    ASSERT_EQ(desktop.statusItem.menu.size(), 7U);
    EXPECT_EQ(entry(0).title, QStringLiteral("Open"));
    EXPECT_EQ(entry(4).title, QStringLiteral("Check for Updates..."));
    EXPECT_TRUE(toasts->shown.empty());
}

TEST_F(AppDelegateTest, WelcomesUntilTheWelcomeIsCompleted)
{
    settings().setOnboardingCompleted(false);
    launch();
    QWindow* const welcome = windowCalled("Welcome to Jotwell");
    ASSERT_NE(welcome, nullptr);
    EXPECT_TRUE(welcome->isVisible());
    EXPECT_EQ(welcome->size(), QSize(600, 600));
    EXPECT_EQ(desktop.statusItem.menu.size(), 7U) << "nothing waits for it";
    welcome->close();
    EXPECT_TRUE(QTest::qWaitFor([] { return !windowCalled("Welcome to Jotwell"); }));
    EXPECT_FALSE(settings().onboardingCompleted());
}

TEST_F(AppDelegateTest, NoWelcomeOnceItIsCompleted)
{
    launch();
    EXPECT_EQ(windowCalled("Welcome to Jotwell"), nullptr);
}

TEST_F(AppDelegateTest, MenuAndDoorShowTheSettings)
{
    launch();
    EXPECT_EQ(windowCalled("Settings"), nullptr);
    entry(2).action();
    ASSERT_NE(windowCalled("Settings"), nullptr);
    EXPECT_TRUE(windowCalled("Settings")->isVisible());
    windowCalled("Settings")->close();
    turn();
    EXPECT_TRUE(QTest::qWaitFor([] { return !windowCalled("Settings"); }));
    desktop.door.performAction(QStringLiteral("settings"));
    EXPECT_NE(windowCalled("Settings"), nullptr);
}

TEST_F(AppDelegateTest, TellsOfTheMenuAndItsHotkey)
{
    const LogCapture log;
    launch();
    const auto printed = log.prints();
    EXPECT_TRUE(printed.contains(QStringLiteral("[AppDelegate] refreshMenuBar() called")));
    EXPECT_TRUE(printed.contains(
        QStringLiteral("[AppDelegate] Current hotkey settings - keyCode: 11, modifiers: 1572864")));
}

TEST_F(AppDelegateTest, WarnsWithoutPermission)
{
    fake.hotkeys.trusted = false;
    launch();
    const ShownToast expected{
        ToastType::warning, 2,
        QStringLiteral(
            "Global hotkey requires accessibility permissions. Open Settings to enable.")};
    ASSERT_EQ(toasts->shown.size(), 1U);
    EXPECT_EQ(toasts->shown[0], expected);
    EXPECT_EQ(fake.hotkeys.prompts, 0);
}

TEST_F(AppDelegateTest, HotkeyTogglesTheWindowOnALaterTurn)
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

TEST_F(AppDelegateTest, PressSeenByBothChannelsTogglesOnce)
{
    launch();
    fake.hotkeys.tapEvent(hotkeyPress);
    fake.hotkeys.monitorEvent(hotkeyPress);
    turn();
    EXPECT_TRUE(isWindowShown());
}

TEST_F(AppDelegateTest, HotkeyInTheWindowHidesIt)
{
    launch();
    delegate->toggleFloatingWindow();
    turn();
    EXPECT_TRUE(delegate->localKeyMonitor().handleKeyDown(hotkeyPress, true));
    EXPECT_TRUE(delegate->localKeyMonitor().handleKeyDown(hotkeyPress, true));
    turn();
    EXPECT_FALSE(isWindowShown());
}

TEST_F(AppDelegateTest, MenuFollowsAChangedHotkey)
{
    launch();
    GlobalHotkeyManager::shared().updateHotkey(40, 0x20000 | 0x40000);
    turn();
    EXPECT_EQ(entry(0).keyEquivalent, QStringLiteral("k"));
    EXPECT_EQ(entry(0).keyEquivalentModifierMask, 0x60000U);
}

TEST_F(AppDelegateTest, MenuFollowsAnUpdate)
{
    launch();
    ASSERT_NE(fake.updater.delegate, nullptr);
    fake.updater.delegate->didFindValidUpdate({QStringLiteral("9.9"), {}});
    turn();
    EXPECT_EQ(entry(4).title, QStringLiteral("Download Update... (v9.9)"));
}

TEST_F(AppDelegateTest, MenuOpensTheWindow)
{
    launch();
    entry(0).action();
    turn();
    EXPECT_TRUE(isWindowShown());
}

TEST_F(AppDelegateTest, IndexIsBuiltOnlyForAVault)
{
    launch();
    EXPECT_EQ(TagIndexService::shared().indexStatus().kind, IndexStatus::Kind::notStarted);
}

TEST_F(AppDelegateTest, IndexOfTheVaultIsBuiltAtOnce)
{
    const QTemporaryDir vault;
    settings().setObsidianFolderPath(vault.path());
    launch();
    EXPECT_NE(TagIndexService::shared().indexStatus().kind, IndexStatus::Kind::notStarted);
    EXPECT_TRUE(QTest::qWaitFor([this] {
        turn();
        return TagIndexService::shared().indexStatus().kind == IndexStatus::Kind::ready;
    }));
}

TEST_F(AppDelegateTest, DoorTogglesWhenItIsKnockedAtAndByAction)
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

TEST_F(AppDelegateTest, PlainClickOnTheStatusItemToggles)
{
    launch();
    desktop.statusItem.action();
    turn();
    EXPECT_TRUE(isWindowShown());
}

TEST_F(AppDelegateTest, ThousandPressesLeaveTheWindowAsTheLastOneWants)
{
    launch();
    for (int press = 0; press < 1001; ++press) {
        fake.clock.advance(101ms);
        fake.hotkeys.tapEvent(hotkeyPress);
        turn();
    }
    EXPECT_TRUE(isWindowShown());
}

TEST_F(AppDelegateTest, HotkeyIsDeadOnceTheDelegateHasGone)
{
    launch();
    delegate.reset();
    fake.hotkeys.tapEvent(hotkeyPress);
    turn();
    EXPECT_FALSE(isWindowShown());
}
