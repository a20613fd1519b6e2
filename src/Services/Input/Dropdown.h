#pragma once

#include "Models/DropdownItem.h"
#include "Services/Input/InputNames.h"
#include "Services/Input/ObservedFields.h"

#include <QList>
#include <QString>

#include <optional>
#include <variant>

namespace jotwell {

class TagIndexService;

/// The completion list of the input state: which one is open, its rows, and the selected one. Works
/// on the state's fields. Main thread; owned by the state.
class Dropdown {
public:
    /// A row of any of the lists.
    using Item = std::variant<Command, ObsidianTemplate, FolderItem, HashtagItem>;

    Dropdown(ObservedFields& fields, const InputServices& services);

    [[nodiscard]] const InputNames& names() const { return m_names; }

    /// The rows of the open list; none if no list is open.
    [[nodiscard]] QList<Item> items() const;
    [[nodiscard]] bool isEmpty() const;
    [[nodiscard]] std::optional<Item> selectedItem() const;
    /// What an item shows.
    [[nodiscard]] static DropdownItem row(const Item& item);

    // Each opens its list with the rows that fit what is being typed, and keeps the selected row as
    // long as it is among them. The lists of commands and of tags close if none fits.

    void updateCommandDropdown(const QString& input);
    /// Opens nothing without an input.
    void updateTemplateDropdown(const std::optional<QString>& input);
    /// Opens the whole list without an input.
    void updateFolderDropdown(const std::optional<QString>& input);
    void updateHashtagDropdown(const QString& input);
    /// Closes the list, and forgets which token was clicked.
    void close();

    // Each opens the list of everything that may stand in place of a clicked token.

    void openCommands(const TextRange& clicked);
    void openTemplates(const TextRange& clicked);
    /// Folders are put in place of the same tokens as templates.
    void openFolders(const TextRange& clicked);
    /// Opens nothing if there are no tags.
    void openHashtags(const TextRange& clicked);

    /// The place of the selected row in the list.
    [[nodiscard]] std::optional<qsizetype> selectedIndex() const;
    /// Selects a row; false if it isn't there.
    bool select(qsizetype index);

    // Each stores a row in the field of its kind.

    void storeSelected(Command command);
    void storeSelected(const ObsidianTemplate& value);
    void storeSelected(const FolderItem& folder);
    void storeSelected(const HashtagItem& hashtag);

private:
    void show(DropdownType type);
    void showClickedParameters();

    ObservedFields& m_fields;
    TagIndexService& m_tags;
    InputNames m_names;
};

} // namespace jotwell
