#pragma once

#include <array>
#include <cstdint>

namespace jotwell {

// Characters of valid UTF-8, and runs of them by class.

struct Utf8Character {
    char32_t code = 0;
    int length = 0; ///< bytes
};

[[nodiscard]] inline bool isContinuationByte(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// The character that begins at `place`.
[[nodiscard]] inline Utf8Character characterAt(const char* place)
{
    const auto lead = static_cast<unsigned char>(*place);
    const auto tail = [place](int index) { return static_cast<unsigned>(place[index]) & 0x3FU; };
    if (lead < 0x80)
        return {lead, 1};
    if (lead < 0xE0)
        return {(lead & 0x1FU) << 6 | tail(1), 2};
    if (lead < 0xF0)
        return {(lead & 0x0FU) << 12 | tail(1) << 6 | tail(2), 3};
    return {(lead & 0x07U) << 18 | tail(1) << 12 | tail(2) << 6 | tail(3), 4};
}

/// The character that ends at `place`; there has to be one.
[[nodiscard]] inline Utf8Character characterBefore(const char* place)
{
    do
        --place;
    while (isContinuationByte(*place));
    return characterAt(place);
}

/// What a byte can mean where spaces and lines are looked for.
enum class ByteKind : std::uint8_t {
    text,
    zero, ///< text, or the end of a QByteArray
    blank,
    newline,
    maybeSpace ///< begins characters of which some are spaces
};

/// The kind of each byte. Built once.
[[nodiscard]] const std::array<ByteKind, 256>& byteKinds();

[[nodiscard]] inline ByteKind kindOf(const std::array<ByteKind, 256>& kinds, char byte)
{
    return kinds[static_cast<unsigned char>(byte)];
}

// Each gives the first place from `place` on, up to `end`, that isn't or is of the class.

[[nodiscard]] const char* afterBlanks(const char* place, const char* end);
[[nodiscard]] const char* afterWord(const char* place, const char* end);
[[nodiscard]] const char* afterDigits(const char* place, const char* end);
/// Where the line ends: at its newline or at `end`.
[[nodiscard]] const char* lineEnd(const char* place, const char* end);

} // namespace jotwell
