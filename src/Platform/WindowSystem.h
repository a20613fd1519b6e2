#pragma once

#include <QRectF>

#include <functional>
#include <optional>

class QKeyEvent;
class QScreen;
class QWindow;

namespace jotwell {

/// What of a window is there: a rounded rectangle, in the window's coordinates.
struct WindowShape {
    QRectF rect;
    double radius = 0;
    double devicePixelRatio = 1;
    bool isCut = false; ///< whether nothing is seen outside it either

    bool operator==(const WindowShape&) const = default;
};

/// What has to be asked of the window system beyond Qt. Main thread only.
class WindowSystem {
public:
    virtual ~WindowSystem() = default;

    /// The screen that has the keyboard focus; else the one with the pointer, else the first.
    /// None if there is no screen at all.
    [[nodiscard]] virtual QScreen* mainScreen() const = 0;

    /// Whether transparent pixels of a window show what lies behind it.
    [[nodiscard]] virtual bool isCompositing() const = 0;

    /// Calls `changed` each time that the answer to `isCompositing` has changed.
    virtual void watchCompositing(std::function<void()> changed) = 0;

    /// Tells the window manager that `window` belongs on all desktops and in no list of windows.
    virtual void makeAccessory(QWindow* window) = 0;

    /// Hands clicks outside `shape` to what lies behind `window`.
    virtual void setShape(QWindow* window, const WindowShape& shape) = 0;

    /// Whether nothing covers `window`, or it can be brought to the front as it is. Where windows
    /// can't be raised, that is the one with the keyboard; any other has to come up anew.
    [[nodiscard]] virtual bool isInFront(const QWindow* window) const = 0;

    /// Gives `window`, which has just been shown, the keyboard, whichever program has it now.
    virtual void activate(QWindow* window) = 0;

    /// The key's place on the keyboard, whatever is engraved there, as a virtual key code; nothing
    /// for keys that no one asks for.
    [[nodiscard]] virtual std::optional<int> keyCode(const QKeyEvent& event) const = 0;
};

} // namespace jotwell
