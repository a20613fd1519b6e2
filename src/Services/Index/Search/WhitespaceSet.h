#pragma once

#include <QChar>

namespace jotwell {

/// Whether a character is trimmed from queries and sentences: the separators of Unicode and the
/// line ends, but no tab. Any thread.
[[nodiscard]] inline bool isInWhitespaceSet(char32_t character)
{
    switch (QChar::category(character)) {
    case QChar::Separator_Space:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return (character >= 0x0A && character <= 0x0D) || character == 0x85;
    }
}

} // namespace jotwell
