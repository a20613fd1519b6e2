#pragma once

class QScreen;
class QWindow;

namespace jotwell {

/// What has to be asked of the window system beyond Qt. Main thread only.
class WindowSystem {
public:
    virtual ~WindowSystem() = default;

    /// The screen that has the keyboard focus; else the one with the pointer, else the first.
    /// None if there is no screen at all.
    [[nodiscard]] virtual QScreen* mainScreen() const = 0;

    /// Whether transparent pixels of a window show what lies behind it.
    [[nodiscard]] virtual bool isCompositing() const = 0;

    /// Tells the window manager that `window` belongs on all desktops and in no list of windows.
    virtual void makeAccessory(QWindow* window) = 0;

    /// Gives `window`, which has just been shown, the keyboard, whichever program has it now.
    virtual void activate(QWindow* window) = 0;
};

} // namespace jotwell
