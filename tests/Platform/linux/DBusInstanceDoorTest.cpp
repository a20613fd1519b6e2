#include "Platform/linux/DBusInstanceDoor.h"

#include "Platform/linux/ChildRoles.h"

#include <QDBusMessage>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

using namespace jotwell;

namespace {

using Claim = InstanceDoor::Claim;

// Lets events run meanwhile: a child may be calling us.
int exitStatus(QProcess& child)
{
    EXPECT_TRUE(QTest::qWaitFor([&] { return child.state() == QProcess::NotRunning; }, 20000));
    return child.exitCode();
}

void waitForLine(QProcess& child)
{
    EXPECT_TRUE(QTest::qWaitFor([&] { return child.canReadLine(); }, 20000));
}

struct Visitor {
    int activations = 0;
    QStringList actions;

    void answerAt(InstanceDoor& door)
    {
        door.answer([this] { ++activations; },
                    [this](const QString& name) { actions.append(name); });
    }
};

} // namespace

TEST(DBusInstanceDoor, FirstStartOwnsTheDoorAndTheSecondIsDelivered)
{
    DBusInstanceDoor door;
    ASSERT_EQ(door.claim(), Claim::owner);
    Visitor visitor;
    visitor.answerAt(door);
    const auto second = startChild(ChildRole::start);
    EXPECT_EQ(exitStatus(*second), wasDelivered);
    EXPECT_EQ(visitor.activations, 1);
}

TEST(DBusInstanceDoor, CallDuringOurStartWaitsForTheAnswer)
{
    DBusInstanceDoor door;
    ASSERT_EQ(door.claim(), Claim::owner);
    const auto second = startChild(ChildRole::start);
    ASSERT_TRUE(second->waitForStarted());
    QTest::qSleep(200);
    Visitor visitor;
    visitor.answerAt(door);
    EXPECT_EQ(exitStatus(*second), wasDelivered);
    EXPECT_EQ(visitor.activations, 1);
}

TEST(DBusInstanceDoor, TakesTheActivationTokenOver)
{
    DBusInstanceDoor door;
    ASSERT_EQ(door.claim(), Claim::owner);
    Visitor visitor;
    visitor.answerAt(door);
    const auto second = startChild(
        ChildRole::start, {{QStringLiteral("XDG_ACTIVATION_TOKEN"), QStringLiteral("token-1")}});
    exitStatus(*second);
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "token-1");
    qunsetenv("XDG_ACTIVATION_TOKEN");
}

TEST(DBusInstanceDoor, ForgetsATokenThatNothingCameOf)
{
    DBusInstanceDoor door;
    ASSERT_EQ(door.claim(), Claim::owner);
    Visitor visitor;
    visitor.answerAt(door);
    const auto second = startChild(ChildRole::start);
    qputenv("XDG_ACTIVATION_TOKEN", "token-0");
    exitStatus(*second);
    EXPECT_EQ(visitor.activations, 1);
    EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
}

TEST(DBusInstanceDoor, PerformsActionsByTheirName)
{
    DBusInstanceDoor door;
    ASSERT_EQ(door.claim(), Claim::owner);
    Visitor visitor;
    visitor.answerAt(door);
    auto call = QDBusMessage::createMethodCall(
        QStringLiteral("com.jotwell.Jotwell"), QStringLiteral("/com/jotwell/Jotwell"),
        QStringLiteral("org.freedesktop.Application"), QStringLiteral("ActivateAction"));
    call.setArguments({QStringLiteral("quit"), QVariantList(), QVariantMap()});
    ASSERT_TRUE(QDBusConnection::sessionBus().send(call));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !visitor.actions.isEmpty(); }));
    EXPECT_EQ(visitor.actions, QStringList(QStringLiteral("quit")));
    EXPECT_EQ(visitor.activations, 0);
}

TEST(DBusInstanceDoor, DoorIsFreeAgainWhenItsOwnerHasGone)
{
    const auto first = startChild(ChildRole::hangAtDoor);
    waitForLine(*first);
    first->kill();
    ASSERT_TRUE(first->waitForFinished());
    DBusInstanceDoor door;
    EXPECT_EQ(door.claim(), Claim::owner);
}

TEST(DBusInstanceDoor, OwnerThatHangsDoesNotMakeTheSecondHang)
{
    const auto first = startChild(ChildRole::hangAtDoor);
    waitForLine(*first);
    QElapsedTimer time;
    time.start();
    const auto second = startChild(ChildRole::start);
    EXPECT_EQ(exitStatus(*second), wasDelivered);
    EXPECT_LT(time.elapsed(), 10000);
    EXPECT_TRUE(second->readAllStandardError().contains("doesn't answer"));
    first->kill();
    first->waitForFinished();
}

TEST(DBusInstanceDoor, WithoutABusALockFileKeepsTheSecondAway)
{
    const QTemporaryDir runtime;
    const auto start = [&](ChildRole role) {
        return startChild(role, {{QStringLiteral("DBUS_SESSION_BUS_ADDRESS"),
                                  QStringLiteral("unix:path=/nonexistent")},
                                 {QStringLiteral("XDG_RUNTIME_DIR"), runtime.path()}});
    };
    const auto first = start(ChildRole::hangAtDoor);
    waitForLine(*first);
    const auto second = start(ChildRole::start);
    EXPECT_EQ(exitStatus(*second), wasDelivered);
    EXPECT_TRUE(second->readAllStandardError().contains("already running"));

    first->kill();
    ASSERT_TRUE(first->waitForFinished());
    const auto third = start(ChildRole::start);
    EXPECT_EQ(exitStatus(*third), becameOwner);
}
