#include "Views/Editor/TextAreaSelection.h"

#include <QQuickTextDocument>
#include <QTextBlock>
#include <QTextBoundaryFinder>
#include <QTextDocument>

namespace jotwell {

int cursorPosition(QStringView text, qsizetype position)
{
    if (position >= text.size())
        return static_cast<int>(text.size());
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, text.data(), text.size());
    characters.setPosition(position);
    if (!characters.isAtBoundary())
        characters.toNextBoundary();
    return static_cast<int>(characters.position());
}

namespace {

// What a cursor of the document may stand in: a paragraph's text is all that characters reach over.
int cursorPositionIn(const QTextDocument& document, qsizetype position)
{
    const QTextBlock block = document.findBlock(static_cast<int>(position));
    if (!block.isValid())
        return document.characterCount() - 1;
    return block.position() + cursorPosition(block.text(), position - block.position());
}

} // namespace

TextRange TextAreaSelection::selectedRange() const
{
    if (!m_area)
        return {};
    const int start = m_area->property("selectionStart").toInt();
    return {start, m_area->property("selectionEnd").toInt() - start};
}

void TextAreaSelection::setSelectedRange(const TextRange& range)
{
    if (!m_area)
        return;
    const auto* document = m_area->property("textDocument").value<QQuickTextDocument*>();
    const int start = cursorPositionIn(*document->textDocument(), range.location);
    const int end = cursorPositionIn(*document->textDocument(), range.end());
    if (start == end)
        m_area->setProperty("cursorPosition", start);
    else
        QMetaObject::invokeMethod(m_area, "select", Q_ARG(int, start), Q_ARG(int, end));
}

bool TextAreaSelection::hasFocus() const
{
    return m_area && m_area->hasActiveFocus();
}

void TextAreaSelection::takeFocus()
{
    if (m_area)
        m_area->forceActiveFocus();
}

} // namespace jotwell
