#include "Platform/linux/XdgWorkspace.h"

#include <QProcess>
#include <QStandardPaths>

namespace jotwell {

void XdgWorkspace::openUrl(const QString& url)
{
    const QString opener = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    if (!opener.isEmpty())
        QProcess::startDetached(opener, {url});
}

} // namespace jotwell
