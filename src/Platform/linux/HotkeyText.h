#pragma once

#include "Platform/KeyEvent.h"

#include <QString>

namespace jotwell {

/// The hotkey as the desktop's portals have it, "CTRL+ALT+b"; empty for a key that no keyboard has.
[[nodiscard]] QString triggerOf(const Hotkey& hotkey);

/// The hotkey in the words on the keys, "Ctrl+Alt+B".
[[nodiscard]] QString wordsOf(const Hotkey& hotkey);

} // namespace jotwell
