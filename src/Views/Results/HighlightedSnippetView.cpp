#include "Views/Results/HighlightedSnippetView.h"

#include <QPainter>

#include <utility>

namespace jotwell {

HighlightedSnippetView::HighlightedSnippetView(QQuickItem* parent) : QQuickPaintedItem(parent) {}

template <typename T>
void HighlightedSnippetView::set(T& member, const T& value)
{
    if (std::exchange(member, value) == value)
        return;
    layOut();
    emit changed();
}

void HighlightedSnippetView::setSnippet(const QString& snippet)
{
    set(m_snippet, snippet);
}

void HighlightedSnippetView::setFont(const QFont& font)
{
    set(m_font, font);
}

void HighlightedSnippetView::setColor(const QColor& color)
{
    set(m_color, color);
}

void HighlightedSnippetView::setHighlightColor(const QColor& color)
{
    set(m_highlightColor, color);
}

void HighlightedSnippetView::paint(QPainter* painter)
{
    if (m_layout)
        m_layout->paint(*painter);
}

void HighlightedSnippetView::componentComplete()
{
    QQuickPaintedItem::componentComplete();
    layOut();
}

void HighlightedSnippetView::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry)
{
    QQuickPaintedItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.width() != oldGeometry.width())
        layOut();
}

void HighlightedSnippetView::layOut()
{
    if (!isComponentComplete() || width() <= 0)
        return;
    m_layout = std::make_unique<SnippetLayout>(
        parseSnippet(m_snippet), SnippetLayout::Style{m_font, m_color, m_highlightColor}, width());
    setImplicitHeight(m_layout->size().height());
    update();
}

} // namespace jotwell
