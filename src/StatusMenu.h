#pragma once

#include "Platform/StatusItem.h"

#include <optional>
#include <vector>

namespace jotwell {

/// What the entries of the status item's menu do.
struct StatusMenuActions {
    std::function<void()> open;
    std::function<void()> showSettings;
    std::function<void()> quit;
};

/// The key of that virtual key code as a menu shows it; none above 49 and for punctuation.
[[nodiscard]] std::optional<QString> getKeyEquivalent(qint64 keyCode);

/// The whole menu; `updateItem` stands among its entries.
[[nodiscard]] std::vector<MenuEntry> statusMenu(const Hotkey& hotkey, StatusMenuActions actions,
                                                MenuEntry updateItem);

} // namespace jotwell
