#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickTextDocument>
#include <QtQml/qqmlregistration.h>

#include <functional>

class QTextDocument;

namespace jotwell {

class CommandTemplateState;
class Scheduler;

/// Where the cursor goes in a text that the model has rewritten: as far in as the text has
/// characters, and never into the middle of one.
[[nodiscard]] int cursorAfterUpdate(const QString& text);

/// The text of a document, character for character but for its line ends.
[[nodiscard]] QString plainText(const QTextDocument& document);

/// Keeps the text area on the screen and the text of the input state in step, and turns keys into
/// events. What the user types goes into the state at each change; a change from outside reaches
/// the text area only while the user isn't typing, or when the state forces it. Main thread; owned
/// by the view that it serves, and may outlive the text area.
class CustomTextEditor : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(CustomTextEditorCoordinator)
    QML_UNCREATABLE("belongs to the state of the capture window")

    Q_PROPERTY(QString placeholder READ placeholder CONSTANT)
    Q_PROPERTY(bool isComposing READ isComposing WRITE setIsComposing NOTIFY isComposingChanged)
    Q_PROPERTY(bool hasEndlessWord READ hasEndlessWord NOTIFY hasEndlessWordChanged)

public:
    CustomTextEditor(CommandTemplateState& model, Scheduler& scheduler, QString placeholder,
                     QObject* parent = nullptr);

    /// What Ctrl+Return runs.
    void setOnCommandEnter(std::function<void()> action) { m_onCommandEnter = std::move(action); }

    [[nodiscard]] const QString& placeholder() const { return m_placeholder; }

    /// An input method is composing: the text is its own until it commits.
    [[nodiscard]] bool isComposing() const { return m_isComposing; }
    void setIsComposing(bool composing);

    /// The text holds a word of thousands of characters, such as an encoded picture: looking for
    /// places to wrap it would take the square of its length.
    [[nodiscard]] bool hasEndlessWord() const { return m_hasEndlessWord; }

    /// The text area has made its document.
    Q_INVOKABLE void attach(QQuickTextDocument* document);
    /// The text area has lost the keyboard to another part of the window.
    Q_INVOKABLE void endEditing();
    /// True if the key press is used up here.
    Q_INVOKABLE bool handleKey(int key, int modifiers, bool isRepeat);

signals:
    void isComposingChanged();
    void hasEndlessWordChanged();
    /// The text area is to put its cursor there.
    void cursorMoved(int position);

private:
    void update();
    void takeOver(const QString& text);
    void documentIsChanging(int position, int removed, int added);
    void documentChanged();
    void setHasEndlessWord(bool has);

    CommandTemplateState& m_model;
    Scheduler& m_scheduler;
    const QString m_placeholder;
    std::function<void()> m_onCommandEnter;
    QPointer<QTextDocument> m_document;
    QString m_mirrored; ///< the state's text that the document shows
    bool m_isEditing = false;
    bool m_isComposing = false;
    bool m_isTakingOver = false;
    bool m_isHeldUp = false; ///< a rewrite waits for the end of a composition
    bool m_hasEndlessWord = false;
};

} // namespace jotwell
