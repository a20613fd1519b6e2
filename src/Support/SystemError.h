#pragma once

#include <QString>

namespace jotwell {

/// A failure of the operating system, by its `errno`.
struct SystemError {
    int code = 0;

    /// The failure that the last system call of this thread left in `errno`.
    [[nodiscard]] static SystemError last();

    /// The system's own words for it, "Permission denied".
    [[nodiscard]] QString description() const;

    bool operator==(const SystemError&) const = default;
};

} // namespace jotwell
