#pragma once

#include "Support/TextUnits.h"

#include <QStringView>

#include <optional>
#include <vector>

namespace jotwell {

class AttributedText;
class ReadyNames;

/// The tokens of a text that are shown as chips, each kind in the order of the text.
struct TokenRanges {
    std::vector<TextRange> commands;
    std::vector<TextRange> templates; ///< and behind all of them the folders
    std::vector<TextRange> hashtags;

    bool operator==(const TokenRanges&) const = default;
};

/// Finds the tokens in the first `limit` UTF-16 units of `text` and gives them their looks, over
/// those that the text has by then.
[[nodiscard]] TokenRanges highlightTokens(AttributedText& to, QStringView text, qsizetype limit,
                                          ReadyNames& names);

/// The slash word, looked for in the first `limit` units of `text`, inside, before or behind which
/// the cursor stands; the last one of two.
[[nodiscard]] std::optional<TextRange> slashWordAt(QStringView text, qsizetype limit,
                                                   qsizetype cursor);

} // namespace jotwell
