#pragma once

#include <QStringView>

namespace jotwell {

class AttributedText;

/// Light Markdown styling of plain text: the marks stay visible, and only fonts, lines and the
/// colour of tags change. Holds no state.
class MarkdownHighlighter {
public:
    [[nodiscard]] static const MarkdownHighlighter& shared();

    /// Adds the attributes of what is found in the first `limit` UTF-16 units of `text`, and takes
    /// none away. Costs time in proportion to the text.
    void applyMarkdownFontStyling(AttributedText& to, QStringView text, qsizetype limit) const;
};

} // namespace jotwell
