#include "Views/Editor/EditorDocument.h"

#include <QScopedValueRollback>
#include <QTextBlock>
#include <QTextLayout>

#include <algorithm>
#include <utility>

namespace jotwell {

namespace {

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

// The document's own marks of a paragraph's end.
bool isParagraphEnd(QChar c)
{
    return c == QChar::ParagraphSeparator || c == QChar(0xfdd0) || c == QChar(0xfdd1);
}

QString withNewlines(QString text)
{
    std::replace_if(text.begin(), text.end(), isParagraphEnd, QLatin1Char('\n'));
    return text;
}

QString textBetween(QTextDocument& document, int from, int to)
{
    if (to == from + 1)
        return withNewlines(document.characterAt(from));
    QTextCursor cursor(&document);
    cursor.setPosition(from);
    cursor.setPosition(to, QTextCursor::KeepAnchor);
    return withNewlines(cursor.selectedText());
}

// A text as the document tells it.
QString asShown(QStringView text)
{
    QString shown = withNewlines(text.toString());
    shown.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    return shown.replace(u'\r', u'\n');
}

std::vector<int> lineEndPairs(QStringView text)
{
    std::vector<int> pairs;
    for (qsizetype at = text.indexOf(u'\r'); at >= 0; at = text.indexOf(u'\r', at + 1)) {
        if (at + 1 < text.size() && text[at + 1] == u'\n')
            pairs.push_back(static_cast<int>(at) - static_cast<int>(pairs.size()));
    }
    return pairs;
}

// The number of units that document positions count; the document ends with one mark more.
int lengthOf(const QTextDocument& document)
{
    return document.characterCount() - 1;
}

bool isComposingIn(const QTextBlock& block)
{
    return block.isValid() && !block.layout()->preeditAreaText().isEmpty();
}

bool splitsCharacter(QStringView text, qsizetype position)
{
    return position > 0 && position < text.size() &&
           ((text[position - 1].isHighSurrogate() && text[position].isLowSurrogate()) ||
            (text[position - 1] == u'\r' && text[position] == u'\n'));
}

struct Difference {
    qsizetype from;
    qsizetype oldEnd;
    qsizetype newEnd;
};

Difference difference(QStringView before, QStringView after)
{
    const auto start = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    qsizetype from = start.first - before.begin();
    while (splitsCharacter(before, from) || splitsCharacter(after, from))
        --from;
    const qsizetype room = std::min(before.size(), after.size()) - from;
    qsizetype tail = 0;
    while (tail < room && before[before.size() - 1 - tail] == after[after.size() - 1 - tail])
        ++tail;
    while (tail > 0 && (splitsCharacter(before, before.size() - tail) ||
                        splitsCharacter(after, after.size() - tail)))
        --tail;
    return {from, before.size() - tail, after.size() - tail};
}

} // namespace

EditorDocument::EditorDocument(QTextDocument& document, QObject* parent)
    : QObject(parent), m_document(&document)
{
    document.documentLayout(); // without one, a document doesn't tell what changes
    setText(withNewlines(document.toRawText()));
    connect(m_document, &QTextDocument::contentsChange, this, &EditorDocument::contentsAreChanging);
    connect(m_document, &QTextDocument::contentsChanged, this, &EditorDocument::contentsChanged);
}

void EditorDocument::setString(const QString& text, UndoStep step)
{
    if (!m_document || text == m_string)
        return;
    if (step == UndoStep::joined)
        takeBackLastStep();
    replaceDifference(text);
}

void EditorDocument::replaceDifference(const QString& text)
{
    const Difference changed = difference(m_string, text);
    replace({changed.from, changed.oldEnd - changed.from},
            text.sliced(changed.from, changed.newEnd - changed.from), text);
}

void EditorDocument::replaceCharacters(const TextRange& range, const QString& text)
{
    QString whole = m_string;
    whole.replace(range.location, range.length, text);
    if (m_document)
        replace(range, text, whole);
}

// As an edit that the user can undo: what they typed is never gone for good.
void EditorDocument::replace(const TextRange& range, const QString& text, const QString& whole)
{
    QTextCursor cursor(m_document);
    cursor.setPosition(toDocument(range.location));
    cursor.setPosition(toDocument(range.end()), QTextCursor::KeepAnchor);
    const QScopedValueRollback replacement(m_replacement, std::optional(whole));
    cursor.beginEditBlock();
    cursor.insertText(text);
    m_hasDirections = m_hasDirections || hasRightToLeft(whole); // the text itself comes later
    setDirections(cursor, paragraphsToTurn());
    // Changes nothing, but keeps what is typed next from becoming part of this step.
    cursor.setBlockFormat(cursor.blockFormat());
    cursor.endEditBlock();
}

// The document itself joins edits only to those that were made in a block, which typing isn't.
void EditorDocument::takeBackLastStep()
{
    const QScopedValueRollback takingBack(m_isTakingBack, true);
    m_document->undo();
}

bool EditorDocument::isComposing() const
{
    return m_document && !m_composition.isNull() && isComposingIn(m_composition.block());
}

int EditorDocument::toDocument(qsizetype position) const
{
    // How many pairs begin before it: one of the text begins a unit later for each that is before.
    const auto behind = std::partition_point(m_pairs.begin(), m_pairs.end(), [&](const int& pair) {
        return pair + (&pair - m_pairs.data()) < position;
    });
    return static_cast<int>(position - (behind - m_pairs.begin()));
}

qsizetype EditorDocument::toString(int documentPosition) const
{
    const auto behind = std::lower_bound(m_pairs.begin(), m_pairs.end(), documentPosition);
    return documentPosition + (behind - m_pairs.begin());
}

// Before the new text is laid out.
void EditorDocument::contentsAreChanging(int position, int removed, int added)
{
    const bool isOther =
        m_replacement ? setText(*m_replacement) : takeOver(position, removed, added);
    m_isEdited = m_isEdited || (isOther && !m_replacement && !m_isTakingBack);
    m_changeStart = position;
    m_changeEnd = position + added;
    noteComposition(position, added);
    findEndlessWord(position, added);
    emit aboutToLayOut();
}

void EditorDocument::contentsChanged()
{
    const bool hasEnded = m_wasComposing && !isComposing();
    m_wasComposing = isComposing();
    const bool isEdited = std::exchange(m_isEdited, false);
    if ((isEdited || hasEnded) && !m_wasComposing)
        turnParagraphs();
    if (isEdited)
        emit edited();
    if (hasEnded)
        emit compositionEnded();
}

std::vector<ParagraphDirection> EditorDocument::paragraphsToTurn()
{
    m_hasDirections = m_hasDirections || hasRightToLeft(m_string);
    return m_hasDirections ? wrongDirections(*m_document) : std::vector<ParagraphDirection>();
}

// As part of the edit that asks for it: by itself it would be one more step to undo.
void EditorDocument::turnParagraphs()
{
    // What an undo or a redo brings back has its directions.
    if (m_document->isRedoAvailable() || paragraphsToTurn().empty())
        return;
    const QString edited = m_string;
    takeBackLastStep();
    replaceDifference(edited);
}

bool EditorDocument::takeOver(int position, int removed, int added)
{
    // The mark at the document's end is counted with a change that touches it.
    const int length = lengthOf(*m_document);
    const int end = std::min(position + added, length);
    const int oldLength = toDocument(m_string.size());
    const int oldEnd = std::min(position + removed, oldLength);
    if (position > end || position > oldEnd || oldLength - oldEnd != length - end)
        return setText(withNewlines(m_document->toRawText()));
    const qsizetype from = toString(position);
    const qsizetype size = toString(oldEnd) - from;
    const QString now = textBetween(*m_document, position, end);
    if (asShown(QStringView(m_string).sliced(from, size)) == now)
        return false;
    m_string.replace(from, size, now);
    m_pairs = lineEndPairs(m_string);
    return true;
}

bool EditorDocument::setText(QString text)
{
    const bool isOther = text != m_string;
    m_string = std::move(text);
    m_pairs = lineEndPairs(m_string);
    if (toDocument(m_string.size()) != lengthOf(*m_document)) {
        m_string = withNewlines(m_document->toRawText());
        m_pairs.clear();
    }
    return isOther;
}

void EditorDocument::noteComposition(int position, int added)
{
    if (isComposing())
        return;
    const QTextBlock last = m_document->findBlock(position + added);
    for (QTextBlock block = m_document->findBlock(position); block.isValid();
         block = block.next()) {
        if (isComposingIn(block)) {
            m_composition = QTextCursor(block);
            m_wasComposing = true;
            return;
        }
        if (block == last)
            return;
    }
}

void EditorDocument::findEndlessWord(int position, int added)
{
    if (m_hasEndlessWord || added == 0) {
        setHasEndlessWord(m_hasEndlessWord && hasEndlessWordIn(m_string));
        return;
    }
    // The words that the change touches are within its paragraphs.
    const QTextBlock last = m_document->findBlock(position + added);
    for (QTextBlock block = m_document->findBlock(position); block.isValid();
         block = block.next()) {
        setHasEndlessWord(hasEndlessWordIn(block.text()));
        if (m_hasEndlessWord || block == last)
            return;
    }
}

void EditorDocument::setHasEndlessWord(bool has)
{
    if (m_hasEndlessWord == has)
        return;
    m_hasEndlessWord = has;
    emit hasEndlessWordChanged();
}

} // namespace jotwell
