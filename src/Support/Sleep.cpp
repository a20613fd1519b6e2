#include "Support/Sleep.h"

#include "Platform/Scheduler.h"

#include <QObject>

#include <coroutine>
#include <memory>

namespace jotwell {

namespace {

class SleepAwaiter {
public:
    SleepAwaiter(Scheduler& scheduler, std::chrono::milliseconds delay)
        : m_scheduler(scheduler), m_delay(delay)
    {
    }

    [[nodiscard]] bool await_ready() const { return false; }
    void await_suspend(std::coroutine_handle<> sleeper)
    {
        m_scheduler.resumeAfter(m_delay, m_context.get(), [sleeper] { sleeper.resume(); });
    }
    void await_resume() const {}

private:
    Scheduler& m_scheduler;
    std::chrono::milliseconds m_delay;
    std::unique_ptr<QObject> m_context = std::make_unique<QObject>(); // goes with the task
};

class TurnAwaiter {
public:
    [[nodiscard]] bool await_ready() const { return false; }
    void await_suspend(std::coroutine_handle<> sleeper)
    {
        QMetaObject::invokeMethod(
            m_context.get(), [sleeper] { sleeper.resume(); }, Qt::QueuedConnection);
    }
    void await_resume() const {}

private:
    std::unique_ptr<QObject> m_context = std::make_unique<QObject>(); // goes with the task
};

} // namespace

QCoro::Task<void> sleepFor(Scheduler& scheduler, std::chrono::milliseconds delay)
{
    SleepAwaiter sleep(scheduler, delay);
    co_await std::move(sleep);
}

QCoro::Task<void> nextTurn()
{
    TurnAwaiter turn;
    co_await std::move(turn);
}

} // namespace jotwell
