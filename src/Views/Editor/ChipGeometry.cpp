#include "Views/Editor/ChipGeometry.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include <algorithm>

namespace jotwell {

namespace {

// In a line that runs both ways the text may stand in several places: the space from the leftmost
// to the rightmost of them is its own.
QRectF rectInLine(const QTextLine& line, int from, int to)
{
    qreal left = line.cursorToX(from);
    qreal right = left;
    for (int at = from + 1; at <= to; ++at) {
        const qreal x = line.cursorToX(at);
        left = std::min(left, x);
        right = std::max(right, x);
    }
    return {left, line.y(), right - left, line.height()};
}

void appendRects(QList<QRectF>& rects, const QTextLayout& layout, const QPointF& origin, int from,
                 int to)
{
    for (int number = 0; number < layout.lineCount(); ++number) {
        const QTextLine line = layout.lineAt(number);
        const int start = std::max(from, line.textStart());
        const int end = std::min(to, line.textStart() + line.textLength());
        if (start < end)
            rects.append(rectInLine(line, start, end).translated(origin));
    }
}

// A layout counts what an input method is composing as part of its text.
int inLayout(const QTextLayout& layout, int position)
{
    const bool isBehind =
        !layout.preeditAreaText().isEmpty() && position > layout.preeditAreaPosition();
    return isBehind ? position + static_cast<int>(layout.preeditAreaText().size()) : position;
}

} // namespace

QList<QRectF> rectsForRange(const QTextDocument& document, int from, int to)
{
    QList<QRectF> rects;
    for (QTextBlock block = document.findBlock(from); block.isValid() && block.position() < to;
         block = block.next()) {
        // Asking where it stands lays the paragraph out.
        const QRectF place = document.documentLayout()->blockBoundingRect(block);
        const QTextLayout& layout = *block.layout();
        const int start = std::max(from - block.position(), 0);
        const int end = std::min(to - block.position(), block.length() - 1);
        appendRects(rects, layout, place.topLeft(), inLayout(layout, start), inLayout(layout, end));
    }
    return rects;
}

std::pair<int, int> positionsBetween(const QTextDocument& document, qreal top, qreal bottom)
{
    const QAbstractTextDocumentLayout& layout = *document.documentLayout();
    const int first = layout.hitTest({0, top}, Qt::FuzzyHit);
    const int last = layout.hitTest({0, bottom}, Qt::FuzzyHit);
    const QTextBlock firstBlock = document.findBlock(std::max(first, 0));
    const QTextBlock lastBlock = document.findBlock(std::max(last, 0));
    return {firstBlock.position(), lastBlock.position() + lastBlock.length()};
}

} // namespace jotwell
