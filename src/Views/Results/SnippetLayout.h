#pragma once

#include "Views/Results/SnippetParts.h"

#include <QColor>
#include <QFont>
#include <QSizeF>
#include <QTextLayout>

#include <memory>

class QPainter;

namespace jotwell {

/// The parts of a found text laid out as one flowing text of a few lines, with an ellipsis where it
/// goes on. Lengths in pixels. One thread.
class SnippetLayout {
public:
    struct Style {
        QFont font;
        QColor color;
        QColor highlightColor; ///< of the marked parts, which are also of medium weight
        int maximumLineCount = 2;
    };

    using Formats = QList<QTextLayout::FormatRange>;

    /// Line ends count as blanks.
    SnippetLayout(const SnippetParts& parts, const Style& style, qreal width);

    [[nodiscard]] int lineCount() const { return m_layout->lineCount(); }
    /// As wide as the longest line.
    [[nodiscard]] QSizeF size() const;
    /// What is shown of the text.
    [[nodiscard]] QString text() const { return m_layout->text(); }
    /// From the painter's origin on.
    void paint(QPainter& painter) const;

private:
    void setParts(const SnippetParts& parts);
    void setText(const QString& text, const Formats& formats);
    void fill(qreal width);
    [[nodiscard]] int end() const;
    void elide(qreal width);

    Style m_style;
    qreal m_lineHeight = 0;
    std::unique_ptr<QTextLayout> m_layout;
};

} // namespace jotwell
