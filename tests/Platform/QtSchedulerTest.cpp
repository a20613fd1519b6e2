#include "Platform/qt/QtScheduler.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <gtest/gtest.h>

#include <memory>

namespace jotwell {

namespace {

using namespace std::chrono_literals;

template <typename Condition>
bool eventually(Condition condition)
{
    const QDeadlineTimer deadline(5s);
    while (!condition() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 50);
    return condition();
}

TEST(QtScheduler, NeverRunsWithinTheCall)
{
    QObject context;
    bool ran = false;
    QtScheduler().after(0ms, &context, [&] { ran = true; });
    EXPECT_FALSE(ran);
    EXPECT_TRUE(eventually([&] { return ran; }));
}

TEST(QtScheduler, KeepsTheOrderOfTimes)
{
    QObject context;
    QString order;
    QtScheduler scheduler;
    scheduler.after(60ms, &context, [&] { order += u'b'; });
    scheduler.after(20ms, &context, [&] { order += u'a'; });
    scheduler.after(-5ms, &context, [&] { order += u'0'; });
    EXPECT_TRUE(eventually([&] { return order.size() == 3; }));
    EXPECT_EQ(order, QStringLiteral("0ab"));
}

TEST(QtScheduler, DropsWorkWhoseContextHasGone)
{
    QtScheduler scheduler;
    QObject kept;
    bool ran = false;
    bool later = false;
    auto context = std::make_unique<QObject>();
    scheduler.after(1ms, context.get(), [&] { ran = true; });
    context.reset();
    scheduler.after(30ms, &kept, [&] { later = true; });
    EXPECT_TRUE(eventually([&] { return later; }));
    EXPECT_FALSE(ran);
}

} // namespace

} // namespace jotwell
