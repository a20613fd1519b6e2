#pragma once

#include "Models/Command.h"
#include "Platform/KeyEvent.h"

#include <variant>

namespace jotwell {

struct ToggleWindow {};
struct InsertCommand {
    Command command;
};

/// What the application does for a key; a key that is none of its own goes to the window.
using WindowKeyAction = std::variant<std::monostate, ToggleWindow, InsertCommand>;

/// For a key that goes to one of the program's windows, the capture window or another one.
[[nodiscard]] WindowKeyAction actionFor(const KeyEvent& event, const Hotkey& hotkey,
                                        bool captureWindowIsKey);

} // namespace jotwell
