#pragma once

#include <QStringView>

#include <array>
#include <atomic>
#include <cstdint>

namespace jotwell {

/// What a code point does to the borders between characters.
enum class BreakKind : std::uint8_t {
    letter,   ///< begins a character behind everything but `special`
    control,  ///< a character by itself, but for CR LF
    mark,     ///< belongs to the character before it, if that is no control
    special,  ///< joins its neighbours in ways that the break iterator knows
    surrogate ///< half of a pair, by which it goes, or a control
};

/// The kinds of UTF-16 units, for looking up one after the other. Any thread.
class BreakKinds {
public:
    [[nodiscard]] static BreakKinds& shared();

    /// That of a single unit, which may be `surrogate`.
    [[nodiscard]] BreakKind of(char16_t unit)
    {
        const Page* const page = m_pages[unit >> 8].load(std::memory_order_acquire);
        return (page ? *page : newPage(unit >> 8))[unit & 0xFF];
    }

    /// That of any code point, which isn't `surrogate`.
    [[nodiscard]] static BreakKind ofCodePoint(char32_t code);

private:
    using Page = std::array<BreakKind, 256>;

    BreakKinds() = default;
    const Page& newPage(unsigned index);

    std::array<std::atomic<const Page*>, 256> m_pages{}; ///< made when first used, never freed
};

} // namespace jotwell
