#include "Views/Editor/RoundedBackgroundTextView.h"

#include "Views/Editor/ChipGeometry.h"
#include "Views/Editor/TextSelection.h"

#include <QAbstractTextDocumentLayout>

#include <algorithm>

namespace jotwell {

namespace {

constexpr QMarginsF chipMargins(2, 1, 2, 1);

using Ranges = std::vector<TextRange>;

const TextRange* rangeAt(const Ranges& ranges, qsizetype index)
{
    const auto behind = std::find_if(ranges.begin(), ranges.end(), [index](const TextRange& each) {
        return each.location <= index && index < each.end();
    });
    return behind == ranges.end() ? nullptr : &*behind;
}

} // namespace

RoundedBackgroundTextView::RoundedBackgroundTextView(QTextDocument& document,
                                                     std::unique_ptr<TextSelection> selection)
    : m_document(document), m_selection(std::move(selection))
{
}

RoundedBackgroundTextView::~RoundedBackgroundTextView() = default;

TextRange RoundedBackgroundTextView::selectedRange() const
{
    const TextRange shown = m_selection->selectedRange();
    const qsizetype start = m_document.toString(static_cast<int>(shown.location));
    return {start, m_document.toString(static_cast<int>(shown.end())) - start};
}

void RoundedBackgroundTextView::setSelectedRange(const TextRange& range)
{
    const int start = m_document.toDocument(range.location);
    m_selection->setSelectedRange({start, m_document.toDocument(range.end()) - start});
}

void RoundedBackgroundTextView::insertNewline()
{
    const TextRange selection = m_selection->selectedRange();
    QTextCursor cursor(m_document.document());
    cursor.setPosition(static_cast<int>(selection.location));
    cursor.setPosition(static_cast<int>(selection.end()), QTextCursor::KeepAnchor);
    cursor.insertBlock();
}

void RoundedBackgroundTextView::insertText(const QString& text, qsizetype index,
                                           const std::optional<TextRange>& removed)
{
    QTextCursor at(m_document.document());
    at.setPosition(m_document.toDocument(index));
    QTextCursor old(m_document.document());
    if (removed) {
        old.setPosition(m_document.toDocument(removed->location));
        old.setPosition(m_document.toDocument(removed->end()), QTextCursor::KeepAnchor);
    }
    at.beginEditBlock();
    old.removeSelectedText();
    const int start = at.position();
    at.insertText(text);
    const int length = at.position() - start;
    const int whole = m_document.document()->characterCount();
    at.endEditBlock();
    // Unless the model has rewritten the text meanwhile.
    if (m_document.document()->characterCount() == whole)
        m_selection->setSelectedRange({start, length});
}

bool RoundedBackgroundTextView::isFirstResponder() const
{
    return m_selection->hasFocus();
}

void RoundedBackgroundTextView::makeFirstResponder()
{
    m_selection->takeFocus();
}

void RoundedBackgroundTextView::updateCommandRanges(std::vector<TextRange> ranges)
{
    m_ranges.commands = std::move(ranges);
}

void RoundedBackgroundTextView::updateTemplateRanges(std::vector<TextRange> ranges)
{
    m_ranges.templates = std::move(ranges);
}

void RoundedBackgroundTextView::updateHashtagRanges(std::vector<TextRange> ranges)
{
    m_ranges.hashtags = std::move(ranges);
    emit needsDisplay();
}

qsizetype RoundedBackgroundTextView::characterIndexForInsertion(const QPointF& point) const
{
    if (!m_document.document())
        return 0;
    const QPointF inset(textContainerInset, textContainerInset);
    const int position =
        m_document.document()->documentLayout()->hitTest(point - inset, Qt::FuzzyHit);
    return m_document.toString(std::max(position, 0));
}

bool RoundedBackgroundTextView::mouseDown(qsizetype index)
{
    const auto takes = [&](const Ranges& ranges, const OnClick& onClick) {
        const TextRange* const chip = rangeAt(ranges, index);
        if (!chip)
            return false;
        const TextRange range = *chip; // the callback may change the chips
        if (onClick)
            onClick(range, string().mid(range.location, range.length));
        return true;
    };
    return takes(m_ranges.commands, m_onCommandClick) ||
           takes(m_ranges.templates, m_onTemplateClick) ||
           takes(m_ranges.hashtags, m_onHashtagClick);
}

bool RoundedBackgroundTextView::mouseMoved(qsizetype index)
{
    return setHoveredRange(chipAt(index));
}

bool RoundedBackgroundTextView::mouseExited()
{
    return setHoveredRange(std::nullopt);
}

std::optional<TextRange> RoundedBackgroundTextView::chipAt(qsizetype index) const
{
    for (const Ranges* const ranges :
         {&m_ranges.commands, &m_ranges.templates, &m_ranges.hashtags}) {
        if (const TextRange* const chip = rangeAt(*ranges, index))
            return *chip;
    }
    return std::nullopt;
}

bool RoundedBackgroundTextView::setHoveredRange(std::optional<TextRange> range)
{
    if (m_hoveredRange == range)
        return false;
    m_hoveredRange = range;
    emit needsDisplay();
    return true;
}

std::vector<RoundedBackgroundTextView::ChipRectangle>
RoundedBackgroundTextView::chipRectangles(const QRectF& visible) const
{
    std::vector<ChipRectangle> chips;
    const QTextDocument* const document = m_document.document();
    if (!document)
        return chips;
    const QPointF inset(textContainerInset, textContainerInset);
    const QRectF seen = visible.translated(-inset).marginsAdded(chipMargins);
    const auto [first, last] = positionsBetween(*document, seen.top(), seen.bottom());
    const auto add = [&, from = first, to = last](const Ranges& ranges, bool isCommand) {
        for (const TextRange& range : ranges) {
            const int start = m_document.toDocument(range.location);
            const int end = m_document.toDocument(range.end());
            if (range.length < 1 || end <= from || start >= to)
                continue;
            for (const QRectF& rect : rectsForRange(*document, start, end))
                chips.push_back({rect.translated(inset).marginsAdded(chipMargins), isCommand,
                                 m_hoveredRange == range});
        }
    };
    add(m_ranges.commands, true);
    add(m_ranges.templates, false);
    return chips;
}

bool RoundedBackgroundTextView::isOverChip(const QPointF& point) const
{
    const QTextDocument* const document = m_document.document();
    const QPointF inset(textContainerInset, textContainerInset);
    // The pointer is over a chip or beside it, so that the place nearest to it touches the chip; by
    // its margins a chip reaches over the lines next to its own.
    const QPointF up(0, chipMargins.top() + 1);
    const qsizetype places[] = {characterIndexForInsertion(point),
                                characterIndexForInsertion(point - up),
                                characterIndexForInsertion(point + up)};
    const auto isOver = [&](const TextRange& range) {
        const auto touches = [&range](qsizetype place) {
            return place >= range.location && place <= range.end();
        };
        if (!document || std::none_of(std::begin(places), std::end(places), touches))
            return false;
        const QList<QRectF> rects = rectsForRange(*document, m_document.toDocument(range.location),
                                                  m_document.toDocument(range.end()));
        return std::any_of(rects.begin(), rects.end(), [&](const QRectF& rect) {
            return rect.translated(inset).marginsAdded(chipMargins).contains(point);
        });
    };
    const auto isOverAny = [&isOver](const Ranges& ranges) {
        return std::any_of(ranges.begin(), ranges.end(), isOver);
    };
    return isOverAny(m_ranges.commands) || isOverAny(m_ranges.templates) ||
           isOverAny(m_ranges.hashtags);
}

} // namespace jotwell
