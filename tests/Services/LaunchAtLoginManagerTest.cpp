#include "Services/LaunchAtLoginManager.h"

#include "Fakes/FakeDefaultsStore.h"
#include "Fakes/FakeLoginItem.h"
#include "Fakes/FakeScheduler.h"
#include "Services/LogCapture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace jotwell {

namespace {

using namespace std::chrono_literals;
using Status = LoginItem::Status;
using testing::ElementsAre;
using testing::IsEmpty;

class LaunchAtLoginManagerTest : public testing::Test {
protected:
    LaunchAtLoginManagerTest() { make(Status::notRegistered); }

    void make(Status status)
    {
        m_item.state = status;
        m_manager = std::make_unique<LaunchAtLoginManager>(m_item, m_defaults, m_scheduler);
        m_changes.clear();
        QObject::connect(m_manager.get(), &LaunchAtLoginManager::isEnabledChanged, m_manager.get(),
                         [this] { m_changes.push_back(m_manager->isEnabled()); });
    }

    /// The setting, if it is stored as a truth value.
    [[nodiscard]] std::optional<bool> recorded() const
    {
        const QString key = u"LaunchAtLogin"_qs;
        if (m_defaults.storedType(key) != DefaultsStore::ValueType::boolean)
            return std::nullopt;
        return m_defaults.boolean(key);
    }

