#pragma once

#include "Support/CharacterClasses.h"

#include <QStringView>

namespace jotwell {

// Quick searches in UTF-16 text. Each begins at the unit `from` and gives the place of what it has
// found, or the size of the text. Pure; any thread.

/// The first unit for which `isWanted` holds. Looks at a block of units at a time, which the
/// compiler makes a few vector instructions of: `isWanted` should be free of branches.
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

[[nodiscard]] qsizetype find(QStringView text, char16_t unit, qsizetype from);
/// The first place where `unit` stands `count` times in a row.
[[nodiscard]] qsizetype findRepeated(QStringView text, char16_t unit, qsizetype count,
                                     qsizetype from);
[[nodiscard]] qsizetype findNewline(QStringView text, qsizetype from);

/// Behind all spaces that stand at `from`.
[[nodiscard]] qsizetype afterSpaces(QStringView text, qsizetype from);
/// Behind all word characters that stand at `from`.
[[nodiscard]] qsizetype afterWord(QStringView text, qsizetype from);
/// Behind all word characters and hyphens that stand at `from`.
[[nodiscard]] qsizetype afterHyphenatedWord(QStringView text, qsizetype from);

} // namespace jotwell
