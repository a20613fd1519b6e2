#pragma once

#include <QTextDocument>
#include <QTextLayout>

namespace jotwell {

/// A document in which each character is as wide as any other, without a margin.
class FixedText {
public:
    FixedText();
    FixedText(const FixedText&) = delete;
    FixedText& operator=(const FixedText&) = delete;

    QTextDocument document;

    void setText(const QString& text) { document.setPlainText(text); }
    /// So narrow that a line holds no more characters than that.
    void wrapBehind(int characters) { document.setTextWidth((characters + 0.5) * advance()); }
    /// Shows a paragraph in these formats, without putting them into the document.
    void show(int paragraph, const QList<QTextLayout::FormatRange>& formats);
    void layOut(int paragraph);

    // Of a character, in pixels.

    [[nodiscard]] qreal advance() const;
    [[nodiscard]] qreal lineHeight() const;
};

} // namespace jotwell
