#include "Platform/linux/PrivateBus.h"

#include <QFile>

#include <csignal>

#include <sys/prctl.h>

namespace jotwell {

namespace {

// No folder of services: those of this machine, such as its portal, must not answer here.
constexpr auto configuration = R"(<!DOCTYPE busconfig PUBLIC
 "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:tmpdir=/tmp</listen>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

} // namespace

PrivateBus::PrivateBus()
{
    QFile file(m_folder.filePath(QStringLiteral("bus.conf")));
    if (!file.open(QIODevice::WriteOnly) || file.write(configuration) < 0)
        qFatal("There is no room for the bus's configuration");
    file.close();
    m_daemon.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    m_daemon.start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--config-file=") + file.fileName(), QStringLiteral("--nofork"),
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
