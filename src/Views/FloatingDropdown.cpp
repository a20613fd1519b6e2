#include "Views/FloatingDropdown.h"

#include "Views/FloatingDropdownRows.h"

namespace jotwell {

bool FloatingDropdown::areItemsEqual(const DropdownItem& item1, const DropdownItem& item2)
{
    return item1.id == item2.id;
}

bool FloatingDropdown::hasSymbols(DropdownType dropdownType)
{
    return dropdownType != DropdownType::command && dropdownType != DropdownType::none;
}

QString FloatingDropdown::iconColor(DropdownType dropdownType, bool isSelected)
{
    if (isSelected)
        return QStringLiteral("primary");
    switch (dropdownType) {
    case DropdownType::command:
        return QStringLiteral("accent");
    case DropdownType::noteTemplate:
    case DropdownType::folder:
        return QStringLiteral("green");
    case DropdownType::hashtag:
        return QStringLiteral("blue");
    case DropdownType::none:
        break;
    }
    return QStringLiteral("gray");
}

QString FloatingDropdown::backgroundColor(DropdownType dropdownType, bool isSelected,
                                          bool isHovered)
{
    if (isSelected)
        return QStringLiteral("gray0.2");
    if (isHovered && dropdownType != DropdownType::folder)
        return QStringLiteral("gray0.1");
    return QStringLiteral("clear");
}

std::optional<ScrollTarget>
FloatingDropdown::scrollTarget(const FloatingDropdownRows& items,
                               const std::optional<DropdownItem>& selectedItem,
                               std::optional<ArrowDirection> direction)
{
    if (!selectedItem)
        return std::nullopt;
    const auto index = items.indexOf(*selectedItem);
    if (!index)
        return std::nullopt;
    return ScrollTarget{static_cast<int>(*index), ScrollAnchor::of(direction)};
}

} // namespace jotwell
