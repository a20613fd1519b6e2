#pragma once

#include "Models/Command.h"
#include "Platform/KeyEvent.h"

#include <QObject>

namespace jotwell {

class FloatingWindow;
class Scheduler;
class SettingsService;
class WindowSystem;

/// Sees the keys that go to the program's windows before the windows do, and takes those that are
/// the application's own. Main thread; what it is made of outlives it.
class LocalKeyMonitor : public QObject {
    Q_OBJECT

public:
    LocalKeyMonitor(const SettingsService& settings, Scheduler& scheduler,
                    const WindowSystem& windowSystem);

    /// Begins to watch. The window must outlive the monitor.
    void watch(const FloatingWindow& captureWindow);

    /// Whether the key is consumed. What it does is done on a later turn of the event loop, but for
    /// the commands.
    bool handleKeyDown(const KeyEvent& event, bool captureWindowIsKey);

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    /// The key was pressed in the capture window, which is to hide.
    void hideRequested();
    /// The key was pressed in another window of the program.
    void toggleRequested();
    void insertCommand(jotwell::Command command);

private:
    void requestToggle(bool captureWindowIsKey);

    const SettingsService& m_settings;
    Scheduler& m_scheduler;
    const WindowSystem& m_windowSystem;
    const FloatingWindow* m_captureWindow = nullptr;
};

} // namespace jotwell
