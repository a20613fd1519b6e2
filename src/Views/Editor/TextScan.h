#pragma once

#include "Support/CharacterClasses.h"

#include <QStringView>

namespace jotwell {

// Quick searches in UTF-16 text. Each begins at the unit `from` and gives the place of what it has
// found, or the size of the text. Pure; any thread.

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
