#include "Platform/linux/LinuxHotkeyChannels.h"

#include "Platform/linux/KeyboardSettings.h"
#include "Platform/linux/PortalShortcuts.h"
#include "Platform/linux/StateFolder.h"
#include "Platform/linux/XcbConnection.h"
#include "Platform/linux/XcbKeyGrab.h"

namespace jotwell {

namespace {

// The X server of a Wayland session sees only the keys that go to its own windows.
bool hasKeysOfServer()
{
    return xcbConnection() && qgetenv("XDG_SESSION_TYPE") != "wayland";
}

} // namespace

LinuxHotkeyChannels::LinuxHotkeyChannels()
    : m_permission(stateFile(QStringLiteral("global-hotkey-allowed")), m_files)
{
}

LinuxHotkeyChannels::~LinuxHotkeyChannels() = default;

bool LinuxHotkeyChannels::isTrusted() const
{
    return hasKeysOfServer() || m_permission.isGiven();
}

void LinuxHotkeyChannels::askForTrust(const Hotkey& hotkey)
{
    if (!hasKeysOfServer())
        portal().ask(hotkey, openKeyboardSettings);
}

std::unique_ptr<HotkeyChannel> LinuxHotkeyChannels::createEventTap(const Hotkey& hotkey,
                                                                   TapCallback callback)
{
    if (!hasKeysOfServer())
        return nullptr;
    auto grab = XcbKeyGrab::create(hotkey, std::move(callback));
    m_grab = grab.get();
    return grab;
}

std::unique_ptr<HotkeyChannel> LinuxHotkeyChannels::addGlobalMonitor(const Hotkey& hotkey,
                                                                     MonitorHandler handler)
{
    return m_grab ? nullptr : portal().listen(hotkey, std::move(handler));
}

PortalShortcuts& LinuxHotkeyChannels::portal()
{
    if (!m_portal)
        m_portal = std::make_unique<PortalShortcuts>(m_permission);
    return *m_portal;
}

} // namespace jotwell
