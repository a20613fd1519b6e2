#pragma once

#include <QtGlobal>

#include <array>
#include <vector>

#include <xcb/xcb.h>

namespace jotwell {

/// Which of the X server's modifiers are which of ours; the user's keyboard map says that of all
/// but Ctrl and Shift.
class XcbModifiers {
public:
    /// What the keys of each of the server's eight modifiers mean.
    using Keysyms = std::array<std::vector<xcb_keysym_t>, 8>;

    explicit XcbModifiers(const Keysyms& keysyms);
    /// Asks the server.
    [[nodiscard]] static XcbModifiers of(xcb_connection_t* connection);

    /// The state in which exactly these modifier bits are held, in each combination of locks; none
    /// where the map has no key for one of them.
    [[nodiscard]] std::vector<uint16_t> statesFor(quint64 flags) const;

    /// The modifier bits that are held in that state.
    [[nodiscard]] quint64 flagsOf(uint16_t state) const;

private:
    struct Modifier {
        quint64 flag;
        uint16_t mask; ///< 0 if there is none
    };

    std::array<Modifier, 4> m_modifiers;
    std::vector<uint16_t> m_locks;
};

} // namespace jotwell
