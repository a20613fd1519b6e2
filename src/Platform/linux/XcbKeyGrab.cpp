#include "Platform/linux/XcbKeyGrab.h"

#include "Platform/linux/HotkeyText.h"
#include "Platform/linux/PcKeys.h"

#include <QSocketNotifier>
#include <QTimer>

#include <cstdio>

namespace jotwell {

namespace {

void complainOf(const Hotkey& hotkey)
{
    std::fprintf(stderr, "jotwell: The hotkey %s belongs to another program\n",
                 qPrintable(wordsOf(hotkey)));
}

} // namespace

std::unique_ptr<XcbKeyGrab> XcbKeyGrab::create(const Hotkey& hotkey,
                                               HotkeyChannels::TapCallback callback)
{
    std::unique_ptr<XcbKeyGrab> grab(new XcbKeyGrab(hotkey, std::move(callback)));
    return grab->hasKeys() ? std::move(grab) : nullptr;
}

XcbKeyGrab::XcbKeyGrab(const Hotkey& hotkey, HotkeyChannels::TapCallback callback)
    : m_hotkey(hotkey), m_callback(std::move(callback)), m_modifiers({})
{
    int screenNumber = 0;
    m_connection.reset(xcb_connect(nullptr, &screenNumber));
    if (xcb_connection_has_error(m_connection.get()))
        return;
    m_root = xcbRootOf(m_connection.get(), screenNumber);
    grabWanted();
    if (hasKeys())
        watchConnection();
}

// The key is free when this comes back: it may be wanted again at once.
XcbKeyGrab::~XcbKeyGrab()
{
    release(m_keys);
}

std::vector<XcbKeyGrab::Key> XcbKeyGrab::wantedKeys() const
{
    std::vector<Key> keys;
    if (m_hotkey.modifiers & ~ModifierBit::all)
        return keys; // nobody can hold what isn't there
    const auto* setup = xcb_get_setup(m_connection.get());
    for (const quint32 scanCode : scanCodesOfKeyCode(m_hotkey.keyCode)) {
        if (scanCode < setup->min_keycode || scanCode > setup->max_keycode)
            continue;
        for (const uint16_t state : m_modifiers.statesFor(m_hotkey.modifiers))
            keys.push_back({static_cast<xcb_keycode_t>(scanCode), state});
    }
    return keys;
}

// What is the same by another map is kept, so that nobody can take it in between.
void XcbKeyGrab::grabWanted()
{
    m_modifiers = XcbModifiers::of(m_connection.get());
    const std::vector<Key> wanted = wantedKeys();
    if (wanted == m_keys)
        return;
    release(std::exchange(m_keys, {}));
    if (grab(wanted))
        m_keys = wanted;
    else if (!xcb_connection_has_error(m_connection.get()))
        complainOf(m_hotkey);
}

// All of them or none.
bool XcbKeyGrab::grab(const std::vector<Key>& keys)
{
    auto* connection = m_connection.get();
    std::vector<xcb_void_cookie_t> cookies;
    for (const Key& key : keys)
        cookies.push_back(xcb_grab_key_checked(connection, 0, m_root, key.state, key.keycode,
                                               XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    bool isRefused = false;
    for (const auto cookie : cookies) {
        const XcbReply<xcb_generic_error_t> error(xcb_request_check(connection, cookie));
        isRefused = isRefused || error;
    }
    if (isRefused)
        release(keys);
    return !isRefused && !xcb_connection_has_error(connection);
}

void XcbKeyGrab::release(const std::vector<Key>& keys)
{
    if (keys.empty())
        return;
    auto* connection = m_connection.get();
    for (const Key& key : keys)
        xcb_ungrab_key(connection, key.keycode, m_root, key.state);
    const XcbReply<xcb_get_input_focus_reply_t> done(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

void XcbKeyGrab::watchConnection()
{
    m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection.get()),
                                                   QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] { readEvents(); });
    // What came with the answers of before is no longer in the socket.
    QTimer::singleShot(0, this, [this] { readEvents(); });
}

void XcbKeyGrab::readEvents()
{
    auto* connection = m_connection.get();
    bool isMapChanged = false;
    while (const XcbReply<xcb_generic_event_t> event{xcb_poll_for_event(connection)}) {
        constexpr uint8_t sentByClient = 0x80; // which nobody's key did
        if (event->response_type == XCB_KEY_PRESS)
            press(reinterpret_cast<const xcb_key_press_event_t&>(*event));
        isMapChanged |= (event->response_type & ~sentByClient) == XCB_MAPPING_NOTIFY;
    }
    if (isMapChanged) {
        grabWanted();
        QTimer::singleShot(0, this, [this] { readEvents(); });
    }
    // A lost connection would be readable for ever.
    if (xcb_connection_has_error(connection))
        m_notifier->setEnabled(false);
}

void XcbKeyGrab::press(const xcb_key_press_event_t& event)
{
    if (const auto keyCode = keyCodeOfScanCode(event.detail))
        m_callback({KeyEvent::keyDown, *keyCode, m_modifiers.flagsOf(event.state)});
}

} // namespace jotwell
