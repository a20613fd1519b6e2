#include "Platform/linux/PortalLoginItem.h"

#include "Fakes/FailingFileCalls.h"
#include "Platform/linux/FakeBackgroundPortal.h"
#include "Services/LogCapture.h"
#include "Services/ScratchFolder.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTest>

#include <gtest/gtest.h>

#include <cerrno>
#include <memory>

namespace jotwell {

namespace {

using Kind = FakeBackgroundPortal::Kind;
using Status = LoginItem::Status;

// What lies between an answer and what is made of it.
constexpr int ofTheBus = 50;

class PortalLoginItemTest : public testing::Test {
protected:
    void makePortal(Kind kind = Kind::listening)
    {
        m_portal = std::make_unique<FakeBackgroundPortal>(kind);
    }

    /// Asks for it, and lets the portal answer.
    void settle(bool wish, uint response, bool autostart)
    {
        EXPECT_EQ(wish ? m_item.registerItem() : m_item.unregisterItem(), std::nullopt);
        ASSERT_TRUE(m_portal->waitForQuestions(m_portal->questions().size() + 1));
        QTest::qWait(ofTheBus);
        m_portal->respond(m_portal->questions().size() - 1, response, autostart);
        QTest::qWait(ofTheBus);
    }

    [[nodiscard]] bool becomes(Status status) const
    {
        return QTest::qWaitFor([&] { return m_item.status() == status; }, 3000);
    }

