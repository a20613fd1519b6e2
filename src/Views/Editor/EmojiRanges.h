#pragma once

#include "Support/TextUnits.h"

#include <QStringView>

#include <vector>

namespace jotwell {

/// The stretches of a text that are to be drawn with the emoji font: characters that are emoji by
/// themselves or by a variation selector, whole sequences at a time; adjoining ones are one range.
[[nodiscard]] std::vector<TextRange> emojiRanges(QStringView text);

} // namespace jotwell
