#include "Views/Settings/TemplateText.h"

namespace jotwell {

void TemplateText::setDocument(QQuickTextDocument* document)
{
    if (m_document || !document)
        return;
    m_document = document;
    m_editor = std::make_unique<EditorDocument>(*document->textDocument());
    connect(m_editor.get(), &EditorDocument::edited, this,
            [this] { emit edited(m_editor->string()); });
    connect(m_editor.get(), &EditorDocument::aboutToLayOut, this, &TemplateText::noteComposition);
    connect(m_editor.get(), &EditorDocument::compositionEnded, this,
            &TemplateText::noteComposition);
    show();
    emit documentChanged();
}

void TemplateText::setOwner(const QString& owner)
{
    if (m_owner == owner)
        return;
    m_owner = owner;
    m_isOfAnother = true;
    show();
    emit ownerChanged();
}

void TemplateText::setText(const QString& text)
{
    if (m_text != text) {
        m_text = text;
        emit textChanged();
    }
    show();
}

// Another one's text comes in whatever is being composed.
void TemplateText::show()
{
    if (!m_editor || (m_editor->isComposing() && !m_isOfAnother))
        return;
    if (m_editor->string() != m_text)
        m_editor->setString(m_text, EditorDocument::UndoStep::own);
    if (m_isOfAnother)
        m_editor->document()->clearUndoRedoStacks();
    m_isOfAnother = false;
}

void TemplateText::noteComposition()
{
    if (m_isComposing == m_editor->isComposing())
        return;
    m_isComposing = m_editor->isComposing();
    emit isComposingChanged();
    if (!m_isComposing)
        show();
}

} // namespace jotwell
