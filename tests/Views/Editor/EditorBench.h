#pragma once

#include "Fakes/DocumentSelection.h"
#include "Fakes/FakeScheduler.h"
#include "Views/Editor/CustomTextEditor.h"

#include <QStringList>
#include <QTextDocument>

namespace jotwell {

/// The editor over a plain document, bound to values of its own. Notes down what it calls, and lets
/// later turns of the event loop come when it is told to.
class EditorBench {
public:
    EditorBench();
    EditorBench(const EditorBench&) = delete;
    EditorBench& operator=(const EditorBench&) = delete;

    // The values that it is bound to.

    QString text;
    bool isFocused = false;
    bool forceUpdate = false;
    QStringList templates{QStringLiteral("Daily Note")};
    QStringList folders{QStringLiteral("All Folders"), QStringLiteral("Inbox")};

    bool usesKeys = false;             ///< what the callbacks for keys answer
    QStringList calls;                 ///< such as "onArrowKey up"
    CustomTextEditorBindings bindings; ///< all set; some may be unset before the editor is made

    FakeScheduler scheduler;
    QTextDocument document;

    /// The editor makes its view of `shown`.
    void make(const QString& shown = {});
    /// The same in a document of somebody else's.
    void makeIn(QTextDocument& other, std::unique_ptr<TextSelection> selection,
                const QString& shown = {});
    /// As `make`, and the chips are stored as they are after an edit.
    void makeStyled(const QString& shown);

    [[nodiscard]] CustomTextEditor& editor() { return *m_editor; }
    [[nodiscard]] RoundedBackgroundTextView& view() { return m_editor->view(); }
    [[nodiscard]] CustomTextEditorCoordinator& coordinator() { return m_editor->coordinator(); }
    [[nodiscard]] DocumentSelection& selection() { return *m_selection; }

    void update(const QString& value, bool force = false);
    void type(const QString& characters) { m_selection->type(characters); }
    void nextTurn() { scheduler.advance({}); }
    [[nodiscard]] QStringList takeCalls() { return std::exchange(calls, {}); }

private:
    void bindValues();
    void bindKeys();
    [[nodiscard]] RoundedBackgroundTextView::OnClick noted(const QString& name);

    DocumentSelection* m_selection = nullptr;
    std::unique_ptr<CustomTextEditor> m_editor;
};

} // namespace jotwell
