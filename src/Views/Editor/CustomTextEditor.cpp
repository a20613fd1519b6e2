#include "Views/Editor/CustomTextEditor.h"

#include "Platform/Scheduler.h"
#include "Views/Editor/TextSelection.h"

#include <algorithm>
#include <utility>

namespace jotwell {

namespace {

// What a change from `before` to `after` has put in, if it has only put in.
QString insertedText(const QString& before, const QString& after)
{
    const auto differing = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    qsizetype from = differing.second - after.begin();
    if (from > 0 && from < after.size() && after[from].isLowSurrogate())
        --from; // both begin with the same half of a character
    const auto length = std::max<qsizetype>(after.size() - before.size(), 0);
    return after.mid(from, length);
}

} // namespace

CustomTextEditor::CustomTextEditor(CustomTextEditorBindings bindings, Scheduler& scheduler,
                                   QObject* parent)
    : QObject(parent), m_bindings(std::move(bindings)), m_scheduler(scheduler)
{
}

CustomTextEditor::~CustomTextEditor() = default;

void CustomTextEditor::makeView(QTextDocument& document, std::unique_ptr<TextSelection> selection)
{
    m_coordinator.reset();
    m_view = std::make_unique<RoundedBackgroundTextView>(document, std::move(selection));
    m_coordinator = std::make_unique<CustomTextEditorCoordinator>(m_bindings, *m_view, m_scheduler);
    m_view->setOnCommandClick(m_bindings.onCommandClick);
    m_view->setOnTemplateClick(m_bindings.onTemplateClick);
    m_view->setOnHashtagClick(m_bindings.onHashtagClick);
    EditorDocument& text = m_view->document();
    // Before anyone listens: it is styled when it changes.
    text.setString(m_bindings.text(), EditorDocument::UndoStep::own);
    connect(&text, &EditorDocument::aboutToLayOut, this, &CustomTextEditor::documentIsChanging);
    connect(&text, &EditorDocument::edited, this, &CustomTextEditor::documentEdited);
    connect(&text, &EditorDocument::compositionEnded, this, &CustomTextEditor::compositionEnded);
    connect(&text, &EditorDocument::hasEndlessWordChanged, this,
            &CustomTextEditor::hasEndlessWordChanged);
    emit viewMade();
    emit hasEndlessWordChanged();
    updateView();
}

void CustomTextEditor::updateView()
{
    if (!m_view)
        return;
    const bool isForced = m_bindings.forceUpdate();
    if (isComposing()) {
        m_isHeldUp = isForced;
        return;
    }
    if (isForced || (!m_coordinator->isEditing() && m_bindings.text() != m_view->string()))
        takeOver(isForced);
    askForFocus();
}

void CustomTextEditor::takeOver(bool isForced)
{
    m_isHeldUp = false;
    m_coordinator->setIsEditing(false);
    const QString text = m_bindings.text();
    // What the model makes of an edit is undone with it: without it, the text would only be
    // rewritten again.
    m_view->document().setString(text, m_coordinator->isTelling() ? EditorDocument::UndoStep::joined
                                                                  : EditorDocument::UndoStep::own);
    m_view->setSelectedRange({characterCount(text), 0});
    m_coordinator->highlightCommands();
    if (isForced)
        m_scheduler.after({}, this, [this] { m_bindings.setForceUpdate(false); });
}

void CustomTextEditor::askForFocus()
{
    if (!m_bindings.isFocused() || m_view->isFirstResponder())
        return;
    m_scheduler.after({}, this, [this] {
        if (m_view && m_bindings.isFocused())
            m_view->makeFirstResponder();
    });
}

bool CustomTextEditor::isComposing() const
{
    return m_view && m_view->document().isComposing();
}

bool CustomTextEditor::hasEndlessWord() const
{
    return m_view && m_view->document().hasEndlessWord();
}

void CustomTextEditor::documentIsChanging()
{
    const bool isNow = isComposing();
    if (isNow)
        m_view->styles().keepUp(m_view->document().composedParagraph());
    else
        m_coordinator->highlightCommands();
    if (std::exchange(m_wasComposing, isNow) == isNow)
        return;
    if (isNow)
        m_beforeComposition = m_view->string();
    emit isComposingChanged();
}

void CustomTextEditor::documentEdited()
{
    m_coordinator->textDidBeginEditing();
    if (!isComposing()) {
        tellOfEdit();
        return;
    }
    // A part is committed and the rest goes on: the text is safe, and the model waits.
    m_hasUntoldEdit = true;
    if (!m_isHeldUp)
        m_bindings.setText(m_view->string());
}

void CustomTextEditor::compositionEnded()
{
    if (m_hasUntoldEdit)
        tellOfEdit();
    else
        updateView();
}

void CustomTextEditor::tellOfEdit()
{
    m_hasUntoldEdit = false;
    if (!std::exchange(m_isHeldUp, false)) {
        m_coordinator->textDidChange();
        return;
    }
    // A rewrite that a composition has held up stands, and what was composed goes behind it.
    m_bindings.setText(m_bindings.text() + insertedText(m_beforeComposition, m_view->string()));
    if (m_bindings.onTextChange)
        m_bindings.onTextChange();
    updateView();
}

} // namespace jotwell
