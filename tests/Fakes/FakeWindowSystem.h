#pragma once

#include "Platform/WindowSystem.h"

#include <QGuiApplication>
#include <QWindow>

namespace jotwell {

/// A window system with one screen, whose compositor comes and goes.
class FakeWindowSystem : public WindowSystem {
public:
    bool compositing = true;
    bool hasScreen = true;
    int accessories = 0; ///< calls of `makeAccessory`

    [[nodiscard]] QScreen* mainScreen() const override
    {
        return hasScreen ? QGuiApplication::primaryScreen() : nullptr;
    }
    [[nodiscard]] bool isCompositing() const override { return compositing; }
    void makeAccessory(QWindow*) override { ++accessories; }
    void activate(QWindow* window) override { window->requestActivate(); }
};

} // namespace jotwell
