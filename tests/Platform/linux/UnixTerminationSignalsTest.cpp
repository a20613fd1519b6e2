#include "Platform/linux/UnixTerminationSignals.h"

#include "Platform/linux/ChildRoles.h"

#include <QProcess>
#include <QTest>

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

using namespace jotwell;

namespace {

class UnixTerminationSignalsOf : public testing::TestWithParam<int> {};

// From outside: ThreadSanitizer keeps back what a thread sends to itself.
void askToEnd(const QString& signalName)
{
    const QString self = QString::number(QCoreApplication::applicationPid());
    EXPECT_EQ(QProcess::execute(QStringLiteral("/bin/sh"),
                                {QStringLiteral("-c"), QStringLiteral("kill -s \"$0\" \"$1\""),
                                 signalName, self}),
              0);
}

} // namespace

TEST_P(UnixTerminationSignalsOf, EndTheProgramOnItsOwnRoad)
{
    const auto child = startChild(ChildRole::awaitSignal);
    ASSERT_TRUE(QTest::qWaitFor([&] { return child->canReadLine(); }, 20000));
    ::kill(static_cast<pid_t>(child->processId()), GetParam());
    ASSERT_TRUE(child->waitForFinished(20000));
    EXPECT_EQ(child->exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(child->exitCode(), endedByRequest);
}

INSTANTIATE_TEST_SUITE_P(Signals, UnixTerminationSignalsOf,
                         testing::Values(SIGTERM, SIGINT, SIGHUP));

TEST(UnixTerminationSignals, CallsOnALaterTurnOnceForEachRequest)
{
    UnixTerminationSignals terminationSignals;
    int requests = 0;
    terminationSignals.listen([&requests] { ++requests; });
    askToEnd(QStringLiteral("TERM"));
    askToEnd(QStringLiteral("INT"));
    EXPECT_EQ(requests, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return requests == 2; }));
}

TEST(UnixTerminationSignals, LeavesAnIgnoredSignalIgnored)
{
    struct sigaction ignore = {};
    struct sigaction before = {};
    ignore.sa_handler = SIG_IGN;
    sigaction(SIGHUP, &ignore, &before);
    int requests = 0;
    {
        UnixTerminationSignals terminationSignals;
        terminationSignals.listen([&requests] { ++requests; });
        askToEnd(QStringLiteral("HUP"));
        askToEnd(QStringLiteral("TERM"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return requests > 0; }));
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(requests, 1);
    struct sigaction after = {};
    sigaction(SIGHUP, &before, &after);
    EXPECT_EQ(after.sa_handler, SIG_IGN);
}

TEST(UnixTerminationSignals, GivesTheSignalsBackWhenItGoes)
{
    {
        UnixTerminationSignals terminationSignals;
        terminationSignals.listen([] {});
    }
    struct sigaction action = {};
    sigaction(SIGTERM, nullptr, &action);
    EXPECT_EQ(action.sa_handler, SIG_DFL);
}

TEST(UnixTerminationSignals, OutputThatNobodyReadsIsNoReasonToEnd)
{
    UnixTerminationSignals terminationSignals;
    terminationSignals.listen([] {});
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe2(pipe.data(), O_CLOEXEC), 0);
    ::close(pipe[0]);
    EXPECT_EQ(::write(pipe[1], "x", 1), -1);
    EXPECT_EQ(errno, EPIPE);
    ::close(pipe[1]);
    struct sigaction action = {};
    sigaction(SIGPIPE, nullptr, &action);
    EXPECT_NE(action.sa_handler, SIG_IGN) << "a child would ignore it too";
}
