#pragma once

#include "Views/Editor/MarkdownRules.h"
#include "Views/Editor/TextAttributes.h"
#include "Views/Editor/TokenHighlighter.h"

#include <QStringList>

#include <optional>
#include <string>
#include <vector>

namespace jotwell {

// The rules of the highlighters in their plainest form, with their regular expressions and one set
// of attributes for each unit, against which the quick ones are held.

/// A rule of the Markdown highlighter that styles one range of each match.
struct MarkdownRule {
    std::string name;
    QString pattern;
    std::size_t group = 0; ///< that is styled; 0 is the whole match
    std::vector<TextRange> (*quick)(QStringView text) = nullptr;

    /// What the pattern gives in the first `limit` units.
    [[nodiscard]] std::vector<TextRange> plain(QStringView text, qsizetype limit) const;
};

/// All but the headings.
[[nodiscard]] const std::vector<MarkdownRule>& markdownRules();
[[nodiscard]] std::vector<Heading> plainHeadings(QStringView text, qsizetype limit);

struct HighlightedText {
    std::vector<AttributeRun> runs;
    TokenRanges tokens;

    bool operator==(const HighlightedText&) const = default;
};

[[nodiscard]] std::vector<AttributeRun> plainMarkdown(QStringView text, qsizetype limit);
/// Markdown, then tokens.
[[nodiscard]] HighlightedText plainHighlight(QStringView text, qsizetype limit,
                                             const QStringList& templates,
                                             const QStringList& folders);
[[nodiscard]] std::optional<TextRange> plainSlashWordAt(QStringView text, qsizetype limit,
                                                        qsizetype cursor);

// The same by the quick ones.

[[nodiscard]] std::vector<AttributeRun> quickMarkdown(QStringView text, qsizetype limit);
[[nodiscard]] HighlightedText quickHighlight(QStringView text, qsizetype limit,
                                             const QStringList& templates,
                                             const QStringList& folders);

/// For people: «0:# 14 bold; 2:Title 19 bold».
[[nodiscard]] std::string described(QStringView text, const std::vector<AttributeRun>& runs);
[[nodiscard]] std::string described(QStringView text, const std::vector<TextRange>& ranges);
[[nodiscard]] std::string described(QStringView text, const HighlightedText& highlighted);

} // namespace jotwell
