#pragma once

#include <array>
#include <cstdint>

namespace jotwell {

// Characters of valid UTF-8 and the classes that the rules of notes speak of, with Unicode's
// members. What is named after a class of regular expressions has the members that ICU gives it.

struct Utf8Character {
    char32_t code = 0;
    int length = 0; ///< bytes
};

/// The character that begins at `place`.
[[nodiscard]] Utf8Character characterAt(const char* place);
/// The character that ends at `place`; there has to be one.
[[nodiscard]] Utf8Character characterBefore(const char* place);

[[nodiscard]] bool isWord(char32_t code);  ///< \w
[[nodiscard]] bool isSpace(char32_t code); ///< \s
[[nodiscard]] bool isDigit(char32_t code); ///< \d
/// U+000A to U+000D, U+0085, U+2028, U+2029.
[[nodiscard]] bool isNewline(char32_t code);
/// The category Zs and the tab: every space that ends no line.
[[nodiscard]] bool isBlank(char32_t code);
/// What parts words: every space but the tab.
[[nodiscard]] bool isWhitespaceOrNewline(char32_t code);

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
