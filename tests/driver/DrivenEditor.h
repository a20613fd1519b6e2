#pragma once

#include "Views/Editor/CustomTextEditor.h"

#include <QJsonArray>
#include <QTextDocument>

#include <optional>

namespace jotwell {

class DocumentSelection;

/// The real editor, bound to values of a script and to callbacks that note down their calls.
class DrivenEditor {
public:
    /// What the editor's callbacks answer; no answer for one that isn't set.
    struct Answers {
        bool onArrowKey = false;
        bool onEnterKey = false;
        std::optional<bool> onTabKey;
    };
    struct Values {
        QString text;
        bool forceUpdate = false;
        bool isFocused = false;
    };

    /// Has made its view of `text`, and doesn't count that as a call.
    DrivenEditor(const QString& text, const TokenNames& names, Scheduler& scheduler);
    DrivenEditor(const DrivenEditor&) = delete;
    DrivenEditor& operator=(const DrivenEditor&) = delete;

    [[nodiscard]] RoundedBackgroundTextView& view() { return m_editor.view(); }
    [[nodiscard]] CustomTextEditorCoordinator& coordinator() { return m_editor.coordinator(); }
    [[nodiscard]] const Values& values() const { return m_values; }

    void update(const Values& values);
    /// Inserts `text` at the selection as the user does.
    void type(const QString& text);
    void setAnswers(const Answers& answers) { m_answers = answers; }
    /// The calls since the last time.
    [[nodiscard]] QJsonArray takeCalls() { return std::exchange(m_calls, {}); }

private:
    [[nodiscard]] CustomTextEditorBindings bindings(const TokenNames& names);
    void record(const QString& name);
    [[nodiscard]] RoundedBackgroundTextView::OnClick recordedClick(const QString& name);

    Values m_values;
    Answers m_answers;
    QJsonArray m_calls;
    QTextDocument m_document;
    DocumentSelection* m_selection; ///< the view's
    CustomTextEditor m_editor;
};

} // namespace jotwell
