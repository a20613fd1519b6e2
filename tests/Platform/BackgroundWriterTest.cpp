#include "Platform/qt/BackgroundWriter.h"

#include <QSemaphore>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include <pthread.h>

namespace jotwell {

namespace {

constexpr int patience = 5000;

TEST(BackgroundWriterTest, NothingIsDoneUnasked)
{
    int runs = 0;
    {
        BackgroundWriter writer([&] { ++runs; });
        writer.wait();
    }
    EXPECT_EQ(runs, 0);
}

TEST(BackgroundWriterTest, AskedWhileItIsAtWorkItWorksOnceMore)
{
    QSemaphore begun;
    QSemaphore mayEnd;
    std::atomic<int> runs = 0;
    BackgroundWriter writer([&] {
        ++runs;
        begun.release();
        mayEnd.acquire();
    });
    writer.ask();
    ASSERT_TRUE(begun.tryAcquire(1, patience));
    for (int each = 0; each < 20; ++each)
        writer.ask();
    mayEnd.release(100);
    writer.wait();
    EXPECT_EQ(runs, 2);
}

TEST(BackgroundWriterTest, WhatIsAskedByTheEndIsDone)
{
    std::atomic<int> runs = 0;
    for (int round = 1; round <= 100; ++round) {
        BackgroundWriter(([&] { ++runs; })).ask();
        ASSERT_EQ(runs, round);
    }
}

TEST(BackgroundWriterTest, WhoWaitsIsNotHeldUpByThoseWhoAskOn)
{
    QSemaphore begun;
    QSemaphore hasAsked;
    std::atomic<bool> isOver = false;
    BackgroundWriter writer([&] {
        begun.release();
        hasAsked.acquire();
    });
    writer.ask();
    std::thread insistent([&] { // whenever one piece of work ends, the next is asked for
        while (!isOver) {
            if (begun.tryAcquire(1, 1)) {
                writer.ask();
                hasAsked.release();
            }
        }
        hasAsked.release(100);
    });
    QSemaphore back;
    std::thread waiting([&] {
        writer.wait();
        back.release();
    });
    EXPECT_TRUE(back.tryAcquire(1, patience));
    isOver = true;
    insistent.join();
    waiting.join();
}

TEST(BackgroundWriterTest, WithoutAThreadWhoAsksDoesTheWork)
{
    pthread_attr_t before;
    ASSERT_EQ(pthread_getattr_default_np(&before), 0);
    pthread_attr_t unheardOf;
    ASSERT_EQ(pthread_attr_init(&unheardOf), 0);
    ASSERT_EQ(pthread_attr_setstacksize(&unheardOf, size_t(1) << 60), 0);
    int runs = 0;
    {
        BackgroundWriter writer([&] { ++runs; });
        ASSERT_EQ(pthread_setattr_default_np(&unheardOf), 0);
        writer.ask();
        EXPECT_EQ(runs, 1);
        writer.ask();
        EXPECT_EQ(runs, 2);
        ASSERT_EQ(pthread_setattr_default_np(&before), 0);
        writer.wait();
        writer.ask(); // there is one again
        writer.wait();
        EXPECT_EQ(runs, 3);
    }
    pthread_attr_destroy(&unheardOf);
    pthread_attr_destroy(&before);
}

} // namespace

} // namespace jotwell
