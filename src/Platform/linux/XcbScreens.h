#pragma once

class QScreen;

namespace jotwell {

/// The screen on which most of the active window is; null if the window manager names none.
[[nodiscard]] QScreen* xcbScreenWithFocus();

} // namespace jotwell
