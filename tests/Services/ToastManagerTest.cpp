#include "Services/ToastManager.h"

#include "Fakes/FakeScheduler.h"
#include "Services/ToastLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace jotwell {

namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using Transition = ToastManager::Transition;

/// A change of the slot: how it is to look, and the message that stands there behind it.
using SlotChange = std::pair<Transition, QString>;

class ToastManagerTest : public testing::Test {
protected:
    ToastManagerTest()
    {
        QObject::connect(
            &m_toasts, &ToastManager::currentToastChanged, &m_toasts,
            [this](Transition transition) { m_changes.emplace_back(transition, now()); });
    }

    /// What the slot shows, empty for nothing.
    [[nodiscard]] QString now() const
    {
        return m_toasts.currentToast() ? m_toasts.currentToast()->message : QString();
    }

    std::vector<SlotChange> takenChanges() { return std::exchange(m_changes, {}); }

    FakeScheduler m_scheduler;
    ToastManager m_toasts{m_scheduler};
    ToastLog m_log{m_toasts};
    std::vector<SlotChange> m_changes;
};

TEST_F(ToastManagerTest, SlotIsEmptyAtTheStart)
{
    EXPECT_EQ(m_toasts.currentToast(), std::nullopt);
}

struct OperationRow {
    const char* name;
    void (*show)(ToastManager&);
    ShownToast toast;
};

class ToastOperation : public testing::TestWithParam<OperationRow> {};

const OperationRow operationRows[] = {
    {"Success",
     [](ToastManager& it) { it.showSuccess(u"a"_qs); },
     {ToastType::success, 2.0, u"a"_qs}},
    {"SuccessOfItsOwnLength",
     [](ToastManager& it) { it.showSuccess(u"a"_qs, 7.5s); },
     {ToastType::success, 7.5, u"a"_qs}},
    {"Warning",
     [](ToastManager& it) { it.showWarning(u"a"_qs); },
     {ToastType::warning, 2.0, u"a"_qs}},
    {"WarningOfItsOwnLength",
     [](ToastManager& it) { it.showWarning(u"a"_qs, 7.5s); },
     {ToastType::warning, 7.5, u"a"_qs}},
    {"Error", [](ToastManager& it) { it.showError(u"a"_qs); }, {ToastType::error, 3.0, u"a"_qs}},
    {"ErrorOfItsOwnLength",
     [](ToastManager& it) { it.showError(u"a"_qs, 7.5s); },
     {ToastType::error, 7.5, u"a"_qs}},
    {"ObsidianError",
     [](ToastManager& it) { it.showObsidianError(u"No space"_qs); },
     {ToastType::error, 3.0, u"Can't create a note: No space"_qs}},
    {"ObsidianSuccess",
     [](ToastManager& it) { it.showObsidianSuccess(); },
     {ToastType::success, 2.0, u"Note created successfully!"_qs}},
    {"FolderNotFound",
     [](ToastManager& it) { it.showFolderNotFound(u"/gone"_qs); },
     {ToastType::error, 3.0, u"Can't find the folder: /gone"_qs}},
    {"SettingsRequired",
     [](ToastManager& it) { it.showSettingsRequired(); },
     {ToastType::warning, 2.0, u"Set up this command first in the app settings"_qs}},
};

TEST_P(ToastOperation, MakesItsToast)
{
    FakeScheduler scheduler;
    ToastManager toasts(scheduler);
    const ToastLog log(toasts);
    GetParam().show(toasts);
    EXPECT_THAT(log.shown, ElementsAre(GetParam().toast));
    ASSERT_TRUE(toasts.currentToast());
    EXPECT_EQ(toasts.currentToast()->message, GetParam().toast.message);
    EXPECT_FALSE(toasts.currentToast()->id.isNull());
}