    LogCapture m_log;
    FakeDefaultsStore m_defaults;
    FakeScheduler m_scheduler;
    FakeLoginItem m_item;
    std::unique_ptr<LaunchAtLoginManager> m_manager;
    std::vector<bool> m_changes;
};

struct StatusRow {
    const char* name;
    Status status;
    bool isOn;
};

class LaunchAtLoginStatus : public LaunchAtLoginManagerTest,
                            public testing::WithParamInterface<StatusRow> {};

const StatusRow statusRows[] = {
    {"NotRegistered", Status::notRegistered, false},
    {"Enabled", Status::enabled, true},
    {"RequiresApproval", Status::requiresApproval, false},
    {"NotFound", Status::notFound, false},
};

TEST_P(LaunchAtLoginStatus, IsReadInTheConstructor)
{
    make(GetParam().status);
    EXPECT_EQ(m_manager->isEnabled(), GetParam().isOn);
    EXPECT_EQ(m_item.calls, 0);
    EXPECT_EQ(m_defaults.keys(), QStringList());
    EXPECT_EQ(m_scheduler.pendingCount(), 0U);
}

TEST_P(LaunchAtLoginStatus, ReplacesWhatTheSwitchShows)
{
    for (const Status before : {Status::notRegistered, Status::enabled}) {
        make(before);
        m_item.state = GetParam().status;
        m_manager->syncWithSystemSettings();
        EXPECT_EQ(m_manager->isEnabled(), GetParam().isOn);
    }
    EXPECT_EQ(m_item.calls, 0) << "what the desktop says is no wish to it";
    EXPECT_EQ(m_defaults.keys(), QStringList());
    EXPECT_EQ(m_scheduler.pendingCount(), 0U);
}

INSTANTIATE_TEST_SUITE_P(Rows, LaunchAtLoginStatus, testing::ValuesIn(statusRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(LaunchAtLoginManagerTest, NumbersOfTheStatusesAreFixed)
{
    EXPECT_EQ(int(Status::notRegistered), 0);
    EXPECT_EQ(int(Status::enabled), 1);
    EXPECT_EQ(int(Status::requiresApproval), 2);
    EXPECT_EQ(int(Status::notFound), 3);
}

TEST_F(LaunchAtLoginManagerTest, SwitchIsReachedByItsName)
{
    EXPECT_TRUE(m_manager->setProperty("isEnabled", true));
    EXPECT_EQ(m_manager->property("isEnabled"), QVariant(true));
    EXPECT_EQ(m_item.state, Status::enabled);
}

TEST_F(LaunchAtLoginManagerTest, SettingTheValueItHasDoesNothing)
{
    for (const Status status : {Status::notRegistered, Status::enabled}) {
        make(status);
        m_manager->setIsEnabled(status == Status::enabled);
        EXPECT_EQ(m_item.calls, 0);
        EXPECT_THAT(m_changes, IsEmpty());
        EXPECT_EQ(m_defaults.keys(), QStringList());
        EXPECT_EQ(m_scheduler.pendingCount(), 0U);
    }
}

TEST_F(LaunchAtLoginManagerTest, SettingTheValueItHasIsNoWishEvenIfTheDesktopDiffers)
{
    m_item.state = Status::enabled;
    m_manager->setIsEnabled(false);
    EXPECT_EQ(m_item.calls, 0);
    EXPECT_EQ(m_item.state, Status::enabled);
}

TEST_F(LaunchAtLoginManagerTest, OnRegistersAndIsRecorded)
{
    m_manager->setIsEnabled(true);
    EXPECT_EQ(m_item.state, Status::enabled);
    EXPECT_EQ(m_item.calls, 1);
    EXPECT_EQ(recorded(), true);
    EXPECT_EQ(m_defaults.keys(), QStringList(u"LaunchAtLogin"_qs));
    EXPECT_THAT(m_changes, ElementsAre(true));
    m_scheduler.advance(1s);
    EXPECT_THAT(m_changes, ElementsAre(true));
    EXPECT_EQ(m_item.calls, 1);
    EXPECT_EQ(m_log.prints(), QStringList());
}

TEST_F(LaunchAtLoginManagerTest, OffUnregistersAndIsRecorded)
{
    make(Status::enabled);
    m_manager->setIsEnabled(false);
    EXPECT_EQ(m_item.state, Status::notRegistered);
    EXPECT_EQ(m_item.calls, 1);
    EXPECT_EQ(recorded(), false);
    m_scheduler.advance(1s);
    EXPECT_THAT(m_changes, ElementsAre(false));
    EXPECT_EQ(m_item.calls, 1);
}

TEST_F(LaunchAtLoginManagerTest, WishThatTheDesktopHasAlreadyStoresNothing)
{
    m_item.state = Status::enabled;
    m_manager->setIsEnabled(true);
    EXPECT_TRUE(m_manager->isEnabled());
    EXPECT_EQ(m_item.calls, 0);
    EXPECT_EQ(m_defaults.keys(), QStringList());
    EXPECT_EQ(m_scheduler.pendingCount(), 0U);
}

TEST_F(LaunchAtLoginManagerTest, OffStoresNothingWhereTheStatusIsNotOne)
{
    for (const Status status :
         {Status::notRegistered, Status::requiresApproval, Status::notFound}) {
        make(Status::enabled);
        m_item.state = status;
        m_manager->setIsEnabled(false);
        EXPECT_EQ(m_item.calls, 0);
        EXPECT_EQ(m_item.state, status);
        EXPECT_EQ(m_defaults.keys(), QStringList());
    }
}

TEST_F(LaunchAtLoginManagerTest, OnRegistersAnewWhileAnApprovalIsWaitedFor)
{
    make(Status::requiresApproval);
    m_manager->setIsEnabled(true);
    EXPECT_EQ(m_item.calls, 1);
    EXPECT_EQ(m_item.state, Status::enabled);
}

TEST_F(LaunchAtLoginManagerTest, RegistrationThatNeedsApprovalTurnsOffAfterHalfASecond)
{
    m_item.afterRegistration = Status::requiresApproval;
    m_manager->setIsEnabled(true);
    m_scheduler.advance(499ms);
    EXPECT_TRUE(m_manager->isEnabled());
    m_scheduler.advance(1ms);
    EXPECT_FALSE(m_manager->isEnabled());
    EXPECT_EQ(recorded(), true);
    EXPECT_THAT(m_changes, ElementsAre(true, false));
    EXPECT_EQ(m_item.calls, 1) << "the fall back isn't a wish";
    EXPECT_EQ(m_scheduler.pendingCount(), 0U);
}

TEST_F(LaunchAtLoginManagerTest, FailedRegistrationTurnsTheSwitchBack)
{
    m_defaults.setBoolean(u"LaunchAtLogin"_qs, true);
    m_item.failure = u"No space left"_qs;
    m_manager->setIsEnabled(true);
    EXPECT_TRUE(m_manager->isEnabled()) << "not within the write";
    m_scheduler.advance(0ms);
    EXPECT_FALSE(m_manager->isEnabled());
    EXPECT_THAT(m_changes, ElementsAre(true, false));
    EXPECT_EQ(recorded(), true) << "left as it was";
    EXPECT_EQ(m_log.prints(), QStringList(u"Failed to update launch at login: No space left"_qs));
    EXPECT_EQ(m_item.calls, 1);
    EXPECT_EQ(m_scheduler.pendingCount(), 0U);
}

TEST_F(LaunchAtLoginManagerTest, FailedRegistrationRecordsNothing)
{
    m_item.failure = u"No space left"_qs;
    m_manager->setIsEnabled(true);
    m_scheduler.advance(1s);
    EXPECT_EQ(m_defaults.keys(), QStringList());
}

TEST_F(LaunchAtLoginManagerTest, FailedUnregistrationTurnsTheSwitchBackOn)
{
    make(Status::enabled);
    m_item.failure = u"Read-only file system"_qs;
    m_manager->setIsEnabled(false);
    m_scheduler.advance(0ms);
    EXPECT_TRUE(m_manager->isEnabled());
    EXPECT_EQ(m_item.calls, 1) << "the undo finds the status at 1 and stops";
    EXPECT_EQ(m_defaults.keys(), QStringList());
    EXPECT_EQ(m_log.prints(),
              QStringList(u"Failed to update launch at login: Read-only file system"_qs));
    EXPECT_EQ(m_scheduler.pendingCount(), 0U);
}

TEST_F(LaunchAtLoginManagerTest, WishFromAListenerComesAfterTheOneItHeardOf)
{
    QObject::connect(m_manager.get(), &LaunchAtLoginManager::isEnabledChanged, m_manager.get(),
                     [this] { m_manager->setIsEnabled(false); });
    m_manager->setIsEnabled(true);
    EXPECT_EQ(m_item.state, Status::notRegistered);
    EXPECT_FALSE(m_manager->isEnabled());
    EXPECT_EQ(recorded(), false);
}

TEST_F(LaunchAtLoginManagerTest, CheckOrUndoBehindItsEndTouchesNothing)
{
    m_manager->setIsEnabled(true);
    m_item.failure = u"gone"_qs;
    m_manager->setIsEnabled(false);
    ASSERT_EQ(m_scheduler.pendingCount(), 2U);
    m_manager.reset();
    const int calls = m_item.calls;
    m_scheduler.advance(1s);
    EXPECT_EQ(m_scheduler.pendingCount(), 0U);
    EXPECT_EQ(m_item.calls, calls);
}

} // namespace

} // namespace jotwell
