#include "Views/Results/SnippetLayout.h"

#include "Support/TextUnits.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextOption>

#include <algorithm>
#include <cmath>

namespace jotwell {

namespace {

constexpr QChar ellipsis = u'…';

// More than a few lines hold, in letters of the least width.
constexpr qsizetype longest = 2000;

QString onOneLine(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    std::ranges::replace_if(
        text, [](QChar unit) { return isNewline(unit) || unit == u'\t'; }, u' ');
    return text;
}

// By its first letter that has a direction, however much of the text is laid out.
QTextOption wrapping(const QString& text, QTextOption::WrapMode mode)
{
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setTextDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    option.setWrapMode(mode);
    return option;
}

SnippetLayout::Formats cut(const SnippetLayout::Formats& formats, int from, int length)
{
    SnippetLayout::Formats inside;
    for (QTextLayout::FormatRange range : formats) {
        const int start = std::max(range.start, from);
        const int end = std::min(range.start + range.length, from + length);
        range.start = start - from;
        range.length = end - start;
        if (range.length > 0)
            inside.append(range);
    }
    return inside;
}

QString withoutTrailingBlanks(QString text)
{
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

} // namespace

SnippetLayout::SnippetLayout(const SnippetParts& parts, const Style& style, qreal width)
    : m_style(style), m_lineHeight(std::ceil(QFontMetricsF(style.font).height())),
      m_layout(std::make_unique<QTextLayout>())
{
    setParts(parts);
    fill(width);
    if (m_layout->lineCount() > 0 && end() < text().size())
        elide(width);
}

QSizeF SnippetLayout::size() const
{
    qreal width = 0;
    for (int index = 0; index < lineCount(); ++index)
        width = std::max(width, m_layout->lineAt(index).naturalTextWidth());
    return {width, lineCount() * m_lineHeight};
}

void SnippetLayout::paint(QPainter& painter) const
{
    painter.setPen(m_style.color);
    if (m_layout)
        m_layout->draw(&painter, {0, 0});
}

void SnippetLayout::setParts(const SnippetParts& parts)
{
    QString text;
    Formats formats;
    for (const SnippetPart& part : parts) {
        const auto start = static_cast<int>(text.size());
        text += onOneLine(part.text.left(longest));
        if (!part.isHighlighted)
            continue;
        QTextCharFormat format;
        format.setForeground(m_style.highlightColor);
        format.setFontWeight(QFont::Medium);
        formats.append({start, static_cast<int>(text.size()) - start, format});
    }
    setText(text, formats);
}

void SnippetLayout::setText(const QString& text, const Formats& formats)
{
    m_layout->setFont(m_style.font);
    m_layout->setTextOption(wrapping(text, QTextOption::WrapAtWordBoundaryOrAnywhere));
    m_layout->setText(text);
    m_layout->setFormats(formats);
}

// As many lines as there may be, all at the same distance: also those with letters of other fonts.
void SnippetLayout::fill(qreal width)
{
    const qreal ascent = QFontMetricsF(m_style.font).ascent();
    m_layout->beginLayout();
    for (int index = 0; index < m_style.maximumLineCount; ++index) {
        QTextLine line = m_layout->createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(width);
        line.setPosition({0, index * m_lineHeight + ascent - line.ascent()});
    }
    m_layout->endLayout();
}

// Where the laid out part of the text ends.
int SnippetLayout::end() const
{
    const QTextLine last = m_layout->lineAt(lineCount() - 1);
    return last.textStart() + last.textLength();
}

// The last line takes what goes into it beside the ellipsis, and words needn't stay whole there.
void SnippetLayout::elide(qreal width)
{
    const QString whole = text();
    const Formats formats = m_layout->formats();
    const int start = m_layout->lineAt(lineCount() - 1).textStart();
    const int rest = static_cast<int>(whole.size()) - start;
    QTextLayout tail(whole.mid(start), m_style.font);
    tail.setTextOption(wrapping(whole, QTextOption::WrapAnywhere));
    tail.setFormats(cut(formats, start, rest));
    tail.beginLayout();
    QTextLine line = tail.createLine();
    line.setLineWidth(width - QFontMetricsF(m_style.font).horizontalAdvance(ellipsis));
    tail.endLayout();
    const QString kept = withoutTrailingBlanks(whole.left(start + line.textLength()));
    setText(kept + ellipsis, cut(formats, 0, static_cast<int>(kept.size())));
    m_layout->setTextOption(wrapping(whole, QTextOption::WrapAtWordBoundaryOrAnywhere));
    fill(width);
}

} // namespace jotwell
