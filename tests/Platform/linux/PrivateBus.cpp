#include "Platform/linux/PrivateBus.h"

#include <csignal>

#include <sys/prctl.h>

namespace jotwell {

PrivateBus::PrivateBus()
{
    m_daemon.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    m_daemon.start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--session"), QStringLiteral("--nofork"),
                    QStringLiteral("--nopidfile"), QStringLiteral("--print-address")});
    m_daemon.waitForReadyRead();
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_daemon.readLine().trimmed());
}

PrivateBus::~PrivateBus()
{
    m_daemon.kill();
    m_daemon.waitForFinished();
}

} // namespace jotwell
