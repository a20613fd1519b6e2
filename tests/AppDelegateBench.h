#pragma once

#include "AppDelegate.h"
#include "Fakes/FakeDesktop.h"
#include "Fakes/FakePlatform.h"
#include "Services/SettingsService.h"
#include "Services/SharedServices.h"
#include "Services/TagIndexService.h"
#include "Services/ToastLog.h"
#include "Views/FloatingWindow.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickView>
#include <QSemaphore>
#include <QTimer>

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace jotwell {

using namespace std::chrono_literals;

/// The application over its shared services and a desktop of our own.
class AppDelegateBench : public testing::Test {
protected:
    AppDelegateBench()
    {
        installPlatform(fake.platform);
        toasts.emplace(ToastManager::shared());
        fake.hotkeys.trusted = true;
        settings().setOnboardingCompleted(true);
    }
    ~AppDelegateBench() override
    {
        delegate.reset();
        fake.background.waitForDone();
        fake.bulk.waitForDone();
        QCoreApplication::processEvents();
        releaseSharedServices();
    }

    static SettingsService& settings() { return SettingsService::shared(); }

    /// What was put off to a later turn is still to come.
    void start()
    {
        delegate =
            std::make_unique<AppDelegate>(Desktop{desktop.door, desktop.statusItem, desktop.windows,
                                                  desktop.terminationSignals, desktop.folders},
                                          fake.platform);
        delegate->applicationDidFinishLaunching();
    }

    void launch()
    {
        start();
        turn();
    }

    /// Lets what was put off to the next turns of the event loop happen.
    void turn() { fake.scheduler.advance(0ms); }

    static FloatingWindow* floatingWindow()
    {
        for (QWindow* window : QGuiApplication::topLevelWindows()) {
            if (auto* floating = qobject_cast<FloatingWindow*>(window))
                return floating;
        }
        return nullptr;
    }

    static bool isWindowShown()
    {
        const FloatingWindow* const floating = floatingWindow();
        return floating && floating->isOnScreen();
    }

    template <typename View>
    static View& viewOf(QWindow* window)
    {
        return *qobject_cast<QQuickView*>(window)->rootObject()->property("view").value<View*>();
    }

    /// The status with which the program ends when it is asked to while something is being
    /// written; none if it doesn't wait for that.
    std::optional<int> endOf(const std::function<void()>& ask)
    {
        constexpr auto patience = 10s;
        QSemaphore written;
        const QObject context;
        bool hasWaited = false;
        fake.background.start([&] { written.acquire(); });
        const auto finishWriting = [&] {
            hasWaited = true;
            written.release();
            fake.background.waitForDone();
            fake.scheduler.advance(100ms);
        };
        QTimer::singleShot(0, &context, [&] {
            ask();
            fake.scheduler.advance(1s);
            QTimer::singleShot(50ms, &context, finishWriting);
        });
        QTimer::singleShot(patience, &context, [] { QCoreApplication::exit(-1); });
        const int status = QCoreApplication::exec();
        written.release();
        return hasWaited ? std::optional(status) : std::nullopt;
    }

    static QWindow* windowCalled(const char* title)
    {
        for (QWindow* window : QGuiApplication::topLevelWindows()) {
            if (window->title() == QLatin1String(title))
                return window;
        }
        return nullptr;
    }

    const MenuEntry& entry(std::size_t index) { return desktop.statusItem.menu.at(index); }

    FakePlatform fake;
    FakeDesktop desktop;
    std::optional<ToastLog> toasts;
    std::unique_ptr<AppDelegate> delegate;
};

} // namespace jotwell
