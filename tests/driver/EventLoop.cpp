#include "driver/EventLoop.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QThreadPool>
#include <QTimer>

namespace jotwell {

namespace {

// True if there was anything to do.
bool turnOnce()
{
    // Outside a running loop deferred deletions wait for this call.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents);
}

} // namespace

void runEventLoop(std::chrono::milliseconds time)
{
    QEventLoop loop;
    QTimer::singleShot(time, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

bool drainEventLoop(QThreadPool& background, std::chrono::milliseconds timeOut)
{
    const QDeadlineTimer deadline(timeOut);
    for (;;) {
        // Asked first: what the work leaves behind is queued before it ends.
        const bool isWorking = background.activeThreadCount() > 0;
        const bool hadToDo = turnOnce();
        if (!isWorking && !hadToDo)
            return true;
        if (deadline.hasExpired())
            return false;
        if (!hadToDo)
            background.waitForDone(1);
    }
}

} // namespace jotwell
