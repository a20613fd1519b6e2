#include "driver/EventLoop.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QThread>
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

bool drainEventLoop(const std::function<bool()>& isWorking, std::chrono::milliseconds timeOut)
{
    const QDeadlineTimer deadline(timeOut);
    for (;;) {
        // Asked first: what the work leaves behind is queued before it ends.
        const bool wasWorking = isWorking();
        const bool hadToDo = turnOnce();
        if (!wasWorking && !hadToDo)
            return true;
        if (deadline.hasExpired())
            return false;
        if (!hadToDo)
            QThread::msleep(1);
    }
}

} // namespace jotwell
