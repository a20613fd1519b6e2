#pragma once

#include "Platform/HotkeyChannels.h"
#include "Platform/linux/PortalPermission.h"
#include "Platform/linux/PosixFileCalls.h"

#include <QPointer>

namespace jotwell {

class PortalShortcuts;
class XcbKeyGrab;

/// The active channel is a key grab of the X server, which needs no permission. The passive one is
/// the desktop's portal; where the grab holds the key the portal isn't asked, so that no user sees
/// a dialog for nothing.
class LinuxHotkeyChannels : public HotkeyChannels {
public:
    LinuxHotkeyChannels();
    ~LinuxHotkeyChannels() override;

    [[nodiscard]] bool isTrusted() const override;
    void askForTrust(const Hotkey& hotkey) override;
    [[nodiscard]] std::unique_ptr<HotkeyChannel> createEventTap(const Hotkey& hotkey,
                                                                TapCallback callback) override;
    [[nodiscard]] std::unique_ptr<HotkeyChannel> addGlobalMonitor(const Hotkey& hotkey,
                                                                  MonitorHandler handler) override;

private:
    PortalShortcuts& portal();

    PosixFileCalls m_files;
    PortalPermission m_permission;
    std::unique_ptr<PortalShortcuts> m_portal; ///< made on first use
    QPointer<XcbKeyGrab> m_grab;               ///< as long as it is held
};

} // namespace jotwell
