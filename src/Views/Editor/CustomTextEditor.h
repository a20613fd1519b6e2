#pragma once

#include "Views/Editor/CustomTextEditorBindings.h"
#include "Views/Editor/CustomTextEditorCoordinator.h"
#include "Views/Editor/RoundedBackgroundTextView.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <memory>

class QTextDocument;

namespace jotwell {

class Scheduler;
class TextSelection;

/// Keeps the text view and what it is bound to in step. What the user types goes out at each
/// change; a change from outside reaches the view only while the user isn't typing, or when it is
/// forced. While an input method is composing nothing is rewritten, styled or told of. Main thread;
/// the text view's document may go before it.
class CustomTextEditor : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(CustomTextEditorState)
    QML_UNCREATABLE("belongs to the state of the capture window")

    Q_PROPERTY(QString placeholder READ placeholder CONSTANT)
    Q_PROPERTY(bool isComposing READ isComposing NOTIFY isComposingChanged)
    Q_PROPERTY(bool hasEndlessWord READ hasEndlessWord NOTIFY hasEndlessWordChanged)

public:
    CustomTextEditor(CustomTextEditorBindings bindings, Scheduler& scheduler,
                     QObject* parent = nullptr);
    ~CustomTextEditor() override;

    [[nodiscard]] const CustomTextEditorBindings& bindings() const { return m_bindings; }

    /// Works on `document` from now on, and shows the bound text in it.
    void makeView(QTextDocument& document, std::unique_ptr<TextSelection> selection);
    /// A bound value has changed.
    void updateView();
    [[nodiscard]] bool hasView() const { return m_view != nullptr; }
    // There has to be a view.
    [[nodiscard]] RoundedBackgroundTextView& view() { return *m_view; }
    [[nodiscard]] CustomTextEditorCoordinator& coordinator() { return *m_coordinator; }

    [[nodiscard]] const QString& placeholder() const { return m_bindings.placeholder; }
    /// An input method is composing: keys are its own.
    [[nodiscard]] bool isComposing() const;
    [[nodiscard]] bool hasEndlessWord() const;

signals:
    void isComposingChanged();
    void hasEndlessWordChanged();
    void viewMade();

private:
    void takeOver(bool isForced);
    void askForFocus();
    void documentIsChanging();
    void documentEdited();
    void compositionEnded();
    void tellOfEdit();

    const CustomTextEditorBindings m_bindings;
    Scheduler& m_scheduler;
    std::unique_ptr<RoundedBackgroundTextView> m_view;
    std::unique_ptr<CustomTextEditorCoordinator> m_coordinator;
    bool m_wasComposing = false;
    QString m_beforeComposition;
    bool m_isHeldUp = false;      ///< a rewrite waits for the end of the composition
    bool m_hasUntoldEdit = false; ///< of a composition that isn't over
};

} // namespace jotwell
