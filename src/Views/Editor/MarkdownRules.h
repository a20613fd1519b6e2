#pragma once

#include "Support/TextUnits.h"

#include <QStringView>

#include <vector>

namespace jotwell {

// Where each rule of the Markdown highlighter finds something: the matches of its pattern, from the
// first to the last, none over another. Pure, and linear in the text; any thread.

struct Heading {
    TextRange marks;
    TextRange title; ///< may be empty, and may stand in a line further down

    bool operator==(const Heading&) const = default;
};

/// ^(#{1,6})\s+(.*)$ with ^ and $ at each line.
[[nodiscard]] std::vector<Heading> headings(QStringView text);
/// (\*\*|__)(.*?)\1
[[nodiscard]] std::vector<TextRange> boldSpans(QStringView text);
/// (?<!\*)(\*|_)(?!\*)([^\*_]+?)\1(?!\*)
[[nodiscard]] std::vector<TextRange> italicSpans(QStringView text);
/// `([^`]+)`
[[nodiscard]] std::vector<TextRange> inlineCodeSpans(QStringView text);
/// ```[\s\S]*?```
[[nodiscard]] std::vector<TextRange> codeBlocks(QStringView text);
/// The group of ^\s*([\-\*\+])\s+ with ^ at each line.
[[nodiscard]] std::vector<TextRange> listMarkers(QStringView text);
/// The first group of \[([^\]]+)\]\(([^\)]+)\)
[[nodiscard]] std::vector<TextRange> linkNames(QStringView text);
/// ~~(.*?)~~
[[nodiscard]] std::vector<TextRange> struckSpans(QStringView text);
/// #\w+
[[nodiscard]] std::vector<TextRange> tagWords(QStringView text);

} // namespace jotwell
