#include "Views/Results/SearchResultRow.h"

namespace jotwell {

QString truncatedPath(const QString& path)
{
    const QChar slash = u'/';
    if (path.count(slash) < 3)
        return path;
    return QStringLiteral(".../") + path.section(slash, -2);
}

QString SearchResultRow::iconColor(bool isSelected)
{
    return isSelected ? QStringLiteral("primary") : QStringLiteral("accent");
}

QString SearchResultRow::backgroundColor(bool isSelected, bool isHovered)
{
    if (isSelected)
        return QStringLiteral("gray0.2");
    return isHovered ? QStringLiteral("gray0.1") : QStringLiteral("clear");
}

QString SearchResultRow::highlightColor(bool isSelected)
{
    return isSelected ? QStringLiteral("orange") : QStringLiteral("systemAccent");
}

} // namespace jotwell
