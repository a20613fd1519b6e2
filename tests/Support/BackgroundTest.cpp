#include "Support/Background.h"

#include "Fakes/TaskRunner.h"

#include <QSemaphore>
#include <QThread>
#include <QThreadPool>

#include <gtest/gtest.h>

#include <atomic>

namespace jotwell {

namespace {

/// Notes down the thread on which it ends.
struct EndWitness {
    explicit EndWitness(std::atomic<QThread*>& thread) : endedOn(thread) {}
    ~EndWitness() { endedOn = QThread::currentThread(); }
    EndWitness(const EndWitness&) = delete;
    EndWitness& operator=(const EndWitness&) = delete;

    std::atomic<QThread*>& endedOn;
};

class Background : public testing::Test {
protected:
    void SetUp() override { m_pool.setMaxThreadCount(1); }

    void waitForEnd()
    {
        m_pool.waitForDone();
        ASSERT_TRUE(m_endedOn.load());
    }

    std::atomic<QThread*> m_endedOn = nullptr;
    QThreadPool m_pool;
};

TEST_F(Background, GivesTheResultOnTheThreadThatAwaitsIt)
{
    const auto work = [] { return QThread::currentThread(); };
    QThread* const worker = finished(inBackground(m_pool, work));
    EXPECT_NE(worker, QThread::currentThread());
}

TEST_F(Background, WhatComesFirstGoesBeforeWhatWaits)
{
    QSemaphore mayGoOn;
    m_pool.start([&mayGoOn] { mayGoOn.acquire(); });
    QString order;
    auto usual = inBackground(m_pool, [&order] { return order += u'b', true; });
    auto urgent = inBackground(
        m_pool, [&order] { return order += u'a', true; }, 1);
    mayGoOn.release();
    finished(std::move(usual));
    finished(std::move(urgent));
    EXPECT_EQ(order.toStdString(), "ab");
}

// A constant is copied where a variable would be moved.
TEST_F(Background, WhatTheWorkHoldsEndsOnThePoolsThread)
{
    QCoro::Task<bool> task = [this] {
        const auto witness = std::make_shared<EndWitness>(m_endedOn);
        return inBackground(m_pool, [witness] { return witness != nullptr; });
    }();
    EXPECT_TRUE(finished(std::move(task)));
    waitForEnd();
    EXPECT_NE(m_endedOn.load(), QThread::currentThread());
}

TEST_F(Background, AValueIsFreedThere)
{
    freeInBackground(m_pool, std::make_shared<EndWitness>(m_endedOn));
    waitForEnd();
    EXPECT_NE(m_endedOn.load(), QThread::currentThread());
}

TEST_F(Background, AHoldersValueIsFreedThere)
{
    {
        const EndsInBackground<std::shared_ptr<EndWitness>> holder(m_pool);
        *holder = std::make_shared<EndWitness>(m_endedOn);
        EXPECT_FALSE(m_endedOn.load());
    }
    waitForEnd();
    EXPECT_NE(m_endedOn.load(), QThread::currentThread());
}

} // namespace

} // namespace jotwell
