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
#include "Views/FloatingWindowView.h"
#include "Views/LocalKeyMonitor.h"
#include "Views/Onboarding/OnboardingView.h"
#include "Views/SecondaryWindow.h"
#include "Views/Settings/SimpleSettingsView.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickView>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QtQml/qqmlextensionplugin.h>

#include <gtest/gtest.h>

#include <map>
#include <optional>

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

    /// What was put off to a later turn is still to come.
    void start()
    {
        delegate =
            std::make_unique<AppDelegate>(Desktop{desktop.door, desktop.statusItem, desktop.windows,
                                                  desktop.terminationSignals, desktop.folders},
                                          fake.platform);
        delegate->applicationDidFinishLaunching();
    }

    void launch()
    {
        start();
        turn();
    }

    /// Lets what was put off to the next turns of the event loop happen.
    void turn() { fake.scheduler.advance(0ms); }

    static FloatingWindow* floatingWindow()
    {
        for (QWindow* window : QGuiApplication::topLevelWindows()) {
            if (auto* floating = qobject_cast<FloatingWindow*>(window))
                return floating;
        }
        return nullptr;
    }

    static bool isWindowShown()
    {
        const FloatingWindow* const floating = floatingWindow();
        return floating && floating->isOnScreen();
    }

    template <typename View>
    static View& viewOf(QWindow* window)
    {
        return *qobject_cast<QQuickView*>(window)->rootObject()->property("view").value<View*>();
    }

    /// The status with which the program ends when it is asked to while something is being
    /// written; none if it doesn't wait for that.
    std::optional<int> endOf(const std::function<void()>& ask)
    {
        constexpr auto patience = 10s;
        QSemaphore written;
        const QObject context;
        bool hasWaited = false;
        fake.background.start([&] { written.acquire(); });
        const auto finishWriting = [&] {
            hasWaited = true;
            written.release();
            fake.background.waitForDone();
            fake.scheduler.advance(100ms);
        };
        QTimer::singleShot(0, &context, [&] {
            ask();
            fake.scheduler.advance(1s);
            QTimer::singleShot(50ms, &context, finishWriting);
        });
        QTimer::singleShot(patience, &context, [] { QCoreApplication::exit(-1); });
        const int status = QCoreApplication::exec();
        written.release();
        return hasWaited ? std::optional(status) : std::nullopt;
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

TEST_F(AppDelegateTest, WelcomeHasTheKeyboardAndOneSize)
{
    settings().setOnboardingCompleted(false);
    launch();
    QWindow* const welcome = windowCalled("Welcome to Jotwell");
    ASSERT_NE(welcome, nullptr);
    EXPECT_TRUE(QTest::qWaitForWindowActive(welcome));
    EXPECT_EQ(welcome->minimumSize(), welcome->maximumSize());
}

TEST_F(AppDelegateTest, WelcomeGoesWhenItIsSkipped)
{
    settings().setOnboardingCompleted(false);
    launch();
    viewOf<OnboardingView>(windowCalled("Welcome to Jotwell")).handleSkip();
    EXPECT_TRUE(QTest::qWaitFor([this] {
        turn();
        return !windowCalled("Welcome to Jotwell");
    }));
}

TEST_F(AppDelegateTest, WindowsMayBeToldToCloseTwice)
{
    settings().setOnboardingCompleted(false);
    launch();
    delegate->showSettings();
    for (const char* title : {"Welcome to Jotwell", "Settings"}) {
        auto* const window = qobject_cast<SecondaryWindow*>(windowCalled(title));
        const QSignalSpy closings(window, &SecondaryWindow::willClose);
        for (int wish = 0; wish < 2; ++wish) {
            QCloseEvent close;
            QCoreApplication::sendEvent(window, &close);
        }
        EXPECT_EQ(closings.size(), 1) << title;
        turn();
        EXPECT_TRUE(QTest::qWaitFor([title] { return !windowCalled(title); })) << title;
    }
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
    EXPECT_EQ(viewOf<SimpleSettingsView>(windowCalled("Settings")).selectedItem(),
              QStringLiteral("globalHotkey"));
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
    start();
    EXPECT_TRUE(toasts->shown.empty());
    turn();
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

TEST_F(AppDelegateTest, HotkeyInAnotherWindowToggles)
{
    launch();
    EXPECT_TRUE(delegate->localKeyMonitor().handleKeyDown(hotkeyPress, false));
    turn();
    EXPECT_TRUE(isWindowShown());
}

TEST_F(AppDelegateTest, KeyOfACommandPutsItIntoTheWindow)
{
    launch();
    EXPECT_TRUE(delegate->localKeyMonitor().handleKeyDown({KeyEvent::keyDown, 19, 0x100000}, true));
    turn();
    auto& view = viewOf<FloatingWindowView>(floatingWindow());
    EXPECT_TRUE(view.commandTemplateState().fields().text.contains(u"/search_notes"));
}

TEST_F(AppDelegateTest, ViewThatAsksTwiceIsHiddenOnALaterTurn)
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

TEST_F(AppDelegateTest, WindowComesBackToTheMiddle)
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

TEST_F(AppDelegateTest, WindowThatIsAnIconIsShownRatherThanHidden)
{
    launch();
    delegate->toggleFloatingWindow();
    turn();
    floatingWindow()->setWindowStates(Qt::WindowMinimized);
    delegate->toggleFloatingWindow();
    turn();
    EXPECT_TRUE(isWindowShown());
}

TEST_F(AppDelegateTest, MenuFollowsAChangedHotkey)
{
    launch();
    GlobalHotkeyManager::shared().updateHotkey(40, 0x20000 | 0x40000);
    turn();
    EXPECT_EQ(entry(0).keyEquivalent, QStringLiteral("k"));
    EXPECT_EQ(entry(0).keyEquivalentModifierMask, 0x60000U);
}

TEST_F(AppDelegateTest, MenuIsMadeAnewForTheHotkeyAndForTheNewsOfIt)
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

TEST_F(AppDelegateTest, TemplatesAreReadBeforeTheFirstNote)
{
    const QTemporaryDir templates;
    settings().setTemplatesFolderPath(templates.path());
    launch();
    EXPECT_TRUE(fake.folders.watched().contains(templates.path()));
}

TEST_F(AppDelegateTest, EveryWayToEndWaitsForWhatIsBeingWritten)
{
    const std::map<std::string, std::function<void()>> ways{
        {"menu", [this] { entry(6).action(); }},
        {"desktop action", [this] { desktop.door.performAction(QStringLiteral("quit")); }},
        {"signal", [this] { desktop.terminationSignals.requested(); }},
        {"session",
         [] {
             QEvent quit(QEvent::Quit);
             QCoreApplication::sendEvent(qApp, &quit);
         }},
    };
    for (const auto& [name, ask] : ways) {
        launch();
        EXPECT_EQ(endOf(ask), 0) << name;
        delegate.reset();
    }
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

TEST_F(AppDelegateTest, DoorBringsTheWelcomeToTheFrontAsLongAsItIsOpen)
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

TEST_F(AppDelegateTest, NobodyAnswersOnceTheDelegateHasGone)
{
    launch();
    delegate.reset();
    EXPECT_FALSE(desktop.door.activate || desktop.door.performAction);
    EXPECT_FALSE(desktop.statusItem.action);
    EXPECT_TRUE(desktop.statusItem.menu.empty());
    desktop.terminationSignals.requested();
    turn();
}
