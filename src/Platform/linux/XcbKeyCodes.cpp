#include "Platform/linux/XcbKeyCodes.h"

#include <algorithm>
#include <array>

#include <linux/input-event-codes.h>

namespace jotwell {

namespace {

struct Place {
    quint32 evdevCode;
    int keyCode;
};

constexpr std::array places{Place{KEY_1, 18}, Place{KEY_2, 19}, Place{KEY_3, 20},
                            Place{KEY_4, 21}, Place{KEY_5, 23}, Place{KEY_ESC, 53}};

// The X protocol keeps the codes below for itself, and Wayland followed.
constexpr quint32 firstScanCode = 8;

} // namespace

std::optional<int> keyCodeOfScanCode(quint32 scanCode)
{
    const auto found = std::ranges::find(places, scanCode - firstScanCode, &Place::evdevCode);
    return found == places.end() ? std::nullopt : std::optional(found->keyCode);
}

} // namespace jotwell
