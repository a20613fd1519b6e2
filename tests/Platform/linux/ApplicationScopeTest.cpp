#include "Platform/linux/ApplicationScope.h"

#include "Platform/linux/FakeServiceManager.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusReply>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

using namespace jotwell;

namespace {

using namespace std::chrono_literals;

constexpr int longEnoughForTheBus = 100;

class ApplicationScopeTest : public testing::Test {
protected:
    ApplicationScopeTest() { writeUnits("app.slice/dbus.service"); }

    void writeUnits(const QByteArray& unit)
    {
        QFile units(file());
        ASSERT_TRUE(units.open(QIODevice::WriteOnly));
        units.write("0::/user.slice/user-1000.slice/user@1000.service/" + unit + "\n");
    }

    [[nodiscard]] QString file() const { return m_folder.filePath(QStringLiteral("cgroup")); }

    void enter()
    {
        scope.enter([this] { ++entered; });
    }

    [[nodiscard]] bool entersSoon() const
    {
        return QTest::qWaitFor([this] { return entered > 0; }, 3000);
    }

    /// How many kinds of messages the bus brings to the process unasked.
    [[nodiscard]] static uint matchRules()
    {
        auto call = QDBusMessage::createMethodCall(
            u"org.freedesktop.DBus"_qs, u"/org/freedesktop/DBus"_qs,
            u"org.freedesktop.DBus.Debug.Stats"_qs, u"GetConnectionStats"_qs);
        call.setArguments({QDBusConnection::sessionBus().baseService()});
        const QDBusReply<QVariantMap> reply = QDBusConnection::sessionBus().call(call);
        EXPECT_TRUE(reply.isValid()) << reply.error().message().toStdString();
        return reply.value().value(u"MatchRules"_qs).toUInt();
    }

    QTemporaryDir m_folder;
    const QString unit =
        QStringLiteral("app-com.jotwell.Jotwell-%1.scope").arg(QCoreApplication::applicationPid());
    ApplicationScope scope{QDBusConnection::sessionBus(), {file(), 1h}};
    int entered = 0;
};

} // namespace

TEST_F(ApplicationScopeTest, AsksForAUnitOfTheProgramsNameAroundThisProcess)
{
    FakeServiceManager manager(FakeServiceManager::Answer::taken);
    enter();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !manager.calls.isEmpty(); }, 3000));
    const QDBusMessage call = manager.calls[0];
    EXPECT_EQ(call.member(), u"StartTransientUnit"_qs);
    EXPECT_EQ(call.signature(), u"ssa(sv)a(sa(sv))"_qs);
    EXPECT_EQ(call.arguments()[0], unit);
    const auto properties = qdbus_cast<QList<UnitProperty>>(call.arguments()[2]);
    ASSERT_EQ(properties.size(), 4);
    EXPECT_EQ(properties[2].name, u"CollectMode"_qs);
    EXPECT_EQ(properties[2].value.variant(), u"inactive-or-failed"_qs);
    EXPECT_EQ(properties[3].name, u"PIDs"_qs);
    EXPECT_EQ(qdbus_cast<QList<uint>>(properties[3].value.variant()),
              QList{static_cast<uint>(QCoreApplication::applicationPid())});
}

TEST_F(ApplicationScopeTest, GoesOnWhenTheProcessHasBeenMovedAndNotBefore)
{
    FakeServiceManager manager(FakeServiceManager::Answer::taken);
    enter();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !manager.calls.isEmpty(); }, 3000));
    manager.finish(u"another.scope"_qs);
    QTest::qWait(longEnoughForTheBus);
    EXPECT_EQ(entered, 0);
    manager.finish(unit);
    EXPECT_TRUE(entersSoon());
    manager.finish(unit);
    QTest::qWait(longEnoughForTheBus);
    EXPECT_EQ(entered, 1);
}

