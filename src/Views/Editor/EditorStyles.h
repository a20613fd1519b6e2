#pragma once

#include "Views/Editor/TextAttributes.h"

#include <QColor>
#include <QTextCharFormat>

#include <vector>

class QTextBlock;
class QTextDocument;

namespace jotwell {

class EditorDocument;

/// Shows attributes in the editor's document. They go to the layout of the paragraphs and not into
/// the document, so that undoing an edit knows nothing of them; a paragraph that looks as before
/// isn't laid out again. Main thread.
class EditorStyles {
public:
    struct Colors {
        QColor systemBlue;
        QColor systemGreen;
        bool operator==(const Colors&) const = default;
    };

    /// All paragraphs are to be styled anew at the next `apply`.
    void setColors(const Colors& colors);

    /// `runs` in the order of the text, plain stretches left out; `emoji` are drawn with their own
    /// font. What an input method shows of itself stays. Nothing is shown without a document.
    void apply(const EditorDocument& text, const std::vector<AttributeRun>& runs,
               const std::vector<TextRange>& emoji);
    /// Keeps up what a paragraph shows while an input method is composing in it.
    void keepUp(const QTextBlock& block);

private:
    struct Style {
        TextAttributes attributes;
        bool isEmoji = false;
        bool operator==(const Style&) const = default;
    };
    struct StyleRun {
        int start = 0; ///< in the paragraph
        int length = 0;
        Style style;
        bool operator==(const StyleRun&) const = default;
    };
    class StyledParagraph;

    [[nodiscard]] static std::vector<StyleRun> styleRuns(const EditorDocument& text,
                                                         const std::vector<AttributeRun>& runs,
                                                         const std::vector<TextRange>& emoji);
    [[nodiscard]] static bool hasOthers(const QTextBlock& block, const std::vector<StyleRun>& runs);
    [[nodiscard]] bool isShown(const QTextBlock& block, const std::vector<StyleRun>& runs) const;
    void show(QTextBlock& block, std::vector<StyleRun> runs);
    void setFormats(const QTextBlock& block, const std::vector<StyleRun>& runs);
    [[nodiscard]] const QTextCharFormat& formatOf(const Style& style);
    [[nodiscard]] QTextCharFormat makeFormat(const Style& style) const;

    Colors m_colors;
    int m_generation = 0; ///< of the colours
    std::vector<std::pair<Style, QTextCharFormat>> m_formats;
};

} // namespace jotwell
