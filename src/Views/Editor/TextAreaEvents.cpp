#include "Views/Editor/TextAreaEvents.h"

#include "Views/Editor/TextAreaSelection.h"

#include <QQuickTextDocument>

#include <optional>

namespace jotwell {

namespace {

struct EditingKey {
    int key;
    Qt::KeyboardModifiers allowed; ///< with which it is still the same command
    QStringView selector;
};

const EditingKey editingKeys[] = {
    {Qt::Key_Backspace, Qt::ShiftModifier, u"deleteBackward:"},
    {Qt::Key_Return, Qt::ShiftModifier, u"insertNewline:"},
    {Qt::Key_Enter, Qt::ShiftModifier | Qt::ControlModifier, u"insertNewline:"},
    {Qt::Key_Up, Qt::NoModifier, u"moveUp:"},
    {Qt::Key_Down, Qt::NoModifier, u"moveDown:"},
    {Qt::Key_Tab, Qt::NoModifier, u"insertTab:"},
};

// With any other modifiers too.
bool isCommandReturn(int key, Qt::KeyboardModifiers modifiers)
{
    return key == Qt::Key_Return && modifiers.testFlag(Qt::ControlModifier);
}

// Empty for a key press that is no command or another one, such as deleting a whole word.
QStringView selectorOf(int key, Qt::KeyboardModifiers modifiers)
{
    if (isCommandReturn(key, modifiers))
        return u"insertNewline:";
    for (const EditingKey& each : editingKeys) {
        const auto others = modifiers & ~(each.allowed | Qt::KeypadModifier);
        if (each.key == key && others == Qt::NoModifier)
            return each.selector;
    }
    return {};
}

CurrentEvent eventOf(int key, Qt::KeyboardModifiers modifiers)
{
    return {CurrentEvent::keyDown, key == Qt::Key_Return ? CurrentEvent::returnKey : 0,
            modifiers.testFlag(Qt::ControlModifier) ? CurrentEvent::commandModifier : 0};
}

} // namespace

TextAreaEvents::TextAreaEvents(QObject* parent) : QObject(parent)
{
    connect(this, &TextAreaEvents::colorsChanged, this, &TextAreaEvents::takeOverColors);
}

void TextAreaEvents::attach(QQuickItem* area)
{
    auto* const document = area->property("textDocument").value<QQuickTextDocument*>();
    if (!m_editor || !document)
        return;
    // Only what can be seen of a long text is to be drawn; by itself a text area does that only for
    // text that the program sets.
    area->setFlag(QQuickItem::ItemObservesViewport);
    m_editor->makeView(*document->textDocument(), std::make_unique<TextAreaSelection>(*area));
    takeOverColors();
}

bool TextAreaEvents::keyPressed(int key, int modifiers, bool isRepeat)
{
    const auto held = Qt::KeyboardModifiers::fromInt(modifiers);
    const QStringView selector = selectorOf(key, held);
    if (selector.isEmpty() || !hasView() || m_editor->isComposing())
        return false;
    const CurrentEvent event = eventOf(key, held);
    // A key held down a moment too long must not run the command again.
    if (isRepeat && event.hasCommand())
        return true;
    if (m_editor->coordinator().doCommandBy(selector, event))
        return true;
    // By itself a text area would make a line of Shift+Return that isn't a paragraph.
    const bool isLine = selector == u"insertNewline:" && held.testFlag(Qt::ShiftModifier);
    if (isLine)
        m_editor->view().insertNewline();
    return isLine;
}

bool TextAreaEvents::mousePressed(const QPointF& point)
{
    // The area itself ends a composition.
    if (!hasView() || m_editor->isComposing())
        return false;
    RoundedBackgroundTextView& view = m_editor->view();
    view.makeFirstResponder();
    return view.mouseDown(view.characterIndexForInsertion(point));
}

void TextAreaEvents::mouseMoved(const QPointF& point)
{
    if (!hasView())
        return;
    m_editor->view().mouseMoved(m_editor->view().characterIndexForInsertion(point));
    setIsOverChip(m_editor->view().isOverChip(point));
}

void TextAreaEvents::mouseExited()
{
    if (hasView())
        m_editor->view().mouseExited();
    setIsOverChip(false);
}

void TextAreaEvents::editingEnded()
{
    if (hasView())
        m_editor->coordinator().textDidEndEditing();
}

void TextAreaEvents::takeOverColors()
{
    if (!hasView() || !m_commandColor.isValid() || !m_parameterColor.isValid())
        return;
    m_editor->view().styles().setColors({m_commandColor, m_parameterColor});
    // Otherwise the end of the composition does it.
    if (!m_editor->isComposing())
        m_editor->coordinator().highlightCommands();
}

void TextAreaEvents::setIsOverChip(bool isOver)
{
    if (m_isOverChip == isOver)
        return;
    m_isOverChip = isOver;
    emit isOverChipChanged();
}

} // namespace jotwell
