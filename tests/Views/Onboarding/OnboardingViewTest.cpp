#include "Views/Onboarding/OnboardingBench.h"

#include "Services/ToastLog.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace jotwell;
using namespace std::chrono_literals;

namespace {

const ShownToast welcome{ToastType::success, 2, QStringLiteral("Welcome to Jotwell!")};
const ShownToast vaultWanted{ToastType::warning, 2,
                             QStringLiteral("Please select your Obsidian vault folder")};

class OnboardingViewTest : public testing::Test {
protected:
    OnboardingView& view() { return bench.onboarding; }
    SettingsService& settings() { return bench.bench.settings; }

    void goTo(int step)
    {
        while (view().currentStep() < step) {
            if (view().shouldDisableContinue())
                choose(OnboardingView::vault, bench.bench.vault.path());
            view().goForward();
        }
        ASSERT_EQ(view().currentStep(), step);
    }

    void choose(OnboardingView::FolderPickerType type, const QString& path)
    {
        view().selectFolder(type, nullptr);
        bench.answer(path);
    }

    IndexStatus::Kind indexStatus() { return bench.bench.index.indexStatus().kind; }

    OnboardingBench bench;
    ToastLog toasts{bench.bench.toastManager};
    QSignalSpy dismissals{&bench.onboarding, &OnboardingView::dismissed};
};

} // namespace

TEST_F(OnboardingViewTest, HasFiveStepsAndBeginsAtTheFirst)
{
    EXPECT_EQ(view().currentStep(), 1);
    EXPECT_EQ(OnboardingView::totalSteps, 5);
    EXPECT_FALSE(view().isLastStep());
    goTo(5);
    EXPECT_TRUE(view().isLastStep());
}

TEST_F(OnboardingViewTest, OnlyTheVaultStepBlocksAndOnlyWithoutAFolder)
{
    for (int step = 1; step <= 5; ++step) {
        goTo(step);
        EXPECT_EQ(view().shouldDisableContinue(), step == 2) << step;
        if (step == 2) {
            view().goForward();
            EXPECT_EQ(view().currentStep(), 2);
            choose(OnboardingView::vault, bench.bench.vault.path());
            EXPECT_FALSE(view().shouldDisableContinue());
        }
    }
    EXPECT_EQ(view().templatesFolderPath(), QString());
}

TEST_F(OnboardingViewTest, GoesBackAsFarAsTheFirstStep)
{
    goTo(3);
    view().goBack();
    EXPECT_EQ(view().currentStep(), 2);
    view().goBack();
    view().goBack();
    EXPECT_EQ(view().currentStep(), 1);
}

TEST_F(OnboardingViewTest, AsksForEachFolderInItsWords)
{
    view().selectFolder(OnboardingView::vault, nullptr);
    EXPECT_EQ(bench.folders.question->message, QStringLiteral("Select your Obsidian vault folder"));
    bench.answer(QStringLiteral("/v"));
    view().selectFolder(OnboardingView::templates, nullptr);
    EXPECT_EQ(bench.folders.question->message, QStringLiteral("Select your templates folder"));
    bench.answer(QStringLiteral("/t"));
    EXPECT_EQ(view().obsidianVaultPath(), QStringLiteral("/v"));
    EXPECT_EQ(view().templatesFolderPath(), QStringLiteral("/t"));
}

TEST_F(OnboardingViewTest, CancelledPanelLeavesThePath)
{
    choose(OnboardingView::vault, QStringLiteral("/v"));
    view().selectFolder(OnboardingView::vault, nullptr);
    EXPECT_EQ(bench.folders.question->folder, QStringLiteral("/v"));
    bench.folders.cancel();
    EXPECT_EQ(view().obsidianVaultPath(), QStringLiteral("/v"));
}

TEST_F(OnboardingViewTest, NothingTakesEffectBeforeTheEnd)
{
    goTo(5);
    choose(OnboardingView::templates, bench.bench.vault.path());
    EXPECT_EQ(settings().obsidianFolderPath(), QString());
    EXPECT_EQ(settings().templatesFolderPath(), QString());
    EXPECT_FALSE(settings().onboardingCompleted());
    EXPECT_EQ(indexStatus(), IndexStatus::Kind::notStarted);
    EXPECT_TRUE(toasts.shown.empty());
}

TEST_F(OnboardingViewTest, LastStepStoresWhatWasChosenAndWelcomes)
{
    const QString vault = bench.bench.vault.path();
    QFile(vault + QStringLiteral("/Daily.md")).open(QIODevice::WriteOnly);
    goTo(5);
    choose(OnboardingView::templates, vault);
    view().goForward();
    EXPECT_EQ(settings().obsidianFolderPath(), vault);
    EXPECT_EQ(settings().templatesFolderPath(), vault);
    EXPECT_TRUE(settings().onboardingCompleted());
    EXPECT_EQ(toasts.shown, std::vector{welcome});
    EXPECT_EQ(dismissals.size(), 1);
    EXPECT_EQ(bench.bench.templates.syncedTemplates().size(), 1);
    EXPECT_TRUE(QTest::qWaitFor([this] {
        bench.bench.advance(0);
        return indexStatus() == IndexStatus::Kind::ready;
    }));
}

TEST_F(OnboardingViewTest, SkippingTheFirstStepCompletesWithoutAVault)
{
    view().handleSkip();
    EXPECT_TRUE(settings().onboardingCompleted());
    EXPECT_EQ(settings().obsidianFolderPath(), QString());
    EXPECT_FALSE(bench.bench.fake.defaults.storedType(QStringLiteral("ObsidianFolderPath")));
    EXPECT_EQ(indexStatus(), IndexStatus::Kind::notStarted);
    EXPECT_EQ(toasts.shown, std::vector{welcome});
    EXPECT_EQ(dismissals.size(), 1);
}

TEST_F(OnboardingViewTest, VaultStepIsNotSkippedWithoutAVault)
{
    goTo(2);
    view().handleSkip();
    EXPECT_EQ(toasts.shown, std::vector{vaultWanted});
    EXPECT_EQ(view().currentStep(), 2);
    EXPECT_FALSE(settings().onboardingCompleted());
    EXPECT_EQ(dismissals.size(), 0);
}

TEST_F(OnboardingViewTest, VaultStepIsSkippedWithAVault)
{
    goTo(2);
    choose(OnboardingView::vault, bench.bench.vault.path());
    view().handleSkip();
    EXPECT_EQ(settings().obsidianFolderPath(), bench.bench.vault.path());
    EXPECT_TRUE(settings().onboardingCompleted());
}

TEST_F(OnboardingViewTest, LaunchAtLoginActsAtOnceAndStays)
{
    goTo(4);
    view().setLaunchAtLogin(true);
    EXPECT_EQ(bench.bench.fake.loginItem.state, LoginItem::Status::enabled);
    EXPECT_TRUE(view().launchAtLogin());
    view().handleSkip();
    EXPECT_EQ(bench.bench.fake.loginItem.state, LoginItem::Status::enabled);
}

TEST(OnboardingViewStart, KnowsWhatTheDesktopStartsByNow)
{
    ViewBench bench;
    FakeFolderPanel folders;
    LaunchAtLoginManager launchAtLogin(bench.fake.loginItem, bench.fake.defaults,
                                       bench.fake.scheduler);
    bench.fake.loginItem.state = LoginItem::Status::enabled; // behind the switch's back
    const OnboardingView view(
        {bench.settings, bench.index, bench.templates, launchAtLogin, bench.toastManager, folders});
    EXPECT_TRUE(view.launchAtLogin());
}
