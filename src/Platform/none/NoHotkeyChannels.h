#pragma once

#include "Platform/HotkeyChannels.h"

namespace jotwell {

/// A desktop that has no keys of its own to give.
class NoHotkeyChannels : public HotkeyChannels {
public:
    [[nodiscard]] bool isTrusted() const override { return false; }
    void askForTrust(const Hotkey&) override {}
    [[nodiscard]] std::unique_ptr<HotkeyChannel> createEventTap(const Hotkey&, TapCallback) override
    {
        return nullptr;
    }
    [[nodiscard]] std::unique_ptr<HotkeyChannel> addGlobalMonitor(const Hotkey&,
                                                                  MonitorHandler) override
    {
        return nullptr;
    }
};

} // namespace jotwell
