#pragma once

#include "Platform/WindowSystem.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QWindow>

#include <utility>

namespace jotwell {

/// A window system with one screen, whose compositor comes and goes, and with a keyboard whose scan
/// codes are the virtual key codes.
class FakeWindowSystem : public WindowSystem {
public:
    bool hasScreen = true;
    bool coversWindows = false; ///< with another program's, until one is shown
    int accessories = 0;        ///< calls of `makeAccessory`
    int shapes = 0;             ///< calls of `setShape`
    WindowShape shape;          ///< of the last of them

    void setCompositing(bool compositing)
    {
        if (std::exchange(m_isCompositing, compositing) != compositing && m_changed)
            m_changed();
    }

    [[nodiscard]] QScreen* mainScreen() const override
    {
        return hasScreen ? QGuiApplication::primaryScreen() : nullptr;
    }
    [[nodiscard]] bool isCompositing() const override { return m_isCompositing; }
    void watchCompositing(std::function<void()> changed) override
    {
        m_changed = std::move(changed);
    }
    void makeAccessory(QWindow*) override { ++accessories; }
    void setShape(QWindow*, const WindowShape& its) override
    {
        ++shapes;
        shape = its;
    }
    [[nodiscard]] bool isInFront(const QWindow*) const override { return !coversWindows; }
    void activate(QWindow* window) override
    {
        coversWindows = false;
        window->requestActivate();
    }
    [[nodiscard]] std::optional<int> keyCode(const QKeyEvent& event) const override
    {
        return static_cast<int>(event.nativeScanCode());
    }

private:
    bool m_isCompositing = true;
    std::function<void()> m_changed;
};

} // namespace jotwell
