#pragma once

#include "Platform/WindowSystem.h"

#include <QRegion>

#include <xcb/xproto.h>

namespace jotwell {

/// The pixels of a shape, in the window's own pixels.
[[nodiscard]] QRegion pixelsOf(const WindowShape& shape);

/// Lets the window take clicks only in its shape, and cuts it to that if it is to be cut.
void setXcbShape(xcb_window_t window, const WindowShape& shape);

} // namespace jotwell
