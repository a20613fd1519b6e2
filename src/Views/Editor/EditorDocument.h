#pragma once

#include "Support/TextUnits.h"
#include "Views/Editor/ParagraphDirections.h"

#include <QObject>
#include <QPointer>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <optional>
#include <vector>

namespace jotwell {

/// The text of the editor as it was written, beside the document that shows it: a text document
/// makes paragraphs of line ends of several kinds. Positions and ranges are in UTF-16 units of the
/// text unless they are said to be the document's. Main thread; the document may go before it.
class EditorDocument : public QObject {
    Q_OBJECT

public:
    /// How a replacement can be undone: by itself, or together with the edit before it.
    enum class UndoStep { own, joined };

    /// Works on `document` from now on.
    explicit EditorDocument(QTextDocument& document, QObject* parent = nullptr);

    [[nodiscard]] const QString& string() const { return m_string; }
    /// Replaces what differs from `text`. Not told as an edit by the user.
    void setString(const QString& text, UndoStep step);
    /// Replaces one range by `text`, as a step of its own. Not told as an edit by the user.
    void replaceCharacters(const TextRange& range, const QString& text);

    /// An input method is composing in the document; what is composed isn't part of the text.
    [[nodiscard]] bool isComposing() const;
    /// The paragraph in which it is at work.
    [[nodiscard]] QTextBlock composedParagraph() const { return m_composition.block(); }
    /// The text holds a word of thousands of characters, such as an encoded picture: looking for
    /// places to wrap it would take the square of its length.
    [[nodiscard]] bool hasEndlessWord() const { return m_hasEndlessWord; }

    /// Whether the last change of the document reaches into the paragraph between those positions
    /// of the document.
    [[nodiscard]] bool isChanged(int start, int end) const
    {
        return start <= m_changeEnd && end > m_changeStart;
    }

    [[nodiscard]] QTextDocument* document() const { return m_document; }
    /// Positions of the text and of the document for one another.
    [[nodiscard]] int toDocument(qsizetype position) const;
    [[nodiscard]] qsizetype toString(int documentPosition) const;

signals:
    /// The text or what is composed has changed and is about to be laid out.
    void aboutToLayOut();
    /// The user has edited the text.
    void edited();
    void compositionEnded();
    void hasEndlessWordChanged();

private:
    void contentsAreChanging(int position, int removed, int added);
    void contentsChanged();
    /// True if the text is another one now.
    bool takeOver(int position, int removed, int added);
    bool setText(QString text);
    void noteComposition(int position, int added);
    void findEndlessWord(int position, int added);
    void setHasEndlessWord(bool has);
    void replace(const TextRange& range, const QString& text, const QString& whole);
    void replaceDifference(const QString& text);
    void takeBackLastStep();
    void turnParagraphs();
    [[nodiscard]] std::vector<ParagraphDirection> paragraphsToTurn();

    QPointer<QTextDocument> m_document;
    QString m_string;
    std::vector<int> m_pairs;             ///< the document's positions of line ends of two units
    std::optional<QString> m_replacement; ///< the text while the document is being made to show it
    QTextCursor m_composition;            ///< in the paragraph where an input method is at work
    int m_changeStart = 0;                ///< positions of the document
    int m_changeEnd = 0;
    bool m_wasComposing = false;
    bool m_hasEndlessWord = false;
    bool m_isEdited = false;
    bool m_isTakingBack = false;
    bool m_hasDirections = false; ///< some text runs or ran from right to left
};

} // namespace jotwell
