#include "Platform/linux/StateFolder.h"

#include <QDir>

namespace jotwell {

namespace {

// The standard has a variable for it, and Qt has no name for that before 6.7.
QString stateFolder()
{
    const QString named = qEnvironmentVariable("XDG_STATE_HOME");
    return QDir::isAbsolutePath(named) ? named : QDir::homePath() + QStringLiteral("/.local/state");
}

} // namespace

QString stateFile(const QString& name)
{
    return stateFolder() + QStringLiteral("/com.jotwell/") + name;
}

} // namespace jotwell
