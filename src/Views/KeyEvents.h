#pragma once

#include "Platform/KeyEvent.h"

#include <Qt>

class QKeyEvent;

namespace jotwell {

class WindowSystem;

/// The modifier bits of what is held: Ctrl is the command bit, Super the control bit.
[[nodiscard]] quint64 modifierFlags(Qt::KeyboardModifiers modifiers);

/// A key pressed in one of the program's windows. One whose place nobody asks for has a key code
/// below zero; Escape is where the layout has it. A modifier's own key is a change of the flags.
[[nodiscard]] KeyEvent keyEventOf(const QKeyEvent& event, const WindowSystem& windowSystem);

} // namespace jotwell
