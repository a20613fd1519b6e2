#pragma once

#include "Platform/HotkeyChannels.h"
#include "Platform/linux/XcbConnection.h"
#include "Platform/linux/XcbModifiers.h"

#include <QObject>

#include <memory>
#include <vector>

class QSocketNotifier;

namespace jotwell {

/// Has the X server hand one key combination to this program instead of to the one with the
/// keyboard, over a connection of its own. The key is known by its place, the modifiers by the
/// user's keyboard map, and locks don't matter. Main thread.
class XcbKeyGrab : public QObject, public HotkeyChannel {
public:
    /// Null if there is no such server or no such key, or if another program has the key; that is
    /// told on standard error.
    [[nodiscard]] static std::unique_ptr<XcbKeyGrab> create(const Hotkey& hotkey,
                                                            HotkeyChannels::TapCallback callback);
    ~XcbKeyGrab() override;

private:
    struct Key {
        xcb_keycode_t keycode;
        uint16_t state;

        bool operator==(const Key&) const = default;
    };

    XcbKeyGrab(const Hotkey& hotkey, HotkeyChannels::TapCallback callback);

    [[nodiscard]] bool hasKeys() const { return !m_keys.empty(); }
    [[nodiscard]] std::vector<Key> wantedKeys() const;
    void grabWanted();
    [[nodiscard]] bool grab(const std::vector<Key>& keys);
    void release(const std::vector<Key>& keys);
    void watchConnection();
    void readEvents();
    void press(const xcb_key_press_event_t& event);

    const Hotkey m_hotkey;
    const HotkeyChannels::TapCallback m_callback;
    OwnXcbConnection m_connection;
    xcb_window_t m_root = XCB_WINDOW_NONE;
    XcbModifiers m_modifiers;
    std::vector<Key> m_keys; ///< what is held
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace jotwell