INSTANTIATE_TEST_SUITE_P(Rows, ToastOperation, testing::ValuesIn(operationRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(ToastManagerTest, ShowTakesTheToastAsGiven)
{
    const Toast toast = Toast::make(ToastType::error, u"a"_qs, 0.5s);
    m_toasts.show(toast);
    EXPECT_EQ(m_toasts.currentToast(), toast);
}

TEST_F(ToastManagerTest, ToastComesInAnAnimation)
{
    m_toasts.showSuccess(u"a"_qs);
    EXPECT_THAT(takenChanges(), ElementsAre(SlotChange(Transition::animated, u"a"_qs)));
}

TEST_F(ToastManagerTest, ToastOnShowVanishesAtOnceBeforeTheNextComes)
{
    m_toasts.showSuccess(u"a"_qs);
    takenChanges();
    m_toasts.showError(u"b"_qs);
    EXPECT_THAT(takenChanges(), ElementsAre(SlotChange(Transition::immediate, QString()),
                                            SlotChange(Transition::animated, u"b"_qs)));
}

TEST_F(ToastManagerTest, SameMessageAgainPlaysItsEntryAgain)
{
    m_toasts.showSuccess(u"a"_qs);
    takenChanges();
    m_toasts.showSuccess(u"a"_qs);
    EXPECT_THAT(takenChanges(), ElementsAre(SlotChange(Transition::immediate, QString()),
                                            SlotChange(Transition::animated, u"a"_qs)));
}

TEST_F(ToastManagerTest, ToastStaysForItsDurationAndLeavesInAnAnimation)
{
    m_toasts.showSuccess(u"a"_qs);
    takenChanges();
    m_scheduler.advance(1999ms);
    EXPECT_EQ(now(), u"a"_qs);
    EXPECT_THAT(takenChanges(), IsEmpty());
    m_scheduler.advance(1ms);
    EXPECT_THAT(takenChanges(), ElementsAre(SlotChange(Transition::animated, QString())));
}

TEST_F(ToastManagerTest, FractionsOfASecondCount)
{
    m_toasts.showSuccess(u"a"_qs, 0.25s);
    m_scheduler.advance(249ms);
    EXPECT_EQ(now(), u"a"_qs);
    m_scheduler.advance(1ms);
    EXPECT_EQ(now(), QString());
}

TEST_F(ToastManagerTest, TimeOutOfAReplacedToastDoesNothing)
{
    m_toasts.showSuccess(u"a"_qs);
    m_scheduler.advance(1000ms);
    m_toasts.showSuccess(u"b"_qs);
    takenChanges();
    m_scheduler.advance(1999ms); // past the end of the first
    EXPECT_EQ(now(), u"b"_qs);
    EXPECT_THAT(takenChanges(), IsEmpty());
    m_scheduler.advance(1ms);
    EXPECT_THAT(takenChanges(), ElementsAre(SlotChange(Transition::animated, QString())));
}

TEST_F(ToastManagerTest, ShorterToastDoesNotOutliveItsTimeForALongerOne)
{
    m_toasts.showError(u"long"_qs);
    m_toasts.showSuccess(u"short"_qs);
    m_scheduler.advance(2000ms);
    EXPECT_EQ(now(), QString());
    takenChanges();
    m_scheduler.advance(1000ms);
    EXPECT_THAT(takenChanges(), IsEmpty());
}

TEST_F(ToastManagerTest, DismissLeavesInAnAnimation)
{
    m_toasts.showSuccess(u"a"_qs);
    takenChanges();
    m_toasts.dismiss();
    EXPECT_THAT(takenChanges(), ElementsAre(SlotChange(Transition::animated, QString())));
}

TEST_F(ToastManagerTest, DismissOfAnEmptySlotChangesNothing)
{
    m_toasts.dismiss();
    EXPECT_THAT(takenChanges(), IsEmpty());
    EXPECT_EQ(m_toasts.currentToast(), std::nullopt);
}

TEST_F(ToastManagerTest, OldTimeOutDoesNotTouchTheSameMessageShownAnew)
{
    m_toasts.showSuccess(u"a"_qs);
    const QUuid first = m_toasts.currentToast()->id;
    m_scheduler.advance(500ms);
    m_toasts.dismiss();
    m_toasts.showSuccess(u"a"_qs);
    EXPECT_NE(m_toasts.currentToast()->id, first);
    m_scheduler.advance(1999ms);
    EXPECT_EQ(now(), u"a"_qs);
    m_scheduler.advance(1ms);
    EXPECT_EQ(now(), QString());
}

TEST_F(ToastManagerTest, TimeOutOfADismissedToastDoesNothing)
{
    m_toasts.showSuccess(u"a"_qs);
    m_toasts.dismiss();
    takenChanges();
    m_scheduler.advance(2000ms);
    EXPECT_THAT(takenChanges(), IsEmpty());
}

TEST_F(ToastManagerTest, DurationOfZeroShowsTheToastUntilTheNextPass)
{
    m_toasts.showSuccess(u"a"_qs, 0s);
    EXPECT_EQ(now(), u"a"_qs);
    m_scheduler.advance(0ms);
    EXPECT_EQ(now(), QString());
}

TEST_F(ToastManagerTest, EachToastIsAnnouncedBeforeTheSlotChanges)
{
    m_toasts.showSuccess(u"a"_qs);
    QString before = u"not announced"_qs;
    QObject::connect(&m_toasts, &ToastManager::shown, &m_toasts, [&] { before = now(); });
    m_toasts.showSuccess(u"b"_qs);
    EXPECT_EQ(before, u"a"_qs);
    EXPECT_EQ(m_log.shown.size(), 2U);
}

TEST(ToastManagerEnd, TimeOutBehindItTouchesNothing)
{
    FakeScheduler scheduler;
    {
        ToastManager toasts(scheduler);
        toasts.showSuccess(u"a"_qs);
    }
    ASSERT_EQ(scheduler.pendingCount(), 1U);
    scheduler.advance(2000ms);
    EXPECT_EQ(scheduler.pendingCount(), 0U);
}

} // namespace

} // namespace jotwell
