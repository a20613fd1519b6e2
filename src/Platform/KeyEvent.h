#pragma once

#include <QtGlobal>

namespace jotwell {

/// The modifier bits of a key event; no others count.
namespace ModifierBit {
constexpr quint64 shift = 0x20000;
constexpr quint64 control = 0x40000;
constexpr quint64 option = 0x80000;
constexpr quint64 command = 0x100000;
constexpr quint64 all = shift | control | option | command;
} // namespace ModifierBit

/// What the keyboard did. Key codes are places on the keyboard, numbered as virtual key codes.
struct KeyEvent {
    static constexpr int keyDown = 10;
    static constexpr int flagsChanged = 12;

    int type = keyDown;
    int keyCode = 0;
    quint64 flags = 0; ///< the modifiers held, and bits that don't count

    bool operator==(const KeyEvent&) const = default;
};

/// A key and the modifiers to be held with it.
struct Hotkey {
    qint64 keyCode = 0;
    quint64 modifiers = 0;

    bool operator==(const Hotkey&) const = default;
};

/// What the user who has chosen none has: B with Command and Option.
inline constexpr Hotkey defaultHotkey{11, ModifierBit::command | ModifierBit::option};

} // namespace jotwell
