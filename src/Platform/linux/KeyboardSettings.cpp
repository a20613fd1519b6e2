#include "Platform/linux/KeyboardSettings.h"

#include "Platform/linux/DesktopName.h"

#include <QProcess>
#include <QStandardPaths>

#include <cstdio>

namespace jotwell {

void openKeyboardSettings()
{
    std::fputs("jotwell: The hotkey could not be had from the desktop. In its own settings, bind a "
               "key to the command \"jotwell\".\n",
               stderr);
    const QString program = QStandardPaths::findExecutable(QStringLiteral("gnome-control-center"));
    if (isDesktop(u"GNOME") && !program.isEmpty())
        QProcess::startDetached(program, {QStringLiteral("keyboard")});
}

} // namespace jotwell
