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

TEST_F(Background, AnswerOfWorkThatIsOverComesLaterAllTheSame)
{
    const QFuture<void> work = startInBackground(m_pool, [] {});
    m_pool.waitForDone();
    bool isTold = false;
    const auto waiting = [](QFuture<void> work, bool& isTold) -> QCoro::Task<void> {
        co_await EndOfWork(std::move(work));
        isTold = true;
    };
    QCoro::Task<void> task = waiting(work, isTold);
    EXPECT_FALSE(isTold);
    finished(std::move(task));
    EXPECT_TRUE(isTold);
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
    QSemaphore begins; // behind the end of what is held here
    QCoro::Task<bool> task = [this, &begins] {
        const auto witness = std::make_shared<EndWitness>(m_endedOn);
        return inBackground(m_pool, [witness, &begins] {
            begins.acquire();
            return witness != nullptr;
        });
    }();
    begins.release();
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
