#include "Platform/qt/BeginningFolder.h"

#include <QDir>
#include <QFileInfo>

namespace jotwell {

QString beginningFolder(const QString& wished)
{
    if (!QDir::isAbsolutePath(wished))
        return QDir::homePath();
    QString folder = QDir::cleanPath(wished);
    while (!QFileInfo(folder).isDir() && folder != QDir::rootPath())
        folder = QFileInfo(folder).path();
    return folder;
}

} // namespace jotwell
