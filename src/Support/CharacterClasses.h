#pragma once

#include <unicode/uchar.h>

#include <QStringView>

#include <cstdint>

namespace jotwell {

// The classes of characters that the rules speak of, by code point and with Unicode's members. What
// is named after a class of regular expressions has the members that ICU gives it. A surrogate is
// in no class. Any thread.

[[nodiscard]] inline bool isAscii(char32_t code)
{
    return code < 0x80;
}

[[nodiscard]] inline bool isAsciiDigit(char32_t code)
{
    return code >= '0' && code <= '9';
}

[[nodiscard]] inline bool isAsciiWord(char32_t code)
{
    const char32_t lower = code | 0x20;
    return (lower >= 'a' && lower <= 'z') || isAsciiDigit(code) || code == '_';
}

/// Whether the character's general category is one of ICU's `mask`.
[[nodiscard]] inline bool hasCategory(char32_t code, std::uint32_t mask)
{
    return (U_GET_GC_MASK(static_cast<UChar32>(code)) & mask) != 0;
}

/// \w
[[nodiscard]] inline bool isWord(char32_t code)
{
    if (isAscii(code))
        return isAsciiWord(code);
    return u_isUAlphabetic(static_cast<UChar32>(code)) ||
           hasCategory(code, U_GC_M_MASK | U_GC_ND_MASK | U_GC_PC_MASK) || code == 0x200C ||
           code == 0x200D;
}

/// \s: every blank and every newline.
[[nodiscard]] inline bool isSpace(char32_t code)
{
    if (isAscii(code))
        return code == ' ' || (code >= 0x9 && code <= 0xD);
    return u_isUWhiteSpace(static_cast<UChar32>(code));
}

/// \d
[[nodiscard]] inline bool isDigit(char32_t code)
{
    return isAscii(code) ? isAsciiDigit(code) : hasCategory(code, U_GC_ND_MASK);
}

/// U+000A to U+000D, U+0085, U+2028, U+2029.
[[nodiscard]] inline bool isNewline(char32_t code)
{
    return (code >= 0xA && code <= 0xD) || code == 0x85 || code == 0x2028 || code == 0x2029;
}

/// The category Zs and the tab: every space that ends no line.
[[nodiscard]] inline bool isBlank(char32_t code)
{
    if (isAscii(code))
        return code == ' ' || code == '\t';
    return hasCategory(code, U_GC_ZS_MASK);
}

/// What parts words and is trimmed from queries and sentences: every space but the tab.
[[nodiscard]] inline bool isWhitespaceOrNewline(char32_t code)
{
    return code != '\t' && isSpace(code);
}

/// A code point of a UTF-16 text. A surrogate without its other half is one of its own.
struct CodePoint {
    char32_t value = 0;
    qsizetype length = 0; ///< UTF-16 units

    bool operator==(const CodePoint&) const = default;
};

/// The one that begins at the unit `place`; there has to be one.
[[nodiscard]] inline CodePoint codePointAt(QStringView text, qsizetype place)
{
    const QChar unit = text[place];
    if (unit.isHighSurrogate() && place + 1 < text.size() && text[place + 1].isLowSurrogate())
        return {QChar::surrogateToUcs4(unit, text[place + 1]), 2};
    return {unit.unicode(), 1};
}

/// The one that ends before the unit `place`; there has to be one.
[[nodiscard]] inline CodePoint codePointBefore(QStringView text, qsizetype place)
{
    const QChar unit = text[place - 1];
    if (unit.isLowSurrogate() && place > 1 && text[place - 2].isHighSurrogate())
        return {QChar::surrogateToUcs4(text[place - 2], unit), 2};
    return {unit.unicode(), 1};
}

/// The place of the first unit, from `from` on, for which `isWanted` holds; the size of the text if
/// there is none. Looks at a block of units at a time, which the compiler makes a few vector
/// instructions of: `isWanted` should be free of branches.
template <typename IsWanted>
[[nodiscard]] qsizetype findUnit(QStringView text, qsizetype from, IsWanted isWanted)
{
    constexpr qsizetype block = 32;
    const char16_t* const units = text.utf16();
    while (text.size() - from >= block) {
        std::uint16_t found = 0;
        for (qsizetype k = 0; k < block; ++k)
            found = static_cast<std::uint16_t>(found | (isWanted(units[from + k]) ? 1U : 0U));
        if (found != 0)
            break;
        from += block;
    }
    while (from < text.size() && !isWanted(units[from]))
        ++from;
    return from;
}

} // namespace jotwell
