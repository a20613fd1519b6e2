#include "AppDelegateBench.h"

#include "Services/GlobalHotkeyManager.h"
#include "Views/Onboarding/OnboardingView.h"
#include "Views/SecondaryWindow.h"

#include <QCloseEvent>
#include <QSessionManager>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QtQml/qqmlextensionplugin.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <map>

Q_IMPORT_QML_PLUGIN(JotwellPlugin)

using namespace jotwell;

namespace {

class AppDelegateTest : public AppDelegateBench {};

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
        settings().setRecentFilesCount(5);
        EXPECT_EQ(endOf(ask), 0) << name;
        EXPECT_TRUE(fake.defaults.isSynchronized()) << name;
        delegate.reset();
    }
}

TEST_F(AppDelegateTest, SessionThatIsAboutToEndFindsTheSettingsStored)
{
    launch();
    settings().setRecentFilesCount(5);
    // Qt alone makes session managers; nobody looks at this one.
    alignas(QSessionManager) std::byte manager[sizeof(QSessionManager)]{};
    emit qApp->commitDataRequest(*reinterpret_cast<QSessionManager*>(manager));
    EXPECT_TRUE(fake.defaults.isSynchronized());
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
