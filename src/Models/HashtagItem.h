#pragma once

#include "Models/DropdownItem.h"

namespace jotwell {

/// A tag of the vault, without its "#", and the number of notes that hold it.
struct HashtagItem {
    QString tag;
    int count = 0;

    [[nodiscard]] DropdownItem row() const;
    bool operator==(const HashtagItem&) const = default;
};

} // namespace jotwell
