#include "Views/Editor/TextDrag.h"

#include <QDrag>
#include <QGuiApplication>
#include <QMimeData>
#include <QStyleHints>

#include <utility>

namespace jotwell {

bool TextDrag::mousePressed(const QPointF& point)
{
    if (!hasView() || isOneOfSeveralClicks())
        return false;
    RoundedBackgroundTextView& view = m_editor->view();
    const TextRange selection = view.selectedRange();
    const qsizetype index = view.characterIndexForInsertion(point);
    const bool isOnSelection = index >= selection.location && index < selection.end();
    m_pressed = isOnSelection ? std::optional(point) : std::nullopt;
    return isOnSelection;
}

// The third one selects a paragraph, from which the second has selected a word.
bool TextDrag::isOneOfSeveralClicks()
{
    const int interval = QGuiApplication::styleHints()->mouseDoubleClickInterval();
    const bool isSoon = m_lastPress.isValid() && !m_lastPress.hasExpired(interval);
    m_lastPress.start();
    return isSoon;
}

void TextDrag::mouseMoved(const QPointF& point)
{
    const int distance = QGuiApplication::styleHints()->startDragDistance();
    if (!m_pressed || !hasView() || (point - *m_pressed).manhattanLength() < distance)
        return;
    m_pressed.reset();
    // Not amidst the delivery of this event: who comes after us would take the end of the dragging
    // for a movement of the mouse with its button down.
    QMetaObject::invokeMethod(
        this, [this] { dragSelection(); }, Qt::QueuedConnection);
}

void TextDrag::dragSelection()
{
    if (!hasView() || !QGuiApplication::mouseButtons().testFlag(Qt::LeftButton))
        return;
    m_dragged = m_editor->view().selectedRange();
    m_draggedText = textAt(*m_dragged);
    auto* const data = new QMimeData;
    data->setText(m_draggedText);
    // Goes with the end of the dragging. Its source is no item, as no item takes its own drops.
    auto* const drag = new QDrag(this);
    drag->setMimeData(data);
    const QPointer self(this);
    const Qt::DropAction action = drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction);
    if (self && action == Qt::MoveAction)
        removeDragged();
    if (self)
        m_dragged.reset();
}

void TextDrag::mouseReleased(const QPointF& point)
{
    if (std::exchange(m_pressed, std::nullopt) && hasView())
        m_editor->view().setSelectedRange({m_editor->view().characterIndexForInsertion(point), 0});
}

bool TextDrag::drop(const QPointF& point, const QString& text, Qt::DropAction action)
{
    if (!hasView() || m_editor->isComposing())
        return false;
    RoundedBackgroundTextView& view = m_editor->view();
    const qsizetype index = view.characterIndexForInsertion(point);
    const auto dragged = takeDragged();
    const bool isMoved = dragged && action == Qt::MoveAction;
    if (isMoved && index >= dragged->location && index <= dragged->end())
        return true; // onto itself
    view.insertText(text, index, isMoved ? dragged : std::nullopt);
    view.makeFirstResponder();
    return true;
}

// Somebody else has taken it.
void TextDrag::removeDragged()
{
    if (!hasView())
        return;
    if (const auto dragged = takeDragged())
        m_editor->view().insertText({}, dragged->location, dragged);
}

// Nothing if the text has been rewritten meanwhile, so that something else stands there.
std::optional<TextRange> TextDrag::takeDragged()
{
    const auto dragged = std::exchange(m_dragged, std::nullopt);
    return dragged && textAt(*dragged) == m_draggedText ? dragged : std::nullopt;
}

QString TextDrag::textAt(const TextRange& range)
{
    return m_editor->view().string().mid(range.location, range.length);
}

} // namespace jotwell
