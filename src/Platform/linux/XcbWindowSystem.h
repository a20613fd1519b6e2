#pragma once

#include "Platform/WindowSystem.h"
#include "Platform/linux/XcbSelectionWatch.h"

namespace jotwell {

/// Asks the X server and the window manager. On other window systems of the same desktop (Wayland)
/// windows are always see-through, and the screen is the pointer's.
class XcbWindowSystem : public WindowSystem {
public:
    XcbWindowSystem();

    [[nodiscard]] QScreen* mainScreen() const override;
    [[nodiscard]] bool isCompositing() const override;
    void watchCompositing(std::function<void()> changed) override;
    void makeAccessory(QWindow* window) override;
    void setShape(QWindow* window, const WindowShape& shape) override;
    [[nodiscard]] bool isInFront(const QWindow* window) const override;
    void activate(QWindow* window) override;
    [[nodiscard]] std::optional<int> keyCode(const QKeyEvent& event) const override;

private:
    XcbSelectionWatch m_selections;
};

} // namespace jotwell
