#include "Index/HoldProbe.h"

#include "Index/IndexJobs.h"

#include <QEventLoop>
#include <QTimer>

#include <algorithm>
#include <sys/eventfd.h>
#include <time.h>
#include <unistd.h>

namespace jotwell::bench {

namespace {

constexpr std::chrono::microseconds betweenKnocks(500);
constexpr double nanosecondsInMillisecond = 1e6;

std::int64_t now()
{
    timespec time;
    ::clock_gettime(CLOCK_MONOTONIC, &time);
    return time.tv_sec * 1'000'000'000 + time.tv_nsec;
}

} // namespace

HoldProbe::HoldProbe()
    : m_door(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)), m_notifier(m_door, QSocketNotifier::Read),
      m_workBefore(threadWork())
{
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [this] { answer(); });
    m_thread = std::thread([this] { knock(); });
}

HoldProbe::~HoldProbe()
{
    m_isOver = true;
    m_thread.join();
    ::close(m_door);
}

void HoldProbe::knock()
{
    while (!m_isOver) {
        std::int64_t answered = 0;
        if (m_knockedAt.compare_exchange_strong(answered, now()))
            ::eventfd_write(m_door, 1);
        std::this_thread::sleep_for(betweenKnocks);
    }
}

void HoldProbe::answer()
{
    eventfd_t knocks = 0;
    ::eventfd_read(m_door, &knocks);
    const std::int64_t wait = now() - m_knockedAt.exchange(0);
    const std::int64_t work = threadWork();
    const auto milliseconds = [](std::int64_t time) {
        return static_cast<double>(time) / nanosecondsInMillisecond;
    };
    m_longestWait = std::max(m_longestWait, milliseconds(wait));
    m_longestWork = std::max(m_longestWork, milliseconds(work - m_workBefore));
    m_workBefore = work;
}

namespace {

bool seesTenMilliseconds()
{
    const HoldProbe probe;
    QEventLoop loop;
    QTimer::singleShot(20, &loop, [] {
        const std::int64_t begin = threadWork();
        while (threadWork() - begin < 10 * nanosecondsInMillisecond) {
        }
    });
    QTimer::singleShot(60, &loop, &QEventLoop::quit);
    loop.exec();
    return probe.longestWait() >= 9 && probe.longestWork() >= 9.9;
}

} // namespace

void HoldProbe::checkItself()
{
    // The one that knocks may itself have to wait for a core, on a busy machine.
    for (int attempt = 0; attempt < 5; ++attempt) {
        if (seesTenMilliseconds())
            return;
    }
    require(false, "the probe sees a hold of 10 milliseconds");
}

void printHolds(const std::string& job, const HoldProbe& probe)
{
    printFigure("held by " + job, probe.longestWait());
    printFigure("held by " + job + ", working", probe.longestWork());
}

} // namespace jotwell::bench
