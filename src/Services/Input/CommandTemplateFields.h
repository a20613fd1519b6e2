#pragma once

#include "Models/Command.h"
#include "Models/DropdownType.h"
#include "Models/FolderItem.h"
#include "Models/HashtagItem.h"
#include "Models/ObsidianTemplate.h"
#include "Support/TextUnits.h"

#include <QList>
#include <QString>

#include <optional>

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

enum class CommandTemplateField {
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

/// The name of a member of `CommandTemplateFields`.
template <auto member>
extern const CommandTemplateField fieldOf;
template <>
inline constexpr auto fieldOf<&CommandTemplateFields::showDropdown> =
    CommandTemplateField::showDropdown;
template <>
inline constexpr auto fieldOf<&CommandTemplateFields::dropdownType> =
    CommandTemplateField::dropdownType;
template <>
inline constexpr auto fieldOf<&CommandTemplateFields::selectedCommand> =
    CommandTemplateField::selectedCommand;
template <>
inline constexpr auto fieldOf<&CommandTemplateFields::selectedTemplate> =
    CommandTemplateField::selectedTemplate;
template <>
inline constexpr auto fieldOf<&CommandTemplateFields::filteredCommands> =
    CommandTemplateField::filteredCommands;
template <>
inline constexpr auto fieldOf<&CommandTemplateFields::filteredTemplates> =
    CommandTemplateField::filteredTemplates;
template <>
inline constexpr auto fieldOf<&CommandTemplateFields::filteredFolders> =
    CommandTemplateField::filteredFolders;
template <>
inline constexpr auto fieldOf<&CommandTemplateFields::filteredHashtags> =
    CommandTemplateField::filteredHashtags;
template <>
inline constexpr auto fieldOf<&CommandTemplateFields::clickedCommandRange> =
    CommandTemplateField::clickedCommandRange;
template <>
inline constexpr auto fieldOf<&CommandTemplateFields::clickedTemplateRange> =
    CommandTemplateField::clickedTemplateRange;
template <>
inline constexpr auto fieldOf<&CommandTemplateFields::clickedHashtagRange> =
    CommandTemplateField::clickedHashtagRange;
template <>
inline constexpr auto fieldOf<&CommandTemplateFields::currentTemplate> =
    CommandTemplateField::currentTemplate;
template <>
inline constexpr auto fieldOf<&CommandTemplateFields::currentFolderName> =
    CommandTemplateField::currentFolderName;
template <>
inline constexpr auto fieldOf<&CommandTemplateFields::selectedHashtag> =
    CommandTemplateField::selectedHashtag;
template <>
inline constexpr auto fieldOf<&CommandTemplateFields::text> = CommandTemplateField::text;
template <>
inline constexpr auto fieldOf<&CommandTemplateFields::forceTextUpdate> =
    CommandTemplateField::forceTextUpdate;
template <>
inline constexpr auto fieldOf<&CommandTemplateFields::selectedFolder> =
    CommandTemplateField::selectedFolder;

} // namespace jotwell
