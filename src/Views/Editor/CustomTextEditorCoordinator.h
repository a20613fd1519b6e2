#pragma once

#include "Views/Editor/CustomTextEditorBindings.h"
#include "Views/Editor/ReadyNames.h"
#include "Views/Editor/RoundedBackgroundTextView.h"
#include "Views/Editor/TokenHighlighter.h"

#include <QObject>
#include <QString>

#include <optional>

namespace jotwell {

class Scheduler;

/// The event behind an editing command, in the numbers of key codes and modifier bits that the
/// settings store.
struct CurrentEvent {
    static constexpr int keyDown = 10;
    static constexpr int returnKey = 36;
    static constexpr quint64 commandModifier = 1U << 20U;

    int type = 0;
    int keyCode = 0;
    quint64 modifierFlags = 0;

    [[nodiscard]] bool hasCommand() const { return (modifierFlags & commandModifier) != 0; }
};

/// The editor's delegate: what the user does in the text view becomes events of the model, and the
/// text is styled. Main thread; owned by the editor, with the view and the bindings.
class CustomTextEditorCoordinator : public QObject {
    Q_OBJECT

public:
    CustomTextEditorCoordinator(const CustomTextEditorBindings& parent,
                                RoundedBackgroundTextView& view, Scheduler& scheduler);

    /// From the first edit until editing ends or the text was replaced.
    [[nodiscard]] bool isEditing() const { return m_isEditing; }
    void setIsEditing(bool isEditing) { m_isEditing = isEditing; }

    void textDidBeginEditing() { m_isEditing = true; }
    void textDidEndEditing() { m_isEditing = false; }
    /// The user has edited the text; it is styled by then.
    void textDidChange();
    /// The model is being told of an edit.
    [[nodiscard]] bool isTelling() const { return m_isTelling; }
    /// An editing key was pressed, under its selector's name such as "insertNewline:"; true if it
    /// is used up. `event` is the key press itself, if there was one.
    bool doCommandBy(QStringView selector, const std::optional<CurrentEvent>& event);
    /// Deletes the slash word at the cursor as one; true if there was one.
    bool handleCommandBackspace();
    /// Styles the whole text, and stores its chips on a later turn.
    void highlightCommands();

private:
    void storeChips();

    const CustomTextEditorBindings& m_parent;
    RoundedBackgroundTextView& m_view;
    Scheduler& m_scheduler;
    ReadyNames m_names;
    bool m_isEditing = false;
    bool m_isTelling = false;
    TokenRanges m_found; ///< chips that are to be stored
    bool m_storesChips = false;
};

} // namespace jotwell
