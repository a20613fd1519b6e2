#pragma once

#include "Models/ArrowDirection.h"
#include "Services/Input/DebouncedSearch.h"
#include "Services/Input/Dropdown.h"
#include "Services/Input/ObservedFields.h"
#include "Services/Input/TokenReplacement.h"

#include <QCoroTask>

#include <QList>
#include <QObject>

#include <optional>

namespace jotwell {

/// The model behind the capture window's text field: holds the whole text, decides after each
/// change which completion list is open, keeps its rows and the selected one, rewrites the text
/// where the input language asks for it, and runs the command in it. Main thread only; owned by the
/// capture window's view.
class CommandTemplateState : public QObject {
    Q_OBJECT

public:
    using Field = CommandTemplateField;
    /// A row of any of the lists.
    using Item = Dropdown::Item;

    explicit CommandTemplateState(const InputServices& services, QObject* parent = nullptr);

    [[nodiscard]] const CommandTemplateFields& fields() const { return m_fields.values(); }
    [[nodiscard]] const QString& text() const { return m_fields->text; }
    [[nodiscard]] bool forceTextUpdate() const { return m_fields->forceTextUpdate; }

    /// Takes over what the user has written; `handleTextChange` is to follow.
    void setText(const QString& text);
    void setForceTextUpdate(bool force);
    void setCurrentTemplate(const std::optional<ObsidianTemplate>& value);

    /// The rows of the open list; none if no list is open.
    [[nodiscard]] QList<Item> dropdownItems() const { return m_dropdown.items(); }
    [[nodiscard]] std::optional<Item> selectedItem() const { return m_dropdown.selectedItem(); }
    /// What may stand behind a "$" now.
    [[nodiscard]] const InputNames& names() const { return m_dropdown.names(); }
    /// What the search will look for that waits for a pause in the typing; none if none waits.
    [[nodiscard]] std::optional<QString> searchQuery() const { return m_search.pendingQuery(); }

    /// To be called after each edit of the text by the user.
    void handleTextChange();
    void closeDropdowns();

    // What the end of the text is if a token is being typed there, from its "/", "$" or "#" on.

    [[nodiscard]] QString getCurrentCommandInput() const; ///< empty if there is none
    [[nodiscard]] std::optional<QString> getCurrentTemplateInput() const;
    [[nodiscard]] std::optional<QString> getCurrentFolderInput() const;
    [[nodiscard]] std::optional<QString> getCurrentHashtagInput() const;

    // Whether the text holds a whole parameter.

    [[nodiscard]] bool hasExistingTemplate() const;
    [[nodiscard]] bool hasExistingFolderParameter() const;

    // Each opens its list with the rows that fit what is being typed.

    void updateCommandDropdown(const QString& input);
    void updateTemplateDropdown();
    void updateFolderDropdown();
    void updateHashtagDropdown(const QString& input);

    /// Puts the row into the text in place of the token that it completes.
    void selectItem(const Item& item);
    /// Moves the selection; true if the key was used.
    bool handleArrowKey(ArrowDirection direction);
    /// Selects a row of the open list; a row that isn't there is passed over.
    void selectItemAtIndex(qsizetype index, std::optional<ArrowDirection> direction);
    /// Chooses the selected row; true if the key was used.
    bool handleEnterKey();

    // A click on a token opens the list of everything that may stand in its place.

    void handleCommandClick(const TextRange& range);
    void handleTemplateClick(const TextRange& range);
    void handleHashtagClick(const TextRange& range);

    /// Runs the command that the text holds; false if it holds none or the command failed. A
    /// command that succeeded leaves the text empty, a failed one leaves it as it is.
    QCoro::Task<bool> executeCommand();

signals:
    /// After each assignment of another value, in the order of the assignments.
    void changed(jotwell::CommandTemplateField field);
    /// The list is to show its selected row; the direction in which an arrow key has moved it.
    void scrollToSelectedItem(std::optional<jotwell::ArrowDirection> direction);

private:
    [[nodiscard]] bool holds(Command command) const;
    void rewriteText(const QString& text);

    void addFolderParameter();
    void addTemplateParameter();
    void chooseList(const QString& commandInput);
    void waitForSearch();

    void select(Command command);
    void select(const ObsidianTemplate& chosen);
    void select(const FolderItem& folder);
    void select(const HashtagItem& hashtag);
    void putCommand(Command command, const TokenCut& cut, TokenOrigin origin);
    void putRecentNotes(const TokenCut& cut);
    void putToken(const std::optional<TextRange>& clicked, const std::optional<QString>& typed,
                  const QString& token, const QString& behindTyped = {});

    InputServices m_services;
    ObservedFields m_fields;
    Dropdown m_dropdown;
    DebouncedSearch m_search;
};

} // namespace jotwell
