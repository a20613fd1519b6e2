#pragma once

#include <QString>

namespace jotwell {

/// Where a panel begins: in the folder that is wished for, or in the nearest above it that is
/// there. Without a wish it is the user's home.
[[nodiscard]] QString beginningFolder(const QString& wished);

} // namespace jotwell
