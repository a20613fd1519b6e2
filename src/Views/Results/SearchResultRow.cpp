#include "Views/Results/SearchResultRow.h"

namespace jotwell {

QString truncatedPath(const QString& path)
{
    const QChar slash = u'/';
    if (path.count(slash) < 3)
        return path;
    return QStringLiteral(".../") + path.section(slash, -2);
}

} // namespace jotwell
