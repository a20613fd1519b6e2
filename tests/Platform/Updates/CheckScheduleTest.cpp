#include "Platform/qt/Updates/CheckSchedule.h"

#include "Fakes/FakeClock.h"
#include "Fakes/FakeDefaultsStore.h"
#include "Fakes/FakeScheduler.h"
#include "QtPrinters.h"

#include <gtest/gtest.h>

#include <memory>

namespace jotwell {

namespace {

using namespace std::chrono_literals;

class CheckScheduleTest : public testing::Test {
protected:
    std::unique_ptr<CheckSchedule> newRun()
    {
        auto schedule = std::make_unique<CheckSchedule>(m_clock, m_scheduler, m_defaults);
        schedule->start([this, it = schedule.get()] {
            ++m_checks;
            it->noteCheck();
        });
        return schedule;
    }

    void pass(std::chrono::minutes time)
    {
        for (; time > 0min; time -= 1min) {
            m_clock.advance(1min);
            m_scheduler.advance(1min);
        }
    }

    const QString m_key = u"LastUpdateCheck"_qs;
    FakeClock m_clock;
    FakeScheduler m_scheduler;
    FakeDefaultsStore m_defaults;
    int m_checks = 0;
};

TEST_F(CheckScheduleTest, FirstCheckComesMinutesAfterTheStart)
{
    const auto schedule = newRun();
    m_scheduler.advance(4min + 59s);
    EXPECT_EQ(m_checks, 0);
    m_scheduler.advance(1s);
    EXPECT_EQ(m_checks, 1);
}

TEST_F(CheckScheduleTest, NothingIsStoredBeforeTheFirstLook)
{
    const auto schedule = newRun();
    pass(4min);
    EXPECT_TRUE(m_defaults.keys().isEmpty());
}

TEST_F(CheckScheduleTest, ThereIsOneCheckADay)
{
    const auto schedule = newRun();
    pass(23h + 59min);
    EXPECT_EQ(m_checks, 1);
    pass(31min);
    EXPECT_EQ(m_checks, 2);
    pass(10 * (24h + 30min));
    EXPECT_EQ(m_checks, 12);
}

TEST_F(CheckScheduleTest, DayIsCountedOverAllRuns)
{
    newRun();
    for (int run = 0; run < 50; ++run) {
        const auto schedule = newRun();
        pass(20min);
    }
    EXPECT_EQ(m_checks, 1); // 16 hours and 40 minutes
    const auto schedule = newRun();
    pass(8h);
    EXPECT_EQ(m_checks, 2);
}

TEST_F(CheckScheduleTest, CheckForAnotherReasonCountsAsWell)
{
    const auto schedule = newRun();
    schedule->noteCheck();
    pass(23h);
    EXPECT_EQ(m_checks, 0);
    pass(90min);
    EXPECT_EQ(m_checks, 1);
}

TEST_F(CheckScheduleTest, MachineThatSleptForDaysChecksSoonAfterwards)
{
    const auto schedule = newRun();
    pass(1h);
    m_clock.advance(72h); // while no timer runs
    pass(30min);
    EXPECT_EQ(m_checks, 2);
}

TEST_F(CheckScheduleTest, ClockThatIsSetBackDoesNotPutOffChecksForYears)
{
    const auto schedule = newRun();
    pass(1h);
    m_clock.advance(-24h * 3650);
    pass(30min);
    EXPECT_EQ(m_checks, 2);
    pass(23h);
    EXPECT_EQ(m_checks, 2);
}

TEST_F(CheckScheduleTest, StoppedItChecksNoMore)
{
    const auto schedule = newRun();
    schedule->stop();
    EXPECT_FALSE(schedule->isRunning());
    pass(48h);
    EXPECT_EQ(m_checks, 0);
}

TEST_F(CheckScheduleTest, EndedItChecksNoMore)
{
    newRun().reset();
    pass(48h);
    EXPECT_EQ(m_checks, 0);
}

TEST_F(CheckScheduleTest, TimeOfTheCheckIsStoredInSeconds)
{
    const auto schedule = newRun();
    pass(5min);
    EXPECT_EQ(m_defaults.integer(m_key), (FakeClock::usualTime + 5min).count());
}

TEST_F(CheckScheduleTest, WhatIsNoTimeIsNoCheck)
{
    for (const char* text : {"", "yesterday", "-5", "99999999999999999999", "9223372036854775807",
                             "36028798728613935", "1709649967 and more"}) {
        m_checks = 0;
        m_defaults.setString(m_key, QString::fromLatin1(text));
        const auto schedule = newRun();
        pass(5min);
        EXPECT_EQ(m_checks, 1) << text;
    }
}

} // namespace

} // namespace jotwell
