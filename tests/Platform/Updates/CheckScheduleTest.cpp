#include "Platform/qt/Updates/CheckSchedule.h"

#include "Fakes/FailingFileCalls.h"
#include "Fakes/FakeClock.h"
#include "Fakes/FakeScheduler.h"
#include "Platform/linux/PosixFileCalls.h"
#include "QtPrinters.h"
#include "Support/FileText.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSemaphore>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>
#include <memory>

namespace jotwell {

namespace {

using namespace std::chrono_literals;

class CheckScheduleTest : public testing::Test {
protected:
    std::unique_ptr<CheckSchedule> newRun()
    {
        auto schedule = std::make_unique<CheckSchedule>(m_clock, m_scheduler, m_files, m_file);
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

    void write(const QByteArray& text) const
    {
        QDir().mkpath(QFileInfo(m_file).path());
        QFile file(m_file);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    QTemporaryDir m_folder;
    QString m_file = m_folder.filePath(u"state/com.jotwell/LastUpdateCheck"_qs);
    FakeClock m_clock;
    FakeScheduler m_scheduler;
    FailingFileCalls m_files;
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

TEST_F(CheckScheduleTest, NothingIsReadOrWrittenBeforeTheFirstLook)
{
    const auto schedule = newRun();
    pass(4min);
    EXPECT_FALSE(QFileInfo::exists(QFileInfo(m_file).path()));
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

TEST_F(CheckScheduleTest, FileIsTheUsersAlone)
{
    auto schedule = newRun();
    pass(5min);
    schedule.reset();
    QFile file(m_file);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray::number((FakeClock::usualTime + 5min).count()) + '\n');
    EXPECT_EQ(file.permissions() & (QFile::ReadGroup | QFile::ReadOther), 0);
}

TEST_F(CheckScheduleTest, WhatIsNoTimeInTheFileIsNoCheck)
{
    for (const char* text : {"", "yesterday", "-5", "99999999999999999999", "9223372036854775807",
                             "36028798728613935", "1709649967 and more"}) {
        m_checks = 0;
        write(text);
        const auto schedule = newRun();
        pass(5min);
        EXPECT_EQ(m_checks, 1) << text;
    }
}

TEST_F(CheckScheduleTest, FolderInThePlaceOfTheFileDoesNotMakeItCheckMoreOften)
{
    ASSERT_TRUE(QDir().mkpath(m_file));
    const auto schedule = newRun();
    pass(12h);
    EXPECT_EQ(m_checks, 1);
}

TEST_F(CheckScheduleTest, FullDiskDoesNotMakeItCheckMoreOften)
{
    m_files.failAt(0, ENOSPC);
    auto schedule = newRun();
    pass(12h);
    schedule.reset();
    EXPECT_TRUE(m_files.hasFailed());
    EXPECT_FALSE(QFileInfo::exists(m_file));
    EXPECT_EQ(m_checks, 1);
}

/// A disk that isn't done before it may be.
class SlowFileCalls : public PosixFileCalls {
public:
    QSemaphore mayEnd;

    int fsync(int descriptor) override
    {
        mayEnd.acquire();
        return PosixFileCalls::fsync(descriptor);
    }
};

TEST_F(CheckScheduleTest, NobodyWaitsForTheDisk)
{
    SlowFileCalls files;
    {
        CheckSchedule schedule(m_clock, m_scheduler, files, m_file);
        schedule.noteCheck();
        m_clock.advance(1min);
        schedule.noteCheck();
        EXPECT_FALSE(QFileInfo::exists(m_file));
        files.mayEnd.release(10);
    }
    const auto kept = readFile(m_file);
    ASSERT_TRUE(kept);
    EXPECT_EQ(*kept, QByteArray::number((FakeClock::usualTime + 1min).count()) + '\n');
}

} // namespace

} // namespace jotwell
