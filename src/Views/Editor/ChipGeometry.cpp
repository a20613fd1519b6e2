#include "Views/Editor/ChipGeometry.h"

#include <QAbstractTextDocumentLayout>
#include <QGlyphRun>
#include <QRawFont>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include <algorithm>
#include <optional>

namespace jotwell {

namespace {

// Or may, for what isn't one unit.
bool runsToTheLeft(QChar c)
{
    switch (c.direction()) {
    case QChar::DirR:
    case QChar::DirAL:
    case QChar::DirRLE:
    case QChar::DirRLO:
    case QChar::DirRLI:
        return true;
    default:
        return c.isSurrogate();
    }
}

/// The left and the right border of text.
using Extent = std::pair<qreal, qreal>;

// At the borders of text that runs the other way a cursor has two places, of which the layout tells
// one: what is drawn is asked. The space from the leftmost to the rightmost of it is its own.
Extent drawnExtent(const QTextLine& line, int from, int to)
{
    std::optional<Extent> all;
    for (const QGlyphRun& run : line.glyphRuns(from, to - from)) {
        const QList<QPointF> places = run.positions();
        const QList<QPointF> advances = run.rawFont().advancesForGlyphIndexes(run.glyphIndexes());
        for (qsizetype each = 0; each < places.size(); ++each) {
            const qreal left = places[each].x();
            const qreal right = left + advances[each].x();
            all = all ? Extent(std::min(all->first, left), std::max(all->second, right))
                      : Extent(left, right);
        }
    }
    return all.value_or(Extent(line.cursorToX(from), line.cursorToX(from)));
}

// Text beside the line is part of what decides on the places of its cursors.
bool mayRunToTheLeft(const QTextLine& line, QStringView paragraph)
{
    const qsizetype start = std::clamp<qsizetype>(line.textStart() - 1, 0, paragraph.size());
    const qsizetype length = std::min(line.textLength() + qsizetype(2), paragraph.size() - start);
    const QStringView around = paragraph.sliced(start, length);
    return std::any_of(around.begin(), around.end(), runsToTheLeft);
}

void appendRects(QList<QRectF>& rects, const QTextBlock& block, const QPointF& origin, int from,
                 int to)
{
    const QTextLayout& layout = *block.layout();
    const QString paragraph = block.text();
    const int first = layout.lineForTextPosition(from).lineNumber();
    for (int number = std::max(first, 0); number < layout.lineCount(); ++number) {
        const QTextLine line = layout.lineAt(number);
        if (line.textStart() >= to)
            return;
        const int start = std::max(from, line.textStart());
        const int end = std::min(to, line.textStart() + line.textLength());
        if (start >= end)
            continue;
        const bool isSimple =
            layout.preeditAreaText().isEmpty() && !mayRunToTheLeft(line, paragraph);
        const auto [left, right] = isSimple ? Extent(line.cursorToX(start), line.cursorToX(end))
                                            : drawnExtent(line, start, end);
        rects.append(QRectF(left, line.y(), right - left, line.height()).translated(origin));
    }
}

// A layout counts what an input method is composing as part of its text.
int inLayout(const QTextLayout& layout, int position)
{
    const bool isBehind =
        !layout.preeditAreaText().isEmpty() && position > layout.preeditAreaPosition();
    return isBehind ? position + static_cast<int>(layout.preeditAreaText().size()) : position;
}

// The first of so many things, one below the other, that ends at that height or below, or the last.
template <typename Bottom>
int firstEndingBelow(int count, qreal height, Bottom bottomOf)
{
    int from = 0;
    int to = count - 1;
    while (from < to) {
        const int middle = (from + to) / 2;
        if (bottomOf(middle) < height)
            from = middle + 1;
        else
            to = middle;
    }
    return from;
}

// Asking the layout itself what is hit goes through all paragraphs.
QTextBlock paragraphAt(const QTextDocument& document, qreal height)
{
    const auto bottomOf = [&document](int number) {
        const QTextBlock block = document.findBlockByNumber(number);
        return document.documentLayout()->blockBoundingRect(block).bottom();
    };
    return document.findBlockByNumber(firstEndingBelow(document.blockCount(), height, bottomOf));
}

QTextLine lineAt(const QTextLayout& layout, qreal height)
{
    const auto bottomOf = [&layout](int number) { return layout.lineAt(number).rect().bottom(); };
    return layout.lineAt(firstEndingBelow(layout.lineCount(), height, bottomOf));
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
        appendRects(rects, block, place.topLeft(), inLayout(layout, start), inLayout(layout, end));
    }
    return rects;
}

std::pair<int, int> positionsBetween(const QTextDocument& document, qreal top, qreal bottom)
{
    const auto lineOf = [&document](const QTextBlock& block, qreal height) {
        const qreal start = document.documentLayout()->blockBoundingRect(block).top();
        return lineAt(*block.layout(), height - start);
    };
    const QTextBlock first = paragraphAt(document, top);
    const QTextBlock last = paragraphAt(document, bottom);
    const QTextLine firstLine = lineOf(first, top);
    const QTextLine lastLine = lineOf(last, bottom);
    const int start = firstLine.isValid() ? firstLine.textStart() : 0;
    const int length = lastLine.isValid() ? lastLine.textStart() + lastLine.textLength() : 0;
    const auto room = static_cast<int>(first.layout()->preeditAreaText().size());
    return {first.position() + std::max(start - room, 0), last.position() + length + 1};
}

} // namespace jotwell
