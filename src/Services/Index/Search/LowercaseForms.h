#pragma once

#include <QString>

#include <string>

namespace jotwell {

// Lower-casing character by character, as `QString::toLower` does it. Any thread.

/// What one character becomes: one character, or a second one behind it.
struct LowercaseForm {
    char32_t first = 0;
    char32_t second = 0; ///< 0 for none

    bool operator==(const LowercaseForm&) const = default;
};

[[nodiscard]] LowercaseForm lowercaseForm(char32_t character);

/// The one character that becomes two, and the second of these; the first is "i".
constexpr char32_t dottedCapitalI = 0x130;
constexpr char32_t combiningDotAbove = 0x307;

/// All characters that become exactly this one, itself among them if it stays as it is.
[[nodiscard]] std::u32string charactersLoweredTo(char32_t character);

/// The characters of a text; empty if it holds half a surrogate pair, which no UTF-8 text can.
[[nodiscard]] std::u32string codePointsOf(QStringView text);

} // namespace jotwell
