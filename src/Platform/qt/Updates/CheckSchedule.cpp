#include "Platform/qt/Updates/CheckSchedule.h"

#include "Platform/DefaultsStore.h"
#include "Platform/Scheduler.h"

#include <QString>

#include <utility>

namespace jotwell {

using std::chrono::duration_cast;
using std::chrono::seconds;

namespace {

// In seconds since 1970.
const QString lastUpdateCheck = QStringLiteral("LastUpdateCheck");

} // namespace

CheckSchedule::CheckSchedule(const Clock& clock, Scheduler& scheduler, DefaultsStore& defaults)
    : m_clock(clock), m_scheduler(scheduler), m_defaults(defaults)
{
}

void CheckSchedule::start(std::function<void()> check)
{
    m_check = std::move(check);
    m_looks = std::make_unique<QObject>();
    lookAfter(untilFirstLook);
}

void CheckSchedule::noteCheck()
{
    const auto now = m_clock.now().time_since_epoch();
    m_defaults.setInteger(lastUpdateCheck, duration_cast<seconds>(now).count());
}

void CheckSchedule::lookAfter(std::chrono::minutes delay)
{
    m_scheduler.after(delay, m_looks.get(), [this] {
        lookAfter(betweenLooks);
        if (isDue())
            m_check();
    });
}

// A check in the future was made by a clock that has been set back since.
bool CheckSchedule::isDue()
{
    const auto last = storedCheck();
    if (!last)
        return true;
    const auto since = m_clock.now() - *last;
    return since < seconds(0) || since >= betweenChecks;
}

std::optional<Clock::TimePoint> CheckSchedule::storedCheck() const
{
    const qint64 time = m_defaults.integer(lastUpdateCheck);
    // What no clock shows, a clock couldn't count either.
    constexpr qint64 latest =
        duration_cast<seconds>(Clock::TimePoint::max().time_since_epoch()).count();
    if (time <= 0 || time > latest)
        return std::nullopt;
    return Clock::TimePoint(seconds(time));
}

} // namespace jotwell