// A manager that may not move the process takes the job all the same.
TEST_F(ApplicationScopeTest, FailedJobIsNotWaitedOut)
{
    FakeServiceManager manager(FakeServiceManager::Answer::taken);
    enter();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !manager.calls.isEmpty(); }, 3000));
    manager.finish(unit, u"failed"_qs);
    EXPECT_TRUE(entersSoon());
}

TEST_F(ApplicationScopeTest, IsNotWokenByTheJobsOfOthersAfterwards)
{
    FakeServiceManager manager(FakeServiceManager::Answer::taken);
    const uint before = matchRules();
    enter();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !manager.calls.isEmpty(); }, 3000));
    EXPECT_GT(matchRules(), before);
    manager.finish(unit);
    EXPECT_TRUE(entersSoon());
    EXPECT_EQ(matchRules(), before);
}

TEST_F(ApplicationScopeTest, RefusalIsNotWaitedOut)
{
    FakeServiceManager manager(FakeServiceManager::Answer::refused);
    enter();
    EXPECT_TRUE(entersSoon());
    EXPECT_EQ(manager.calls.size(), 1);
}

TEST_F(ApplicationScopeTest, SilenceIsNotWaitedForLongerThanPatienceLasts)
{
    const FakeServiceManager manager(FakeServiceManager::Answer::none);
    ApplicationScope impatient(QDBusConnection::sessionBus(), {file(), 1ms});
    impatient.enter([this] { ++entered; });
    EXPECT_EQ(entered, 0);
    EXPECT_TRUE(entersSoon());
}

TEST_F(ApplicationScopeTest, AskedAnewItOnlyCallsTheLaterOne)
{
    FakeServiceManager manager(FakeServiceManager::Answer::taken);
    scope.enter([] { ADD_FAILURE() << "the earlier one"; });
    enter();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !manager.calls.isEmpty(); }, 3000));
    QTest::qWait(longEnoughForTheBus);
    EXPECT_EQ(manager.calls.size(), 1);
    EXPECT_EQ(entered, 0);
    manager.finish(unit);
    EXPECT_TRUE(entersSoon());
}

TEST_F(ApplicationScopeTest, WithoutAManagerItGoesOn)
{
    enter();
    EXPECT_TRUE(entersSoon());
}

TEST_F(ApplicationScopeTest, ProcessThatHasTheNameKeepsItsUnit)
{
    const FakeServiceManager manager(FakeServiceManager::Answer::taken);
    for (const auto* named :
         {"app-com.jotwell.Jotwell@autostart.service", "app-com.jotwell.Jotwell-autostart.service",
          "app-com.jotwell.Jotwell@0f1e2d.service", "app-com.jotwell.Jotwell-98.scope",
          "app-com.jotwell.Jotwell.service", "app-gnome-com.jotwell.Jotwell-123.scope"}) {
        writeUnits(QByteArray("app.slice/") + named);
        entered = 0;
        enter();
        EXPECT_EQ(entered, 1) << named;
    }
    QTest::qWait(longEnoughForTheBus);
    EXPECT_TRUE(manager.calls.isEmpty());
}

TEST_F(ApplicationScopeTest, NameThatIsOnlyPartOfTheUnitsIsNotTheProgramsOwn)
{
    const FakeServiceManager manager(FakeServiceManager::Answer::refused);
    qsizetype asked = 0;
    for (const auto* named : {"app-com.jotwell.JotwellBeta-1.scope", "com.jotwell.Jotwell.service",
                              "app-com.jotwell.Jotwell.slice/terminal.scope",
                              "app-org.example.com.jotwell.Jotwell-1.scope"}) {
        writeUnits(QByteArray("app.slice/") + named);
        entered = 0;
        enter();
        EXPECT_TRUE(entersSoon());
        EXPECT_EQ(manager.calls.size(), ++asked) << named;
    }
}

TEST_F(ApplicationScopeTest, ProcessOutsideOfUnitsIsLeftAlone)
{
    const FakeServiceManager manager(FakeServiceManager::Answer::taken);
    QFile::remove(file());
    enter();
    EXPECT_EQ(entered, 1);
    EXPECT_TRUE(manager.calls.isEmpty());
}
