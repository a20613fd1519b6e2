#pragma once

#include <QCoroTask>

#include <QFuture>

#include <coroutine>
#include <functional>
#include <memory>
#include <optional>

class QThreadPool;

namespace jotwell {

/// Starts `work` on a thread of `pool`, before what waits there with a lower priority; all that it
/// touches is to be its own. Its end is awaited by `EndOfWork`.
[[nodiscard]] QFuture<void> startInBackground(QThreadPool& pool, std::function<void()> work,
                                              int priority = 0);
/// Whoever has waited for a pool in another way calls this before touching what the work has left
/// behind.
void takeOverFromBackground();

/// Awaits the end of work in the background, which comes on a later turn of the event loop even if
/// the work is over by then: an answer never overtakes its question.
class EndOfWork {
public:
    explicit EndOfWork(QFuture<void> work) : m_work(std::move(work)) {}

    [[nodiscard]] static bool await_ready() { return false; }
    void await_suspend(std::coroutine_handle<> waiting);
    static void await_resume() { takeOverFromBackground(); }

private:
    QFuture<void> m_work;
};

/// What `result` holds once `work` has ended. For `inBackground`.
template <typename T>
QCoro::Task<T> resultOf(QFuture<void> work, std::shared_ptr<std::optional<T>> result)
{
    co_await EndOfWork(std::move(work));
    co_return std::move(**result);
}

/// Runs `work` on a thread of `pool` and gives its result back on the thread that awaits it. `work`
/// is to hold all that it touches by value; what it holds ends on that thread as well.
template <typename Work>
QCoro::Task<std::invoke_result_t<Work>> inBackground(QThreadPool& pool, Work work, int priority = 0)
{
    // No coroutine itself: its frame would keep `work`, and so whatever is captured from constants.
    using Outcome = std::invoke_result_t<Work>;
    const auto result = std::make_shared<std::optional<Outcome>>();
    std::function<void()> run = [work = std::move(work), result] { result->emplace(work()); };
    return resultOf<Outcome>(startInBackground(pool, std::move(run), priority), result);
}

/// Frees what `value` holds on a thread of `pool`, unless others hold it too: for what takes long.
template <typename T>
void freeInBackground(QThreadPool& pool, std::shared_ptr<T> value)
{
    std::function<void()> run = [value = std::move(value)]() mutable { value.reset(); };
    static_cast<void>(startInBackground(pool, std::move(run)));
}

/// A value that is freed on a thread of a pool when its holder ends. Not to be copied.
template <typename T>
class EndsInBackground {
public:
    explicit EndsInBackground(QThreadPool& pool) : m_pool(pool) {}
    ~EndsInBackground() { freeInBackground(m_pool, std::move(m_value)); }
    EndsInBackground(const EndsInBackground&) = delete;
    EndsInBackground& operator=(const EndsInBackground&) = delete;

    [[nodiscard]] T& operator*() const { return *m_value; }
    [[nodiscard]] T* operator->() const { return m_value.get(); }
    /// To share with the work that makes it; that is to let go of it before.
    [[nodiscard]] const std::shared_ptr<T>& value() const { return m_value; }

private:
    QThreadPool& m_pool;
    std::shared_ptr<T> m_value = std::make_shared<T>();
};

} // namespace jotwell
