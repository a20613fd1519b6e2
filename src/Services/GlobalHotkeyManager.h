#pragma once

#include "Platform/HotkeyChannels.h"
#include "Services/HotkeyDeduplication.h"

#include <QObject>

#include <optional>

namespace jotwell {

class Scheduler;
class SettingsService;
class ToastManager;

/// Waits for one key combination, whichever program has the keyboard, and calls one handler for it.
/// It listens through two channels at once and takes what both report for one press. Without the
/// user's permission it is idle. Main thread only; what it is made of outlives it.
class GlobalHotkeyManager : public QObject {
    Q_OBJECT

public:
    enum class Channel { eventTap, globalMonitor };

    /// `clock` tells how long ago the last press was, and should not care for changes of the date.
    GlobalHotkeyManager(HotkeyChannels& channels, SettingsService& settings, const Clock& clock,
                        Scheduler& scheduler, ToastManager& toasts);
    ~GlobalHotkeyManager() override;
    [[nodiscard]] static GlobalHotkeyManager& shared();

    /// What a press runs, on a later turn of the event loop.
    void setHotkeyHandler(std::function<void()> handler);
    /// What gets each press at once and instead of the handler, for as long as it is set: the
    /// desktop has taken the key away from whoever would like to see it typed.
    void setHotkeyTaker(std::function<void(const Hotkey&)> taker);

    /// Starts or stops if the permission isn't what it was when last seen.
    void checkAndStartMonitoring();
    /// Asks the user, and looks once a second for what comes of it.
    void requestAccessibilityPermissions();
    /// Whether there is the permission; nobody is asked for it.
    [[nodiscard]] bool checkAccessibilityPermissions() const;
    void startPermissionPolling();

    /// Brings both channels up; one that there isn't is done without.
    void startMonitoring();
    void stopMonitoring();
    /// Whether there is a tap now.
    bool startCGEventTapMonitoring();
    void startNSEventMonitoring();

    /// What the channels call. Only a key going down is of interest to either.
    bool tapCallback(const KeyEvent& event);
    void monitorHandler(const KeyEvent& event);
    /// Gives the event back if it is for others.
    [[nodiscard]] std::optional<KeyEvent> handleCGEvent(const KeyEvent& event);
    void handleNSEvent(const KeyEvent& event);

    /// Whether that key with those modifiers, and no others, is the hotkey.
    [[nodiscard]] bool checkHotkeyMatch(qint64 keyCode, quint64 flags, Channel channel) const;
    /// Takes a press that isn't the last one seen again, and has the handler called.
    void triggerHotkey();

    void loadCustomHotkey();
    /// Stores another hotkey, unchecked, and listens for it if it listened before.
    void updateHotkey(qint64 keyCode, quint64 modifiers);

    [[nodiscard]] bool isEnabled() const { return m_isEnabled; }
    [[nodiscard]] bool hasEventTap() const { return m_eventTap != nullptr; }
    [[nodiscard]] bool hasEventMonitor() const { return m_nsEventMonitor != nullptr; }
    [[nodiscard]] qint64 customKeyCode() const { return m_custom.keyCode; }
    [[nodiscard]] quint64 customModifiers() const { return m_custom.modifiers; }
    [[nodiscard]] bool lastPermissionStatus() const { return m_lastPermissionStatus; }
    [[nodiscard]] bool hasPermissionPollingTimer() const
    {
        return m_permissionPollingTimer != nullptr;
    }
    /// What decides whether a press is one of its own.
    [[nodiscard]] HotkeyDeduplication& deduplication() { return m_deduplication; }

signals:
    /// There is another hotkey, stored and in force.
    void hotkeyUpdated();

private:
    [[nodiscard]] Hotkey target() const;
    void scheduleNextPoll();
    void pollPermission();

    HotkeyChannels& m_channels;
    SettingsService& m_settings;
    const Clock& m_clock;
    Scheduler& m_scheduler;
    ToastManager& m_toasts;

    std::unique_ptr<HotkeyChannel> m_eventTap;
    std::unique_ptr<HotkeyChannel> m_nsEventMonitor;
    bool m_isEnabled = false;
    std::function<void()> m_onHotkeyPressed;
    std::function<void(const Hotkey&)> m_hotkeyTaker;
    Hotkey m_custom; ///< as stored, with its zeros
    bool m_lastPermissionStatus = false;
    std::unique_ptr<QObject> m_permissionPollingTimer; ///< the polls end with it
    HotkeyDeduplication m_deduplication;
};

} // namespace jotwell