    ScratchFolder m_folder;
    FailingFileCalls m_calls;
    LogCapture m_log;
    std::unique_ptr<FakeBackgroundPortal> m_portal;
    const QString m_file = m_folder.pathOf(QStringLiteral("com.jotwell/LoginItem"));
    PortalLoginItem m_item{m_file, m_calls};
};

TEST_F(PortalLoginItemTest, AsksForTheStartOfTheProgramAtLogin)
{
    makePortal();
    EXPECT_EQ(m_item.status(), Status::notRegistered);
    EXPECT_EQ(m_item.registerItem(), std::nullopt);
    EXPECT_EQ(m_item.status(), Status::requiresApproval);
    ASSERT_TRUE(m_portal->waitForQuestions(1));
    const auto& [window, options, request] = m_portal->questions().first();
    EXPECT_EQ(window, QString());
    EXPECT_EQ(options[QStringLiteral("autostart")], QVariant(true));
    EXPECT_EQ(options[QStringLiteral("dbus-activatable")], QVariant(false));
    EXPECT_EQ(options[QStringLiteral("commandline")].toStringList(),
              QStringList(QStringLiteral("jotwell")));
    EXPECT_FALSE(options[QStringLiteral("reason")].toString().isEmpty());
    QTest::qWait(ofTheBus);
    EXPECT_EQ(m_item.status(), Status::requiresApproval) << "no answer yet";
}

TEST_F(PortalLoginItemTest, GrantIsKeptForTheNextStart)
{
    makePortal();
    settle(true, 0, true);
    EXPECT_EQ(m_item.status(), Status::enabled);
    EXPECT_EQ(PortalLoginItem(m_file, m_calls).status(), Status::enabled);
    EXPECT_FALSE(QFile::permissions(m_file) & (QFile::ReadGroup | QFile::ReadOther));
    EXPECT_EQ(m_log.errors(), QStringList());

    settle(false, 0, false);
    EXPECT_EQ(m_portal->questions().last().options[QStringLiteral("autostart")], QVariant(false));
    EXPECT_EQ(m_item.status(), Status::notRegistered);
    EXPECT_EQ(PortalLoginItem(m_file, m_calls).status(), Status::notRegistered);
}

TEST_F(PortalLoginItemTest, RefusalLeavesItUnregistered)
{
    makePortal();
    for (const uint response : {1U, 2U}) {
        settle(true, response, false);
        EXPECT_EQ(m_item.status(), Status::notRegistered);
    }
    settle(true, 0, false); // granted, but for something else
    EXPECT_EQ(m_item.status(), Status::notRegistered);
}

TEST_F(PortalLoginItemTest, RefusedUnregistrationLeavesItRegistered)
{
    makePortal();
    settle(true, 0, true);
    EXPECT_EQ(m_item.unregisterItem(), std::nullopt);
    EXPECT_EQ(m_item.status(), Status::notRegistered) << "as it is wished, for the time being";
    ASSERT_TRUE(m_portal->waitForQuestions(2));
    m_portal->respond(1, 2, true);
    EXPECT_TRUE(becomes(Status::enabled));
}

TEST_F(PortalLoginItemTest, AnswerAheadOfTheCallsOwnIsHeard)
{
    makePortal(Kind::hasty);
    EXPECT_EQ(m_item.registerItem(), std::nullopt);
    EXPECT_TRUE(becomes(Status::enabled));
}

TEST_F(PortalLoginItemTest, RequestIsFoundWhateverItsName)
{
    makePortal(Kind::naming);
    settle(true, 0, true);
    EXPECT_EQ(m_item.status(), Status::enabled);
}

TEST_F(PortalLoginItemTest, PortalThatRefusesTheCallIsLogged)
{
    makePortal(Kind::refusing);
    EXPECT_EQ(m_item.registerItem(), std::nullopt);
    EXPECT_TRUE(becomes(Status::notRegistered));
    EXPECT_EQ(m_log.errors(),
              QStringList(QStringLiteral("The start at login stays as it was: no")));
}

TEST_F(PortalLoginItemTest, MissingPortalIsLogged)
{
    EXPECT_EQ(m_item.registerItem(), std::nullopt);
    EXPECT_TRUE(becomes(Status::notRegistered));
    EXPECT_EQ(m_log.errors().size(), 1);
}

TEST_F(PortalLoginItemTest, SilentPortalHoldsNobodyUp)
{
    makePortal(Kind::silent);
    QElapsedTimer time;
    time.start();
    EXPECT_EQ(m_item.registerItem(), std::nullopt);
    EXPECT_LT(time.elapsed(), 1000);
    EXPECT_EQ(m_item.status(), Status::requiresApproval);
    ASSERT_TRUE(m_portal->waitForQuestions(1));
    m_portal.reset();
    EXPECT_TRUE(becomes(Status::notRegistered)) << "it has gone";
}

TEST_F(PortalLoginItemTest, PortalThatGoesWithoutAnAnswerIsNotWaitedFor)
{
    makePortal();
    EXPECT_EQ(m_item.registerItem(), std::nullopt);
    ASSERT_TRUE(m_portal->waitForQuestions(1));
    QTest::qWait(ofTheBus);
    EXPECT_EQ(m_item.status(), Status::requiresApproval);
    m_portal.reset();
    EXPECT_TRUE(becomes(Status::notRegistered));
    EXPECT_EQ(m_log.errors().size(), 1);
}

TEST_F(PortalLoginItemTest, LastOfTwoWishesCounts)
{
    makePortal();
    EXPECT_EQ(m_item.registerItem(), std::nullopt);
    EXPECT_EQ(m_item.unregisterItem(), std::nullopt);
    ASSERT_TRUE(m_portal->waitForQuestions(2));
    EXPECT_NE(m_portal->questions()[0].request, m_portal->questions()[1].request);
    m_portal->respond(0, 0, true);
    QTest::qWait(ofTheBus);
    EXPECT_EQ(m_item.status(), Status::notRegistered);
    m_portal->respond(1, 0, false);
    QTest::qWait(ofTheBus);
    EXPECT_EQ(m_item.status(), Status::notRegistered);
}

TEST_F(PortalLoginItemTest, AnswerThatCannotBeKeptIsLogged)
{
    makePortal();
    m_calls.failAt(0, ENOSPC);
    settle(true, 0, true);
    EXPECT_EQ(m_item.status(), Status::notRegistered);
    EXPECT_EQ(m_log.errors(), QStringList(m_file + QStringLiteral(": No space left on device")));
}

} // namespace

} // namespace jotwell
