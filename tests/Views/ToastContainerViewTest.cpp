#include "Views/ToastContainerView.h"

#include "Fakes/FakeScheduler.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace jotwell;

namespace {

class ToastContainerViewTest : public testing::Test {
protected:
    FakeScheduler scheduler;
    ToastManager manager{scheduler};
    ToastContainerView view{manager};
    QSignalSpy changes{&view, &ToastContainerView::slotChanged};
};

} // namespace

TEST_F(ToastContainerViewTest, ShowsNothingAtFirst)
{
    EXPECT_FALSE(view.isShown());
}

TEST_F(ToastContainerViewTest, ShowsWhatTheSlotHolds)
{
    manager.showWarning(QStringLiteral("Careful"));
    EXPECT_TRUE(view.isShown());
    EXPECT_EQ(view.message(), QStringLiteral("Careful"));
    EXPECT_EQ(view.icon(), QStringLiteral("exclamationmark.triangle.fill"));
    EXPECT_EQ(view.color(), QStringLiteral("red"));
    EXPECT_EQ(view.iconColor(), QStringLiteral("white"));
}

TEST_F(ToastContainerViewTest, ShowsWhatTheSlotHeldBeforeIt)
{
    manager.showSuccess(QStringLiteral("Done"));
    const ToastContainerView later(manager);
    EXPECT_TRUE(later.isShown());
    EXPECT_EQ(later.message(), QStringLiteral("Done"));
}

TEST_F(ToastContainerViewTest, ReplacedToastGoesAtOnceAndTheNextComesByAMovement)
{
    manager.showSuccess(QStringLiteral("First"));
    manager.showError(QStringLiteral("Second"));
    ASSERT_EQ(changes.size(), 3);
    EXPECT_EQ(changes.at(0).at(0).toBool(), true);
    EXPECT_EQ(changes.at(1).at(0).toBool(), false);
    EXPECT_EQ(changes.at(2).at(0).toBool(), true);
    EXPECT_EQ(view.message(), QStringLiteral("Second"));
}

TEST_F(ToastContainerViewTest, KeepsItsWordsWhileItGoes)
{
    manager.showSuccess(QStringLiteral("Done"));
    view.dismiss();
    EXPECT_FALSE(view.isShown());
    EXPECT_EQ(view.message(), QStringLiteral("Done"));
    EXPECT_FALSE(manager.currentToast());
    EXPECT_EQ(changes.last().at(0).toBool(), true);
}
