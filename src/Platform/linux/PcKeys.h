#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace jotwell {

// The keys of a PC's keyboard by their places, whatever is engraved there. Scan codes are those of
// X11 and Wayland; key codes are virtual key codes.

/// None for keys that have no virtual key code, as those for media have.
[[nodiscard]] std::optional<int> keyCodeOfScanCode(quint32 scanCode);

/// The keys with that code: none, one, or two if a PC's keyboard has another in its place.
[[nodiscard]] std::vector<quint32> scanCodesOfKeyCode(qint64 keyCode);

/// What the key gives on an American keyboard, as keysyms are named; empty for no key.
[[nodiscard]] QString keysymNameOf(qint64 keyCode);

} // namespace jotwell
