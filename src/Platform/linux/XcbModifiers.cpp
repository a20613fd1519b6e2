#include "Platform/linux/XcbModifiers.h"

#include "Platform/KeyEvent.h"
#include "Platform/linux/XcbConnection.h"

#include <algorithm>
#include <initializer_list>

#include <xkbcommon/xkbcommon-keysyms.h>

namespace jotwell {

namespace {

// Shift, Lock and Control are what they are, whatever keys they have.
constexpr std::size_t firstWithoutMeaning = 3;

uint16_t maskWith(const XcbModifiers::Keysyms& keysyms, std::initializer_list<xcb_keysym_t> any)
{
    for (std::size_t each = firstWithoutMeaning; each < keysyms.size(); ++each) {
        if (std::ranges::find_first_of(keysyms[each], any) != keysyms[each].end())
            return static_cast<uint16_t>(1U << each);
    }
    return 0;
}

struct KeyboardMap {
    xcb_keycode_t first;
    XcbReply<xcb_get_keyboard_mapping_reply_t> reply;

    [[nodiscard]] std::vector<xcb_keysym_t> keysymsOf(xcb_keycode_t keycode) const
    {
        const int width = reply->keysyms_per_keycode;
        const int begin = (keycode - first) * width;
        if (begin < 0 || begin + width > xcb_get_keyboard_mapping_keysyms_length(reply.get()))
            return {};
        const auto* keysyms = xcb_get_keyboard_mapping_keysyms(reply.get()) + begin;
        return {keysyms, keysyms + width};
    }
};

KeyboardMap keyboardMapOf(xcb_connection_t* connection)
{
    const auto* setup = xcb_get_setup(connection);
    const auto first = setup->min_keycode;
    const auto count = static_cast<uint8_t>(setup->max_keycode - first + 1);
    const auto cookie = xcb_get_keyboard_mapping(connection, first, count);
    return {first, XcbReply<xcb_get_keyboard_mapping_reply_t>(
                       xcb_get_keyboard_mapping_reply(connection, cookie, nullptr))};
}

} // namespace

XcbModifiers::XcbModifiers(const Keysyms& keysyms)
    : m_modifiers{Modifier{ModifierBit::shift, XCB_MOD_MASK_SHIFT},
                  Modifier{ModifierBit::command, XCB_MOD_MASK_CONTROL},
                  Modifier{ModifierBit::option, maskWith(keysyms, {XKB_KEY_Alt_L, XKB_KEY_Alt_R})},
                  Modifier{ModifierBit::control,
                           maskWith(keysyms, {XKB_KEY_Super_L, XKB_KEY_Super_R})}},
      m_locks{XCB_MOD_MASK_LOCK}
{
    uint16_t taken = XCB_MOD_MASK_LOCK;
    for (const Modifier& modifier : m_modifiers)
        taken |= modifier.mask;
    for (const xcb_keysym_t lock : {XKB_KEY_Num_Lock, XKB_KEY_Scroll_Lock}) {
        const uint16_t mask = maskWith(keysyms, {lock}) & ~taken;
        taken |= mask;
        if (mask)
            m_locks.push_back(mask);
    }
}

XcbModifiers XcbModifiers::of(xcb_connection_t* connection)
{
    const KeyboardMap map = keyboardMapOf(connection);
    const XcbReply<xcb_get_modifier_mapping_reply_t> reply(
        xcb_get_modifier_mapping_reply(connection, xcb_get_modifier_mapping(connection), nullptr));
    Keysyms keysyms;
    if (!reply || !map.reply)
        return XcbModifiers(keysyms);
    const auto* keycodes = xcb_get_modifier_mapping_keycodes(reply.get());
    for (auto& each : keysyms) {
        for (int key = 0; key < reply->keycodes_per_modifier; ++key) {
            const auto found = map.keysymsOf(*keycodes++);
            each.insert(each.end(), found.begin(), found.end());
        }
    }
    return XcbModifiers(keysyms);
}

std::vector<uint16_t> XcbModifiers::statesFor(quint64 flags) const
{
    uint16_t held = 0;
    for (const Modifier& modifier : m_modifiers) {
        if ((flags & modifier.flag) && !modifier.mask)
            return {};
        if (flags & modifier.flag)
            held |= modifier.mask;
    }
    std::vector<uint16_t> states{held};
    for (const uint16_t lock : m_locks) {
        const auto count = states.size();
        for (std::size_t each = 0; each < count; ++each)
            states.push_back(states[each] | lock);
    }
    return states;
}

quint64 XcbModifiers::flagsOf(uint16_t state) const
{
    quint64 flags = 0;
    for (const Modifier& modifier : m_modifiers) {
        if (state & modifier.mask)
            flags |= modifier.flag;
    }
    return flags;
}

} // namespace jotwell
