#pragma once

#include "Platform/WindowSystem.h"

namespace jotwell {

/// Asks the X server and the window manager. On other window systems of the same desktop (Wayland)
/// windows are always see-through, and the screen is the pointer's.
class XcbWindowSystem : public WindowSystem {
public:
    [[nodiscard]] QScreen* mainScreen() const override;
    [[nodiscard]] bool isCompositing() const override;
    void makeAccessory(QWindow* window) override;
    void activate(QWindow* window) override;
};

} // namespace jotwell
