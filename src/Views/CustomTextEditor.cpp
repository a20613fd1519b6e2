#include "Views/CustomTextEditor.h"

#include "Platform/Scheduler.h"
#include "Services/CommandTemplateManager.h"
#include "Support/TextUnits.h"

#include <QQuickItem>
#include <QScopedValueRollback>
#include <QTextBoundaryFinder>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace jotwell {

namespace {

// As one edit that the user can undo: what they typed is never gone for good.
void replaceAll(QTextDocument& document, const QString& text)
{
    QTextCursor cursor(&document);
    cursor.select(QTextCursor::Document);
    cursor.insertText(text);
}

} // namespace

int cursorAfterUpdate(const QString& text)
{
    if (text.isEmpty())
        return 0;
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, text);
    characters.setPosition(characterCount(text));
    if (!characters.isAtBoundary())
        characters.toNextBoundary();
    return static_cast<int>(characters.position());
}

QString plainText(const QTextDocument& document)
{
    // Unlike toPlainText, this keeps the no-break blanks.
    QString text = document.toRawText();
    const auto isLineEnd = [](QChar c) {
        return c == QChar::ParagraphSeparator || c == QChar::LineSeparator || c == QChar(0xfdd0) ||
               c == QChar(0xfdd1);
    };
    std::replace_if(text.begin(), text.end(), isLineEnd, QLatin1Char('\n'));
    return text;
}

CustomTextEditor::CustomTextEditor(CommandTemplateState& model, Scheduler& scheduler,
                                   QString placeholder, QObject* parent)
    : QObject(parent), m_model(model), m_scheduler(scheduler), m_placeholder(std::move(placeholder))
{
    connect(&m_model, &CommandTemplateState::textChanged, this, &CustomTextEditor::update);
    connect(&m_model, &CommandTemplateState::forceTextUpdateChanged, this,
            &CustomTextEditor::update);
}

void CustomTextEditor::setIsComposing(bool composing)
{
    if (m_isComposing == composing)
        return;
    m_isComposing = composing;
    emit isComposingChanged();
    update();
}

void CustomTextEditor::attach(QQuickTextDocument* document)
{
    // Only what can be seen of a long text is to be drawn; by itself a text area does that only for
    // text that the program sets.
    if (auto* area = qobject_cast<QQuickItem*>(document->parent()))
        area->setFlag(QQuickItem::ItemObservesViewport);
    m_document = document->textDocument();
    connect(m_document, &QTextDocument::contentsChanged, this, &CustomTextEditor::documentChanged);
    update();
}

void CustomTextEditor::endEditing()
{
    m_isEditing = false;
}

bool CustomTextEditor::handleKey(int key, int modifiers, bool isRepeat)
{
    const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (!isReturn || (modifiers & Qt::ControlModifier) == 0 || m_isComposing)
        return false;
    // A key held down a moment too long must not run the command again.
    if (!isRepeat && m_onCommandEnter)
        m_onCommandEnter();
    return true;
}

void CustomTextEditor::update()
{
    if (!m_document || m_isComposing)
        return;
    const bool force = m_model.forceTextUpdate();
    if (!force && (m_isEditing || m_model.text() == m_mirrored))
        return;
    m_isEditing = false;
    takeOver(m_model.text());
    if (force)
        m_scheduler.after({}, this, [this] { m_model.setForceTextUpdate(false); });
}

void CustomTextEditor::takeOver(const QString& text)
{
    m_mirrored = text;
    if (plainText(*m_document) != text) {
        const QScopedValueRollback takingOver(m_isTakingOver, true);
        replaceAll(*m_document, text);
    }
    emit cursorMoved(cursorAfterUpdate(text));
}

void CustomTextEditor::documentChanged()
{
    if (m_isTakingOver)
        return;
    // The document also changes with each step of a composition, while its text stays the same.
    const QString text = plainText(*m_document);
    if (text == m_mirrored)
        return;
    m_mirrored = text;
    m_isEditing = true;
    m_model.setText(text);
}

} // namespace jotwell
