#include "Platform/linux/AutostartFolders.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace jotwell {

namespace {

bool canTryExec(const DesktopEntry& entry)
{
    if (!entry.value("TryExec"))
        return true;
    const QString program = QFile::decodeName(entry.string("TryExec"));
    // An absolute path is looked at itself, a name is looked up.
    return !program.isEmpty() && !QStandardPaths::findExecutable(program).isEmpty();
}

bool containsAny(const std::optional<QByteArrayList>& list, const QByteArray& name)
{
    return list && list->contains(name);
}

} // namespace

AutostartFolders AutostartFolders::ofEnvironment()
{
    QStringList folders = QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation);
    for (QString& folder : folders)
        folder += QStringLiteral("/autostart");
    const QString user = folders.takeFirst();
    return {user, folders, qgetenv("XDG_CURRENT_DESKTOP").split(':')};
}

bool AutostartFolders::wouldStart(const DesktopEntry& entry) const
{
    return entry.isWellFormed() && entry.value("Type") == "Application" &&
           !entry.isTrue("Hidden") && !entry.isFalse("X-GNOME-Autostart-enabled") &&
           !entry.string("Exec").isEmpty() && canTryExec(entry) && concerns(entry);
}

bool AutostartFolders::concerns(const DesktopEntry& entry) const
{
    const auto onlyHere = entry.list("OnlyShowIn");
    const auto notHere = entry.list("NotShowIn");
    for (const QByteArray& name : desktops) {
        if (containsAny(onlyHere, name))
            return true;
        if (containsAny(notHere, name))
            return false;
    }
    return !onlyHere;
}

QString startedProgram()
{
    const QString program = QCoreApplication::applicationFilePath();
    // What an image starts inherits its variables: only a program inside of it is it.
    const QString inside = QFileInfo(qEnvironmentVariable("APPDIR")).canonicalFilePath();
    const QString image = qEnvironmentVariable("APPIMAGE");
    const bool isImage =
        !inside.isEmpty() && QFileInfo(image).isAbsolute() && program.startsWith(inside + u'/');
    return isImage ? image : program;
}

} // namespace jotwell
