#pragma once

#include "Fakes/FakeClock.h"
#include "Fakes/FakeDefaultsStore.h"
#include "Fakes/FakeHotkeyChannels.h"
#include "Fakes/FakeScheduler.h"
#include "Services/GlobalHotkeyManager.h"
#include "Services/LogCapture.h"
#include "Services/SettingsService.h"
#include "Services/ToastLog.h"

#include <gtest/gtest.h>

namespace jotwell {

/// Settings in memory that note down in which order they are written.
class NotedDefaultsStore : public FakeDefaultsStore {
public:
    QStringList writes;

    void setInteger(const QString& key, qint64 value) override
    {
        writes.append(key);
        FakeDefaultsStore::setInteger(key, value);
    }
};

/// A manager on a desktop of the test's own. It is made by the test, which may set the desktop up.
class GlobalHotkeyManagerTest : public testing::Test {
protected:
    static constexpr int keyB = 11;
    static constexpr quint64 commandOption = 1572864;

    void make()
    {
        manager =
            std::make_unique<GlobalHotkeyManager>(channels, settings, clock, scheduler, toasts);
        manager->setHotkeyHandler([this] { ++presses; });
    }

    /// Makes one that monitors, and forgets what it said of that.
    void makeMonitoring()
    {
        channels.trusted = true;
        make();
        log.clear();
    }

    void turnEventLoop() { scheduler.advance(std::chrono::milliseconds(0)); }

    QStringList takeLines()
    {
        QStringList lines = log.prints();
        log.clear();
        return lines;
    }

    static QString line(const QString& message)
    {
        return QStringLiteral("[GlobalHotkeyManager] ") + message;
    }

    static KeyEvent down(int keyCode, quint64 flags = commandOption)
    {
        return {KeyEvent::keyDown, keyCode, flags};
    }

    LogCapture log;
    FakeClock clock;
    FakeScheduler scheduler;
    NotedDefaultsStore defaults;
    FakeHotkeyChannels channels;
    SettingsService settings{defaults, [] { return ObsidianTemplates(); }};
    ToastManager toasts{scheduler};
    ToastLog shown{toasts};
    int presses = 0; ///< calls of the handler
    std::unique_ptr<GlobalHotkeyManager> manager;
};

} // namespace jotwell
