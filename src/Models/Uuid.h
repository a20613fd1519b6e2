#pragma once

#include <QString>
#include <QUuid>

#include <optional>

namespace jotwell {

/// The canonical form, upper case: "E621E1F8-C36C-495A-93FC-0C247A3E6E5F".
[[nodiscard]] QString uuidString(const QUuid& uuid);

/// Reads the canonical form in either case and no other; the nil UUID is one as well.
[[nodiscard]] std::optional<QUuid> uuidFromString(const QString& text);

} // namespace jotwell
