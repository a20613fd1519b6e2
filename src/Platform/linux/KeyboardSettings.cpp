#include "Platform/linux/KeyboardSettings.h"

#include <QProcess>
#include <QStandardPaths>
#include <QStringList>

#include <cstdio>

namespace jotwell {

namespace {

// A list, as distributions put their own name before the desktop's.
bool isGnome()
{
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':').contains(u"GNOME");
}

} // namespace

void openKeyboardSettings()
{
    std::fputs("jotwell: The desktop gives no hotkeys to programs. In its own settings, bind a key "
               "to the command \"jotwell\".\n",
               stderr);
    const QString program = QStandardPaths::findExecutable(QStringLiteral("gnome-control-center"));
    if (isGnome() && !program.isEmpty())
        QProcess::startDetached(program, {QStringLiteral("keyboard")});
}

} // namespace jotwell
