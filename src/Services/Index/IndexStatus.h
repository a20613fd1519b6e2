#pragma once

#include <QString>

namespace jotwell {

/// What the index is at.
struct IndexStatus {
    enum class Kind { notStarted, building, ready, updating, error };

    Kind kind = Kind::notStarted;
    QString message; ///< of an error

    bool operator==(const IndexStatus&) const = default;
};

} // namespace jotwell
