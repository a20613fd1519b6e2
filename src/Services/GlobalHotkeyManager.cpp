#include "Services/GlobalHotkeyManager.h"

#include "Platform/Scheduler.h"
#include "Services/SettingsService.h"
#include "Services/ToastManager.h"
#include "Support/Logging.h"

namespace jotwell {

using namespace std::chrono_literals;

namespace {

constexpr auto pollInterval = 1000ms;

void print(const QString& message)
{
    printLine(QStringLiteral("[GlobalHotkeyManager] ") + message);
}

QString nameOf(GlobalHotkeyManager::Channel channel)
{
    return channel == GlobalHotkeyManager::Channel::eventTap ? QStringLiteral("CGEvent")
                                                             : QStringLiteral("NSEvent");
}

void printEvent(const KeyEvent& event, GlobalHotkeyManager::Channel channel)
{
    print(QStringLiteral("%1: keyCode=%2, flags=%3")
              .arg(nameOf(channel))
              .arg(event.keyCode)
              .arg(event.flags));
}

void printDetected(GlobalHotkeyManager::Channel channel)
{
    print(QStringLiteral("Hotkey detected via ") + nameOf(channel));
}

void printOutcome(bool matches, qint64 keyCode, quint64 current, quint64 target)
{
    const QString text = matches
                             ? QStringLiteral("✅ MATCH FOUND! - keyCode: %1==%1, modifiers: %2==%3")
                             : QStringLiteral("No match - keyCode: %1==%1 ✓, modifiers: %2==%3 ✗");
    print(text.arg(keyCode).arg(current).arg(target));
}

} // namespace

GlobalHotkeyManager::GlobalHotkeyManager(HotkeyChannels& channels, SettingsService& settings,
                                         const Clock& clock, Scheduler& scheduler,
                                         ToastManager& toasts)
    : m_channels(channels), m_settings(settings), m_clock(clock), m_scheduler(scheduler),
      m_toasts(toasts)
{
    loadCustomHotkey();
    checkAndStartMonitoring();
}

GlobalHotkeyManager::~GlobalHotkeyManager()
{
    m_permissionPollingTimer.reset();
    stopMonitoring();
}

void GlobalHotkeyManager::setHotkeyHandler(std::function<void()> handler)
{
    m_onHotkeyPressed = std::move(handler);
}

void GlobalHotkeyManager::setHotkeyTaker(std::function<void(const Hotkey&)> taker)
{
    m_hotkeyTaker = std::move(taker);
}

void GlobalHotkeyManager::checkAndStartMonitoring()
{
    const bool isGranted = checkAccessibilityPermissions();
    if (isGranted == m_lastPermissionStatus)
        return;
    m_lastPermissionStatus = isGranted;
    if (isGranted) {
        print(QStringLiteral("Accessibility permissions granted"));
        startMonitoring();
    } else {
        print(QStringLiteral("Accessibility permissions not granted"));
        stopMonitoring();
    }
}

void GlobalHotkeyManager::requestAccessibilityPermissions()
{
    m_channels.askForTrust(target());
    startPermissionPolling();
}

bool GlobalHotkeyManager::checkAccessibilityPermissions() const
{
    return m_channels.isTrusted();
}

void GlobalHotkeyManager::startPermissionPolling()
{
    m_permissionPollingTimer = std::make_unique<QObject>();
    scheduleNextPoll();
}

void GlobalHotkeyManager::scheduleNextPoll()
{
    m_scheduler.after(pollInterval, m_permissionPollingTimer.get(), [this] {
        scheduleNextPoll();
        pollPermission();
    });
}

void GlobalHotkeyManager::pollPermission()
{
    const bool isGranted = checkAccessibilityPermissions();
    if (isGranted == m_lastPermissionStatus)
        return;
    m_lastPermissionStatus = isGranted;
    if (!isGranted)
        return;
    print(QStringLiteral("Accessibility permissions have been granted!"));
    m_permissionPollingTimer.reset();
    startMonitoring();
    m_toasts.showSuccess(
        QStringLiteral("Accessibility permissions granted! Global hotkey is now active."));
}

void GlobalHotkeyManager::startMonitoring()
{
    if (m_isEnabled)
        return;
    const bool hasTap = startCGEventTapMonitoring();
    startNSEventMonitoring();
    print(hasTap ? QStringLiteral(
                       "Using dual monitoring (CGEvent + NSEvent) for maximum compatibility")
                 : QStringLiteral("Using NSEvent monitoring only"));
    m_isEnabled = true;
}

bool GlobalHotkeyManager::startCGEventTapMonitoring()
{
    m_eventTap = m_channels.createEventTap(
        target(), [this](const KeyEvent& event) { return tapCallback(event); });
    if (!m_eventTap) {
        print(QStringLiteral("Failed to create CGEvent tap"));
        return false;
    }
    print(QStringLiteral("CGEvent tap monitoring started (keyDown + flagsChanged)"));
    return true;
}

void GlobalHotkeyManager::startNSEventMonitoring()
{
    m_nsEventMonitor = m_channels.addGlobalMonitor(
        target(), [this](const KeyEvent& event) { monitorHandler(event); });
    print(QStringLiteral("NSEvent global monitoring started (keyDown + flagsChanged)"));
}

void GlobalHotkeyManager::stopMonitoring()
{
    if (!m_isEnabled)
        return;
    m_eventTap.reset();
    m_nsEventMonitor.reset();
    m_isEnabled = false;
    print(QStringLiteral("Global hotkey monitoring stopped"));
}

bool GlobalHotkeyManager::tapCallback(const KeyEvent& event)
{
    return event.type != KeyEvent::keyDown || handleCGEvent(event).has_value();
}

void GlobalHotkeyManager::monitorHandler(const KeyEvent& event)
{
    if (event.type == KeyEvent::keyDown)
        handleNSEvent(event);
}

std::optional<KeyEvent> GlobalHotkeyManager::handleCGEvent(const KeyEvent& event)
{
    printEvent(event, Channel::eventTap);
    if (!checkHotkeyMatch(event.keyCode, event.flags, Channel::eventTap))
        return event;
    printDetected(Channel::eventTap);
    triggerHotkey();
    return std::nullopt;
}

void GlobalHotkeyManager::handleNSEvent(const KeyEvent& event)
{
    printEvent(event, Channel::globalMonitor);
    if (!checkHotkeyMatch(event.keyCode, event.flags, Channel::globalMonitor))
        return;
    printDetected(Channel::globalMonitor);
    triggerHotkey();
}

// A stored zero, or a key code below it, is no choice of the user's.
Hotkey GlobalHotkeyManager::target() const
{
    return {m_custom.keyCode >= 1 ? m_custom.keyCode : defaultHotkey.keyCode,
            m_custom.modifiers != 0 ? m_custom.modifiers : defaultHotkey.modifiers};
}

bool GlobalHotkeyManager::checkHotkeyMatch(qint64 keyCode, quint64 flags, Channel channel) const
{
    const Hotkey hotkey = target();
    if (keyCode != hotkey.keyCode)
        return false;
    const quint64 current = flags & ModifierBit::all;
    print(QStringLiteral("%1 flags check - target: %2, current: %3")
              .arg(nameOf(channel))
              .arg(hotkey.modifiers)
              .arg(current));
    const bool matches = current == hotkey.modifiers;
    printOutcome(matches, keyCode, current, hotkey.modifiers);
    return matches;
}

// The channel isn't kept waiting for what the handler does.
void GlobalHotkeyManager::triggerHotkey()
{
    if (m_hotkeyTaker) {
        m_hotkeyTaker(target());
        return;
    }
    if (!m_deduplication.accept(m_clock.now()))
        return;
    m_scheduler.after({}, this, [this] {
        if (m_onHotkeyPressed)
            m_onHotkeyPressed();
    });
}

void GlobalHotkeyManager::loadCustomHotkey()
{
    m_custom = {m_settings.globalHotkeyCode(), m_settings.globalHotkeyModifiers()};
    print(QStringLiteral("Loaded settings - keyCode: %1, modifiers: %2")
              .arg(m_custom.keyCode)
              .arg(m_custom.modifiers));
}

void GlobalHotkeyManager::updateHotkey(qint64 keyCode, quint64 modifiers)
{
    m_custom = {keyCode, modifiers};
    m_settings.setGlobalHotkeyCode(keyCode);
    m_settings.setGlobalHotkeyModifiers(modifiers);
    if (m_isEnabled) {
        stopMonitoring();
        startMonitoring();
    }
    emit hotkeyUpdated();
}

} // namespace jotwell
