#include "Services/Index/Vault/FileReadings.h"

#include "Fakes/FakeClock.h"
#include "Platform/FileSystems.h"

#include <gtest/gtest.h>

#include <atomic>
#include <limits>
#include <thread>
#include <vector>

namespace jotwell {

namespace {

using namespace std::chrono_literals;

/// Answers as told and counts how often it was asked.
struct CountingFileSystems : FileSystems {
    std::optional<bool> answer = true;
    std::atomic<int> questions = 0;

    std::optional<bool> keepsChangeTimes(const char* /*path*/) override
    {
        ++questions;
        return answer;
    }
};

const QByteArray path = "/vault/a.md";
constexpr ContentHash hash = 4711;

/// Of a regular file that changed an hour before the usual time.
FileStatus oldStatus()
{
    constexpr std::chrono::nanoseconds changed = FakeClock::usualTime - 1h;
    return {FileStatus::Kind::regular, 10, changed.count() - 5, changed.count(), 7, 3};
}

class FileReadingsTest : public testing::Test {
protected:
    void rememberAt(std::chrono::nanoseconds behindChange, const FileStatus& status = oldStatus())
    {
        const std::chrono::nanoseconds read =
            std::chrono::nanoseconds(status.changeTime) + behindChange;
        readings.remember(path, status, hash, Clock::TimePoint(read));
    }

    FakeClock clock;
    CountingFileSystems fileSystems;
    FileReadings readings{clock, fileSystems};
};

TEST_F(FileReadingsTest, NothingIsKnownAtFirst)
{
    EXPECT_EQ(readings.known(path, oldStatus()), std::nullopt);
}

TEST_F(FileReadingsTest, WhatWasReadIsKnown)
{
    readings.remember(path, oldStatus(), hash, readings.now());
    EXPECT_EQ(readings.known(path, oldStatus()), hash);
    EXPECT_EQ(readings.known("/vault/b.md", oldStatus()), std::nullopt);
}

TEST_F(FileReadingsTest, TheTimeIsThatOfTheClock)
{
    clock.advance(1h);
    EXPECT_EQ(readings.now(), clock.now());
}

TEST_F(FileReadingsTest, AnyOtherStatusIsUnknown)
{
    readings.remember(path, oldStatus(), hash, readings.now());
    std::vector<FileStatus> others(6, oldStatus());
    ++others[0].size;
    ++others[1].modificationTime;
    ++others[2].changeTime;
    ++others[3].inode;
    ++others[4].device;
    others[5].kind = FileStatus::Kind::link;
    for (const FileStatus& other : others)
        EXPECT_EQ(readings.known(path, other), std::nullopt);
    EXPECT_EQ(readings.known(path, oldStatus()), hash);
}

TEST_F(FileReadingsTest, AFieldDoesNotStandForAnother)
{
    readings.remember(path, oldStatus(), hash, readings.now());
    FileStatus swapped = oldStatus();
    std::swap(swapped.inode, swapped.device);
    EXPECT_EQ(readings.known(path, swapped), std::nullopt);
    swapped = oldStatus();
    std::swap(swapped.modificationTime, swapped.changeTime);
    EXPECT_EQ(readings.known(path, swapped), std::nullopt);
}

TEST_F(FileReadingsTest, AChangeWithinTheMinuteBeforeTheReadingMayGoOn)
{
    rememberAt(60s);
    EXPECT_EQ(readings.known(path, oldStatus()), std::nullopt);
    rememberAt(60s + 1ns);
    EXPECT_EQ(readings.known(path, oldStatus()), hash);
}

TEST_F(FileReadingsTest, AChangeInTheFutureIsNotTrusted)
{
    rememberAt(-1s);
    EXPECT_EQ(readings.known(path, oldStatus()), std::nullopt);
    FileStatus never = oldStatus();
    never.changeTime = std::numeric_limits<qint64>::max();
    readings.remember(path, never, hash, readings.now());
    EXPECT_EQ(readings.known(path, never), std::nullopt);
}

TEST_F(FileReadingsTest, TheModificationTimeIsNobodysBusiness)
{
    FileStatus status = oldStatus();
    status.modificationTime = std::numeric_limits<qint64>::max();
    readings.remember(path, status, hash, readings.now());
    EXPECT_EQ(readings.known(path, status), hash);
}

TEST_F(FileReadingsTest, ANewerReadingTakesTheOldOnesPlace)
{
    rememberAt(2h);
    readings.remember(path, oldStatus(), hash + 1, readings.now());
    EXPECT_EQ(readings.known(path, oldStatus()), hash + 1);
    rememberAt(1s);
    EXPECT_EQ(readings.known(path, oldStatus()), std::nullopt);
}

TEST_F(FileReadingsTest, WhatIsForgottenIsUnknown)
{
    rememberAt(2h);
    readings.forget("/vault/b.md");
    EXPECT_EQ(readings.known(path, oldStatus()), hash);
    readings.forget(path);
    EXPECT_EQ(readings.known(path, oldStatus()), std::nullopt);
}

TEST_F(FileReadingsTest, OnlyTheStatusOfARegularFileTellsOfItsBytes)
{
    for (const auto kind :
         {FileStatus::Kind::link, FileStatus::Kind::folder, FileStatus::Kind::other}) {
        FileStatus status = oldStatus();
        status.kind = kind;
        readings.remember(path, status, hash, readings.now());
        EXPECT_EQ(readings.known(path, status), std::nullopt);
        EXPECT_EQ(readings.known(path, oldStatus()), std::nullopt);
    }
}

TEST_F(FileReadingsTest, AFileSystemWithoutChangeTimesIsNotTrusted)
{
    fileSystems.answer = false;
    for (int each = 0; each < 3; ++each)
        rememberAt(2h);
    EXPECT_EQ(readings.known(path, oldStatus()), std::nullopt);
    EXPECT_EQ(fileSystems.questions, 1);
}

TEST_F(FileReadingsTest, AFileSystemIsAskedOnce)
{
    for (int each = 0; each < 3; ++each)
        rememberAt(2h);
    EXPECT_EQ(fileSystems.questions, 1);
    FileStatus elsewhere = oldStatus();
    ++elsewhere.device;
    fileSystems.answer = false;
    rememberAt(2h, elsewhere);
    EXPECT_EQ(fileSystems.questions, 2);
    EXPECT_EQ(readings.known(path, elsewhere), std::nullopt);
}

TEST_F(FileReadingsTest, AFileSystemThatDoesNotAnswerIsAskedAgain)
{
    fileSystems.answer = std::nullopt;
    rememberAt(2h);
    EXPECT_EQ(readings.known(path, oldStatus()), std::nullopt);
    fileSystems.answer = true;
    rememberAt(2h);
    EXPECT_EQ(readings.known(path, oldStatus()), hash);
}

TEST_F(FileReadingsTest, ManyThreadsMayUseItAtOnce)
{
    std::vector<std::thread> threads;
    for (ContentHash thread = 0; thread < 4; ++thread) {
        threads.emplace_back([this, thread] {
            for (ContentHash each = 0; each < 2000; ++each) {
                const QByteArray own = QByteArray::number(thread) + '/' + QByteArray::number(each);
                readings.remember(own, oldStatus(), each, readings.now());
                EXPECT_EQ(readings.known(own, oldStatus()), each);
                if (each % 2 == 1)
                    readings.forget(own);
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (ContentHash each = 0; each < 2000; ++each) {
        const auto expected = each % 2 == 1 ? std::nullopt : std::optional(each);
        EXPECT_EQ(readings.known("3/" + QByteArray::number(each), oldStatus()), expected);
    }
}

} // namespace

} // namespace jotwell
