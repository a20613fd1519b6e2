#pragma once

#include <QCoroFuture>
#include <QCoroTask>

#include <QFuture>

#include <functional>
#include <memory>
#include <optional>

class QThreadPool;

namespace jotwell {

/// Starts `work` on a thread of `pool`, before what waits there with a lower priority; all that it
/// touches is to be its own. For `inBackground`.
[[nodiscard]] QFuture<void> startInBackground(QThreadPool& pool, std::function<void()> work,
                                              int priority = 0);
/// Whoever has awaited such a future calls this before touching what the work has left behind.
void takeOverFromBackground();

/// Runs `work` on a thread of `pool` and gives its result back on the thread that awaits it. `work`
/// is to hold all that it touches by value.
template <typename Work>
QCoro::Task<std::invoke_result_t<Work>> inBackground(QThreadPool& pool, Work work, int priority = 0)
{
    const auto result = std::make_shared<std::optional<std::invoke_result_t<Work>>>();
    std::function<void()> run = [work = std::move(work), result] { result->emplace(work()); };
    auto future = startInBackground(pool, std::move(run), priority);
    co_await future;
    takeOverFromBackground();
    co_return std::move(**result);
}

} // namespace jotwell
