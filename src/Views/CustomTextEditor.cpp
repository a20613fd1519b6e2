#include "Views/CustomTextEditor.h"

#include "Platform/Scheduler.h"
#include "Services/CommandTemplateManager.h"
#include "Support/TextUnits.h"

#include <QQuickItem>
#include <QScopedValueRollback>
#include <QTextBlock>
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

// Characters without a blank between them from which on a word counts as endless.
constexpr qsizetype endlessLength = 4000;

bool hasEndlessWordIn(QStringView text)
{
    qsizetype length = 0;
    return std::any_of(text.begin(), text.end(), [&length](QChar c) {
        length = c.isSpace() ? 0 : length + 1;
        return length >= endlessLength;
    });
}

// What a change from `before` to `after` has put in, if it has only put in.
QString insertedText(const QString& before, const QString& after)
{
    const auto differing = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    const auto length = std::max<qsizetype>(after.size() - before.size(), 0);
    return after.mid(differing.second - after.begin(), length);
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
    connect(&m_model, &CommandTemplateState::changed, this,
            [this](CommandTemplateState::Field field) {
                if (field == CommandTemplateState::Field::text ||
                    field == CommandTemplateState::Field::forceTextUpdate)
                    update();
            });
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
    connect(m_document, &QTextDocument::contentsChange, this,
            &CustomTextEditor::documentIsChanging);
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
    const bool force = m_model.forceTextUpdate();
    if (m_isComposing)
        m_isHeldUp = force;
    if (!m_document || m_isComposing)
        return;
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
    m_isHeldUp = false;
    if (plainText(*m_document) != text) {
        const QScopedValueRollback takingOver(m_isTakingOver, true);
        replaceAll(*m_document, text);
    }
    emit cursorMoved(cursorAfterUpdate(text));
}

// Before the new text is laid out.
void CustomTextEditor::documentIsChanging(int position, int /*removed*/, int added)
{
    if (m_hasEndlessWord || added == 0)
        return;
    // The words that the change touches are within its paragraphs.
    const QTextBlock last = m_document->findBlock(position + added);
    for (QTextBlock block = m_document->findBlock(position); block.isValid();
         block = block.next()) {
        setHasEndlessWord(hasEndlessWordIn(block.text()));
        if (m_hasEndlessWord || block == last)
            return;
    }
}

void CustomTextEditor::setHasEndlessWord(bool has)
{
    if (m_hasEndlessWord == has)
        return;
    m_hasEndlessWord = has;
    emit hasEndlessWordChanged();
}

void CustomTextEditor::documentChanged()
{
    if (m_hasEndlessWord)
        setHasEndlessWord(hasEndlessWordIn(plainText(*m_document)));
    if (m_isTakingOver)
        return;
    // The document also changes with each step of a composition, while its text stays the same.
    const QString text = plainText(*m_document);
    if (text == m_mirrored)
        return;
    // A rewrite that a composition has held up stands, and what was composed goes behind it.
    const QString edited = m_isHeldUp ? m_model.text() + insertedText(m_mirrored, text) : text;
    m_mirrored = text;
    m_isEditing = true;
    m_model.setText(edited);
}

} // namespace jotwell
