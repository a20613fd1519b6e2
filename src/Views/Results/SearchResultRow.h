#pragma once

#include <QString>

namespace jotwell {

/// The last two components of a long path, behind "..."; a path of fewer than four stays as it is.
[[nodiscard]] QString truncatedPath(const QString& path);

} // namespace jotwell
