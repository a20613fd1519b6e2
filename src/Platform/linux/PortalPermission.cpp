#include "Platform/linux/PortalPermission.h"

#include "Support/AtomicFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace jotwell {

PortalPermission::PortalPermission(QString file, FileCalls& calls)
    : m_file(std::move(file)), m_calls(calls), m_isGiven(QFile::exists(m_file))
{
}

void PortalPermission::give()
{
    if (std::exchange(m_isGiven, true))
        return;
    QDir().mkpath(QFileInfo(m_file).path());
    static_cast<void>(
        AtomicFile(m_calls).write(m_file, "The desktop has given Jotwell its global hotkey.\n",
                                  AtomicFile::Permissions::ownerOnly));
}

void PortalPermission::withdraw()
{
    m_isGiven = false;
    QFile::remove(m_file);
}

} // namespace jotwell
