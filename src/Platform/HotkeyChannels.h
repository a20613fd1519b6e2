#pragma once

#include "Platform/KeyEvent.h"

#include <functional>
#include <memory>

namespace jotwell {

/// A channel that runs; it ends with this.
class HotkeyChannel {
public:
    virtual ~HotkeyChannel() = default;
};

/// The ways in which the desktop tells of one key combination, whichever program has the keyboard.
/// No other key ever reaches the process. Main thread only; nothing here waits.
class HotkeyChannels {
public:
    /// Gets an event and says whether the program with the keyboard may see it too.
    using TapCallback = std::function<bool(const KeyEvent&)>;
    using MonitorHandler = std::function<void(const KeyEvent&)>;

    virtual ~HotkeyChannels() = default;

    /// Whether the user lets this program have a key of the whole desktop.
    [[nodiscard]] virtual bool isTrusted() const = 0;

    /// Asks the user to, for this hotkey; `isTrusted` tells later what came of it.
    virtual void askForTrust(const Hotkey& hotkey) = 0;

    /// The active channel, which takes the key from all other programs; null where there is none or
    /// the key belongs to another program.
    [[nodiscard]] virtual std::unique_ptr<HotkeyChannel> createEventTap(const Hotkey& hotkey,
                                                                        TapCallback callback) = 0;

    /// The passive channel, which only hears of the key; null where there is none.
    [[nodiscard]] virtual std::unique_ptr<HotkeyChannel>
    addGlobalMonitor(const Hotkey& hotkey, MonitorHandler handler) = 0;
};

} // namespace jotwell
