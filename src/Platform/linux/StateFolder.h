#pragma once

#include <QString>

namespace jotwell {

/// The path of a file of the program's own that outlives a run and is of no worth. Neither it nor
/// its folder need exist.
[[nodiscard]] QString stateFile(const QString& name);

} // namespace jotwell
