#include "Platform/qt/BeginningFolder.h"

#include <QDir>
#include <QFileInfo>

namespace jotwell {

QString beginningFolder(const QString& wished)
{
    const QFileInfo wish(wished);
    if (!wish.isAbsolute() || !wish.isNativePath())
        return QDir::homePath();
    QString folder = QDir::cleanPath(wished);
    while (!QFileInfo(folder).isDir() && folder != QDir::rootPath())
        folder = QFileInfo(folder).path();
    return folder;
}

} // namespace jotwell
