#pragma once

#include "Models/ArrowDirection.h"
#include "Models/DropdownItem.h"
#include "Models/DropdownType.h"
#include "Views/ScrollTarget.h"

#include <QString>

#include <optional>

namespace jotwell {

class FloatingDropdownRows;

/// How the completion list shows what it holds. Colours are called by their names. Pure.
struct FloatingDropdown {
    /// Whatever they show.
    [[nodiscard]] static bool areItemsEqual(const DropdownItem& item1, const DropdownItem& item2);

    /// Icons are names of symbols, and not texts.
    [[nodiscard]] static bool hasSymbols(DropdownType dropdownType);
    /// "primary", "accent", "green", "blue" or "gray".
    [[nodiscard]] static QString iconColor(DropdownType dropdownType, bool isSelected);
    /// "gray0.2", "gray0.1" or "clear".
    [[nodiscard]] static QString backgroundColor(DropdownType dropdownType, bool isSelected,
                                                 bool isHovered);

    /// Nothing without a selected row; `direction` is that of the arrow key which has selected it.
    [[nodiscard]] static std::optional<ScrollTarget>
    scrollTarget(const FloatingDropdownRows& items, const std::optional<DropdownItem>& selectedItem,
                 std::optional<ArrowDirection> direction);
};

} // namespace jotwell
