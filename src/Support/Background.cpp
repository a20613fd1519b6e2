#include "Support/Background.h"

#include <QFutureWatcher>
#include <QThreadPool>
#include <QtConcurrent/qtconcurrenttask.h>

#ifdef JOTWELL_THREAD_SANITIZER
#    include <sanitizer/tsan_interface.h>
#endif

// Work and result change hands under locks within Qt's libraries, which ThreadSanitizer can't see:
// here it is told of them. This file itself is compiled without it.

namespace jotwell {

namespace {

#ifdef JOTWELL_THREAD_SANITIZER
char hands[2];
#endif

enum class Way { toBackground, back };

void give([[maybe_unused]] Way way)
{
#ifdef JOTWELL_THREAD_SANITIZER
    __tsan_release(&hands[static_cast<int>(way)]);
#endif
}

void take([[maybe_unused]] Way way)
{
#ifdef JOTWELL_THREAD_SANITIZER
    __tsan_acquire(&hands[static_cast<int>(way)]);
#endif
}

} // namespace

QFuture<void> startInBackground(QThreadPool& pool, std::function<void()> work, int priority)
{
    give(Way::toBackground);
    auto run = [work = std::move(work)] {
        take(Way::toBackground);
        work();
        give(Way::back);
    };
    return QtConcurrent::task(std::move(run)).onThreadPool(pool).withPriority(priority).spawn();
}

void EndOfWork::await_suspend(std::coroutine_handle<> waiting)
{
    auto* watcher = new QFutureWatcher<void>;
    QObject::connect(watcher, &QFutureWatcher<void>::finished, watcher, [watcher, waiting] {
        watcher->deleteLater();
        waiting.resume();
    });
    watcher->setFuture(m_work);
}

void takeOverFromBackground()
{
    take(Way::back);
}

} // namespace jotwell
