#include "Models/Uuid.h"

namespace jotwell {

QString uuidString(const QUuid& uuid)
{
    return uuid.toString(QUuid::WithoutBraces).toUpper();
}

std::optional<QUuid> uuidFromString(const QString& text)
{
    const QUuid uuid = QUuid::fromString(text);
    // QUuid reads braces and URNs as well and answers nil for what it can't read.
    if (uuidString(uuid) != text.toUpper())
        return std::nullopt;
    return uuid;
}

} // namespace jotwell
