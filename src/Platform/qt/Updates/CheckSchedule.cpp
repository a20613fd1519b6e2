#include "Platform/qt/Updates/CheckSchedule.h"

#include "Platform/Scheduler.h"
#include "Support/Background.h"
#include "Support/FileText.h"
#include "Support/Logging.h"

#include <QDir>
#include <QFileInfo>

#include <utility>

namespace jotwell {

using std::chrono::duration_cast;
using std::chrono::seconds;

namespace {

void write(const AtomicFile& atomicFile, const QString& file, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(file).path());
    const auto written = atomicFile.write(file, bytes, AtomicFile::Permissions::ownerOnly);
    if (!written)
        logError(QStringLiteral("Updates"),
                 QStringLiteral("The time of the check can't be kept: ") +
                     written.error().description());
}

} // namespace

CheckSchedule::CheckSchedule(const Clock& clock, Scheduler& scheduler, FileCalls& files,
                             QString file)
    : m_clock(clock), m_scheduler(scheduler), m_atomicFile(files), m_file(std::move(file))
{
    m_writing.setMaxThreadCount(1);
}

void CheckSchedule::start(std::function<void()> check)
{
    m_check = std::move(check);
    m_looks = std::make_unique<QObject>();
    lookAfter(untilFirstLook);
}

void CheckSchedule::noteCheck()
{
    m_lastCheck = m_clock.now();
    store(*m_lastCheck);
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
    if (!m_lastCheck)
        m_lastCheck = storedCheck();
    if (!m_lastCheck)
        return true;
    const auto since = m_clock.now() - *m_lastCheck;
    return since < seconds(0) || since >= betweenChecks;
}

std::optional<Clock::TimePoint> CheckSchedule::storedCheck() const
{
    const auto text = readFile(m_file);
    bool isNumber = false;
    const qint64 time = text ? text->trimmed().toLongLong(&isNumber) : 0;
    // What no clock shows, a clock couldn't count either.
    constexpr qint64 latest =
        duration_cast<seconds>(Clock::TimePoint::max().time_since_epoch()).count();
    if (!isNumber || time < 0 || time > latest)
        return std::nullopt;
    return Clock::TimePoint(seconds(time));
}

void CheckSchedule::store(Clock::TimePoint time)
{
    const qint64 count = duration_cast<seconds>(time.time_since_epoch()).count();
    std::function<void()> work = [atomicFile = m_atomicFile, file = m_file, count] {
        write(atomicFile, file, QByteArray::number(count) + '\n');
    };
    static_cast<void>(startInBackground(m_writing, std::move(work)));
}

} // namespace jotwell
