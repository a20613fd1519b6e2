#include "Platform/linux/PcKeys.h"

#include <algorithm>
#include <array>

#include <linux/input-event-codes.h>

namespace jotwell {

namespace {

struct PcKey {
    quint32 evdevCode;
    int keyCode;
    const char* keysymName;
};

// Sorted by key code. Ctrl stands where the command key is meant and Super where the control key
// is. Print, Scroll Lock and Pause are what F13 to F15 are on other keyboards: the first of two
// names the key.
constexpr std::array pcKeys{
    PcKey{KEY_A, 0, "a"},
    PcKey{KEY_S, 1, "s"},
    PcKey{KEY_D, 2, "d"},
    PcKey{KEY_F, 3, "f"},
    PcKey{KEY_H, 4, "h"},
    PcKey{KEY_G, 5, "g"},
    PcKey{KEY_Z, 6, "z"},
    PcKey{KEY_X, 7, "x"},
    PcKey{KEY_C, 8, "c"},
    PcKey{KEY_V, 9, "v"},
    PcKey{KEY_102ND, 10, "less"},
    PcKey{KEY_B, 11, "b"},
    PcKey{KEY_Q, 12, "q"},
    PcKey{KEY_W, 13, "w"},
    PcKey{KEY_E, 14, "e"},
    PcKey{KEY_R, 15, "r"},
    PcKey{KEY_Y, 16, "y"},
    PcKey{KEY_T, 17, "t"},
    PcKey{KEY_1, 18, "1"},
    PcKey{KEY_2, 19, "2"},
    PcKey{KEY_3, 20, "3"},
    PcKey{KEY_4, 21, "4"},
    PcKey{KEY_6, 22, "6"},
    PcKey{KEY_5, 23, "5"},
    PcKey{KEY_EQUAL, 24, "equal"},
    PcKey{KEY_9, 25, "9"},
    PcKey{KEY_7, 26, "7"},
    PcKey{KEY_MINUS, 27, "minus"},
    PcKey{KEY_8, 28, "8"},
    PcKey{KEY_0, 29, "0"},
    PcKey{KEY_RIGHTBRACE, 30, "bracketright"},
    PcKey{KEY_O, 31, "o"},
    PcKey{KEY_U, 32, "u"},
    PcKey{KEY_LEFTBRACE, 33, "bracketleft"},
    PcKey{KEY_I, 34, "i"},
    PcKey{KEY_P, 35, "p"},
    PcKey{KEY_ENTER, 36, "Return"},
    PcKey{KEY_L, 37, "l"},
    PcKey{KEY_J, 38, "j"},
    PcKey{KEY_APOSTROPHE, 39, "apostrophe"},
    PcKey{KEY_K, 40, "k"},
    PcKey{KEY_SEMICOLON, 41, "semicolon"},
    PcKey{KEY_BACKSLASH, 42, "backslash"},
    PcKey{KEY_COMMA, 43, "comma"},
    PcKey{KEY_SLASH, 44, "slash"},
    PcKey{KEY_N, 45, "n"},
    PcKey{KEY_M, 46, "m"},
    PcKey{KEY_DOT, 47, "period"},
    PcKey{KEY_TAB, 48, "Tab"},
    PcKey{KEY_SPACE, 49, "space"},
    PcKey{KEY_GRAVE, 50, "grave"},
    PcKey{KEY_BACKSPACE, 51, "BackSpace"},
    PcKey{KEY_ESC, 53, "Escape"},
    PcKey{KEY_RIGHTCTRL, 54, "Control_R"},
    PcKey{KEY_LEFTCTRL, 55, "Control_L"},
    PcKey{KEY_LEFTSHIFT, 56, "Shift_L"},
    PcKey{KEY_CAPSLOCK, 57, "Caps_Lock"},
    PcKey{KEY_LEFTALT, 58, "Alt_L"},
    PcKey{KEY_LEFTMETA, 59, "Super_L"},
    PcKey{KEY_RIGHTSHIFT, 60, "Shift_R"},
    PcKey{KEY_RIGHTALT, 61, "Alt_R"},
    PcKey{KEY_RIGHTMETA, 62, "Super_R"},
    PcKey{KEY_F17, 64, "F17"},
    PcKey{KEY_KPDOT, 65, "KP_Decimal"},
    PcKey{KEY_KPASTERISK, 67, "KP_Multiply"},
    PcKey{KEY_KPPLUS, 69, "KP_Add"},
    PcKey{KEY_NUMLOCK, 71, "Num_Lock"},
    PcKey{KEY_VOLUMEUP, 72, "XF86AudioRaiseVolume"},
    PcKey{KEY_VOLUMEDOWN, 73, "XF86AudioLowerVolume"},
    PcKey{KEY_MUTE, 74, "XF86AudioMute"},
    PcKey{KEY_KPSLASH, 75, "KP_Divide"},
    PcKey{KEY_KPENTER, 76, "KP_Enter"},
    PcKey{KEY_KPMINUS, 78, "KP_Subtract"},
    PcKey{KEY_F18, 79, "F18"},
    PcKey{KEY_F19, 80, "F19"},
    PcKey{KEY_KPEQUAL, 81, "KP_Equal"},
    PcKey{KEY_KP0, 82, "KP_0"},
    PcKey{KEY_KP1, 83, "KP_1"},
    PcKey{KEY_KP2, 84, "KP_2"},
    PcKey{KEY_KP3, 85, "KP_3"},
    PcKey{KEY_KP4, 86, "KP_4"},
    PcKey{KEY_KP5, 87, "KP_5"},
    PcKey{KEY_KP6, 88, "KP_6"},
    PcKey{KEY_KP7, 89, "KP_7"},
    PcKey{KEY_F20, 90, "F20"},
    PcKey{KEY_KP8, 91, "KP_8"},
    PcKey{KEY_KP9, 92, "KP_9"},
    PcKey{KEY_YEN, 93, "yen"},
    PcKey{KEY_RO, 94, "underscore"},
    PcKey{KEY_KPCOMMA, 95, "KP_Separator"},
    PcKey{KEY_F5, 96, "F5"},
    PcKey{KEY_F6, 97, "F6"},
    PcKey{KEY_F7, 98, "F7"},
    PcKey{KEY_F3, 99, "F3"},
    PcKey{KEY_F8, 100, "F8"},
    PcKey{KEY_F9, 101, "F9"},
    PcKey{KEY_MUHENKAN, 102, "Muhenkan"},
    PcKey{KEY_F11, 103, "F11"},
    PcKey{KEY_HENKAN, 104, "Henkan"},
    PcKey{KEY_SYSRQ, 105, "Print"},
    PcKey{KEY_F13, 105, "F13"},
    PcKey{KEY_F16, 106, "F16"},
    PcKey{KEY_SCROLLLOCK, 107, "Scroll_Lock"},
    PcKey{KEY_F14, 107, "F14"},
    PcKey{KEY_F10, 109, "F10"},
    PcKey{KEY_COMPOSE, 110, "Menu"},
    PcKey{KEY_F12, 111, "F12"},
    PcKey{KEY_PAUSE, 113, "Pause"},
    PcKey{KEY_F15, 113, "F15"},
    PcKey{KEY_INSERT, 114, "Insert"},
    PcKey{KEY_HELP, 114, "Help"},
    PcKey{KEY_HOME, 115, "Home"},
    PcKey{KEY_PAGEUP, 116, "Page_Up"},
    PcKey{KEY_DELETE, 117, "Delete"},
    PcKey{KEY_F4, 118, "F4"},
    PcKey{KEY_END, 119, "End"},
    PcKey{KEY_F2, 120, "F2"},
    PcKey{KEY_PAGEDOWN, 121, "Page_Down"},
    PcKey{KEY_F1, 122, "F1"},
    PcKey{KEY_LEFT, 123, "Left"},
    PcKey{KEY_RIGHT, 124, "Right"},
    PcKey{KEY_DOWN, 125, "Down"},
    PcKey{KEY_UP, 126, "Up"},
};

// The X protocol keeps the codes below for itself, and Wayland followed.
constexpr quint32 firstScanCode = 8;

} // namespace

std::optional<int> keyCodeOfScanCode(quint32 scanCode)
{
    const auto* const found =
        std::ranges::find(pcKeys, scanCode - firstScanCode, &PcKey::evdevCode);
    return found == pcKeys.end() ? std::nullopt : std::optional(found->keyCode);
}

std::vector<quint32> scanCodesOfKeyCode(qint64 keyCode)
{
    std::vector<quint32> scanCodes;
    for (const PcKey& key : pcKeys) {
        if (key.keyCode == keyCode)
            scanCodes.push_back(key.evdevCode + firstScanCode);
    }
    return scanCodes;
}

QString keysymNameOf(qint64 keyCode)
{
    const auto* const found = std::ranges::find(pcKeys, keyCode, &PcKey::keyCode);
    return found == pcKeys.end() ? QString() : QString::fromLatin1(found->keysymName);
}

} // namespace jotwell
