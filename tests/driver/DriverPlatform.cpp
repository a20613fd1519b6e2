#include "driver/DriverPlatform.h"

#include "driver/EffectRecorder.h"

#include <QCoreApplication>

namespace jotwell {

ScriptedClock::TimePoint ScriptedClock::now() const
{
    const QMutexLocker lock(&m_mutex);
    if (m_held)
        return *m_held;
    return m_stopped.value_or(std::chrono::system_clock::now() + m_ahead);
}

void ScriptedClock::holdAt(std::optional<TimePoint> time)
{
    const QMutexLocker lock(&m_mutex);
    m_held = time;
}

void ScriptedClock::stopAt(std::optional<TimePoint> time)
{
    const QMutexLocker lock(&m_mutex);
    m_stopped = time;
    m_ahead = TimePoint::duration::zero();
}

void ScriptedClock::advance(TimePoint::duration by)
{
    const QMutexLocker lock(&m_mutex);
    if (m_stopped)
        *m_stopped += by;
    else
        m_ahead += by;
}

void RecordingWorkspace::openUrl(const QString& url)
{
    m_effects.recordOpenUrl(url);
}

DriverPlatform::DriverPlatform(const QString& home, EffectRecorder& effects)
    : m_home(home),
      m_defaults(home + QStringLiteral("/.driver/config/com.jotwell/Jotwell.ini"), m_files),
      m_workspace(effects),
      m_loginItem({home + QStringLiteral("/.driver/config/autostart"), {}, {}},
                  QCoreApplication::applicationFilePath(), m_files),
      m_platform{m_clock,     m_clock,     m_scheduler,
                 m_defaults,  m_files,     m_fileSystems,
                 m_folders,   m_workspace, m_hotkeys,
                 m_loginItem, m_updater,   m_background,
                 m_bulk,      m_database,  home + QStringLiteral("/.driver/data/com.jotwell")}
{
    m_database.setMaxThreadCount(1);
}

bool DriverPlatform::isWorking() const
{
    return m_scheduler.hasSleepers() || m_background.activeThreadCount() > 0 ||
           m_bulk.activeThreadCount() > 0 || m_database.activeThreadCount() > 0;
}

QString DriverPlatform::databasePath() const
{
    return m_home + QStringLiteral("/.driver/data/com.jotwell/TagIndex.db");
}

} // namespace jotwell
