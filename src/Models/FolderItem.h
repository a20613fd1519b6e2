#pragma once

#include "Models/DropdownItem.h"

namespace jotwell {

/// A folder of the vault as a row of the dropdown.
struct FolderItem {
    QString name;

    [[nodiscard]] DropdownItem row() const;
    bool operator==(const FolderItem&) const = default;
};

} // namespace jotwell
