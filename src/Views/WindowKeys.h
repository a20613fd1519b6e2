#pragma once

#include "Models/Command.h"

#include <Qt>

#include <optional>
#include <variant>

namespace jotwell {

/// A key pressed while the capture window has the keyboard.
struct WindowKey {
    int key = 0;                ///< what it means in the layout, a Qt::Key
    std::optional<int> keyCode; ///< its place on the keyboard, a virtual key code
    Qt::KeyboardModifiers modifiers;
};

struct ToggleWindow {};
struct InsertCommand {
    Command command;
};

/// What the application does for a key; a key that is none of its own goes to the window's content.
using WindowKeyAction = std::variant<std::monostate, ToggleWindow, InsertCommand>;

[[nodiscard]] WindowKeyAction actionFor(const WindowKey& key);

} // namespace jotwell
