#pragma once

#include <QObject>
#include <QString>

#include <memory>

class QSessionManager;

namespace jotwell {

class FloatingWindow;
class FloatingWindowView;
class FolderPanel;
class InstanceDoor;
class LocalKeyMonitor;
class Scheduler;
class SecondaryWindow;
class SettingsService;
class SettingsWindowController;
class StatusItem;
class TerminationSignals;
class WindowSystem;
struct Platform;

/// What the desktop has for a program as a whole.
struct Desktop {
    InstanceDoor& door;
    StatusItem& statusItem;
    WindowSystem& windows;
    TerminationSignals& terminationSignals;
    FolderPanel& folders;
};

/// Owns what lives at application level: the status item's menu, the capture window, and the roads
/// by which the program is started, toggled and ended. Main thread; one to a program.
class AppDelegate : public QObject {
    Q_OBJECT

public:
    /// Everything named here must outlive the delegate. Work in the platform's background is
    /// finished before the program ends.
    AppDelegate(Desktop desktop, const Platform& platform);
    ~AppDelegate() override;

    /// The start-up sequence; call it once, before the event loop runs.
    void applicationDidFinishLaunching();

    /// Shows or hides the capture window, on a later turn of the event loop.
    void toggleFloatingWindow();
    /// Shows the settings window, on the screen of the global hotkey if it isn't open yet.
    void showSettings();
    /// The same on the screen of that entry of the sidebar.
    void showSettingsWithTab(const QString& tab);
    /// Builds the status item's menu anew.
    void refreshMenuBar();
    /// Ends the event loop with status 0 once what is being written has been written.
    void terminate();

    /// What becomes of the keys that go to the program's windows.
    [[nodiscard]] LocalKeyMonitor& localKeyMonitor() { return *m_localKeyMonitor; }

    /// Catches the desktop's wish to end the program.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setupHotkey();
    void startIndex();
    void warnOfMissingPermission();
    void setupStatusItem();
    void activate();
    void setupNotifications();
    void setupFloatingWindow();
    void setupLocalKeyMonitor();
    void hideFloatingWindow();
    void performToggleFloatingWindow();
    void showOnboarding();
    void onboardingWillClose();
    void setupTermination();
    void performAction(const QString& name);
    void quitWhenIdle(int idleTurns, int turnsLeft);
    void finishBackgroundWork();
    void storeSettings();

    Desktop m_desktop;
    const Platform& m_platform;
    Scheduler& m_scheduler;
    SettingsService& m_settings;
    std::unique_ptr<FloatingWindowView> m_floatingWindowView;
    std::unique_ptr<FloatingWindow> m_floatingWindow;
    std::unique_ptr<LocalKeyMonitor> m_localKeyMonitor; ///< watches the window, and goes first
    std::unique_ptr<SettingsWindowController> m_settingsWindow;
    std::unique_ptr<SecondaryWindow> m_onboardingWindow;
    bool m_isTerminating = false;
};

} // namespace jotwell
