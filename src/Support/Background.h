#pragma once

#include <QCoroFuture>
#include <QCoroTask>

#include <QThreadPool>
#include <QtConcurrent/QtConcurrentRun>

#include <atomic>
#include <memory>

namespace jotwell {

/// Runs `work` on a thread of `pool` and gives its result back on the thread that awaits it. `work`
/// is to hold all that it touches by value.
template <typename Work>
QCoro::Task<std::invoke_result_t<Work>> inBackground(QThreadPool& pool, Work work)
{
    auto future = QtConcurrent::run(&pool, std::move(work));
    co_return co_await future;
}

} // namespace jotwell
