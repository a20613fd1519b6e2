#pragma once

#include "Models/ArrowDirection.h"
#include "Models/Command.h"
#include "Models/DropdownItem.h"
#include "Models/DropdownType.h"
#include "Models/FolderItem.h"
#include "Models/HashtagItem.h"
#include "Models/ObsidianTemplate.h"
#include "Services/Input/InputServices.h"
#include "Support/TextUnits.h"

#include <QCoroTask>

#include <QList>
#include <QObject>

#include <optional>
#include <variant>

namespace jotwell {

/// What `CommandTemplateState` holds, by the names of its fields. Ranges are in UTF-16 units of
/// `text`.
struct CommandTemplateFields {
    bool showDropdown = false;
    DropdownType dropdownType = DropdownType::none;
    std::optional<Command> selectedCommand;
    std::optional<ObsidianTemplate> selectedTemplate;
    QList<Command> filteredCommands;
    ObsidianTemplates filteredTemplates;
    QList<FolderItem> filteredFolders;
    QList<HashtagItem> filteredHashtags;
    std::optional<TextRange> clickedCommandRange;    ///< the list replaces this token
    std::optional<TextRange> clickedTemplateRange;   ///< or this one, a template or a folder
    std::optional<TextRange> clickedHashtagRange;    ///< or this one
    std::optional<ObsidianTemplate> currentTemplate; ///< that the text carries
    std::optional<QString> currentFolderName;        ///< that the text carries
    std::optional<HashtagItem> selectedHashtag;
    QString text;
    bool forceTextUpdate = false; ///< the editor is to take `text` over, also while the user types
    std::optional<FolderItem> selectedFolder;
};

/// The model behind the capture window's text field: holds the whole text, decides after each
/// change which completion list is open, keeps its rows and the selected one, rewrites the text
/// where the input language asks for it, and runs the command in it. Main thread only; owned by the
/// capture window's view.
class CommandTemplateState : public QObject {
    Q_OBJECT

public:
    enum class Field {
        showDropdown,
        dropdownType,
        selectedCommand,
        selectedTemplate,
        filteredCommands,
        filteredTemplates,
        filteredFolders,
        filteredHashtags,
        clickedCommandRange,
        clickedTemplateRange,
        clickedHashtagRange,
        currentTemplate,
        currentFolderName,
        selectedHashtag,
        text,
        forceTextUpdate,
        selectedFolder
    };
    Q_ENUM(Field)

    /// A row of any of the lists.
    using Item = std::variant<Command, ObsidianTemplate, FolderItem, HashtagItem>;

    explicit CommandTemplateState(const InputServices& services, QObject* parent = nullptr);

    [[nodiscard]] const CommandTemplateFields& fields() const { return m_fields; }
    [[nodiscard]] const QString& text() const { return m_fields.text; }
    [[nodiscard]] bool forceTextUpdate() const { return m_fields.forceTextUpdate; }

    /// Takes over what the user has written; `handleTextChange` is to follow.
    void setText(const QString& text);
    void setForceTextUpdate(bool force);
    void setCurrentTemplate(std::optional<ObsidianTemplate> value);

    /// The rows of the open list; none if no list is open.
    [[nodiscard]] QList<Item> dropdownItems() const;
    [[nodiscard]] std::optional<Item> selectedItem() const;

    /// To be called after each edit of the text by the user.
    void handleTextChange();
    void closeDropdowns();

    /// Puts the row into the text in place of the token that it completes.
    void selectItem(const Item& item);
    /// Moves the selection; true if the key was used.
    bool handleArrowKey(ArrowDirection direction);
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
    void changed(jotwell::CommandTemplateState::Field field);
    /// The list is to show its selected row; the direction in which an arrow key has moved it.
    void scrollToSelectedItem(std::optional<jotwell::ArrowDirection> direction);

private:
    template <typename T>
    void set(T CommandTemplateFields::*member, Field field, T value);

    InputServices m_services;
    CommandTemplateFields m_fields;
};

} // namespace jotwell
