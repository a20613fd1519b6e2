#pragma once

#include <QtGlobal>

#include <optional>

namespace jotwell {

/// The virtual key code of the key with that scan code, as X11 and Wayland give it, for the keys
/// that mean something in the capture window.
[[nodiscard]] std::optional<int> keyCodeOfScanCode(quint32 scanCode);

} // namespace jotwell
