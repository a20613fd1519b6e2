#include "Services/Input/Dropdown.h"

#include "Services/Input/RowFilter.h"
#include "Services/TagIndexService.h"

#include <algorithm>

namespace jotwell {

namespace {

using Fields = CommandTemplateFields;
using Item = Dropdown::Item;

DropdownItem rowOf(Command command)
{
    return row(command);
}

template <typename T>
DropdownItem rowOf(const T& record)
{
    return record.row();
}

template <typename T>
QList<Item> itemsOf(const QList<T>& rows)
{
    return {rows.begin(), rows.end()};
}

template <typename T>
std::optional<Item> itemOf(const std::optional<T>& selected)
{
    return selected ? std::optional<Item>(*selected) : std::nullopt;
}

template <typename T>
std::optional<T> firstOf(const QList<T>& rows)
{
    return rows.isEmpty() ? std::nullopt : std::optional<T>(rows.first());
}

// What tells rows of a kind apart.

Command keyOf(Command command)
{
    return command;
}

const QUuid& keyOf(const ObsidianTemplate& value)
{
    return value.id;
}

const QString& keyOf(const FolderItem& folder)
{
    return folder.name;
}

const QString& keyOf(const HashtagItem& hashtag)
{
    return hashtag.tag;
}

template <typename T>
std::optional<qsizetype> indexOf(const std::optional<T>& selected, const QList<T>& rows)
{
    if (!selected)
        return std::nullopt;
    const auto isSelected = [&](const T& each) { return keyOf(each) == keyOf(*selected); };
    const auto found = std::ranges::find_if(rows, isSelected);
    return found == rows.end() ? std::nullopt : std::optional(found - rows.begin());
}

// Calls `look` with the rows of the open list and the selected one of them. There may be thousands:
// they aren't copied for it.
template <typename Look>
auto lookAtList(const Fields& fields, Look look)
{
    switch (fields.dropdownType) {
    case DropdownType::command:
        return look(fields.filteredCommands, fields.selectedCommand);
    case DropdownType::noteTemplate:
        return look(fields.filteredTemplates, fields.selectedTemplate);
    case DropdownType::folder:
        return look(fields.filteredFolders, fields.selectedFolder);
    case DropdownType::hashtag:
        return look(fields.filteredHashtags, fields.selectedHashtag);
    case DropdownType::none:
        break;
    }
    return look(QList<Command>(), std::optional<Command>());
}

} // namespace

Dropdown::Dropdown(ObservedFields& fields, const InputServices& services)
    : m_fields(fields), m_tags(services.tags), m_names(services)
{
}

QList<Dropdown::Item> Dropdown::items() const
{
    return lookAtList(m_fields.values(),
                      [](const auto& rows, const auto&) { return itemsOf(rows); });
}

bool Dropdown::isEmpty() const
{
    return lookAtList(m_fields.values(),
                      [](const auto& rows, const auto&) { return rows.isEmpty(); });
}

std::optional<Item> Dropdown::selectedItem() const
{
    return lookAtList(m_fields.values(),
                      [](const auto&, const auto& selected) { return itemOf(selected); });
}

DropdownItem Dropdown::row(const Item& item)
{
    return std::visit([](const auto& actual) { return rowOf(actual); }, item);
}

void Dropdown::updateCommandDropdown(const QString& input)
{
    m_fields.set<&Fields::filteredCommands>(matchingCommands(input));
    if (m_fields->filteredCommands.isEmpty()) {
        close();
        return;
    }
    show(DropdownType::command);
    m_fields.clear<&Fields::selectedTemplate>();
    if (!indexOf(m_fields->selectedCommand, m_fields->filteredCommands))
        m_fields.set<&Fields::selectedCommand>(firstOf(m_fields->filteredCommands));
}

void Dropdown::updateTemplateDropdown(const std::optional<QString>& input)
{
    const ObsidianTemplates all = m_names.enabledTemplates();
    if (!input) {
        m_fields.set<&Fields::filteredTemplates>(all);
        return;
    }
    m_fields.set<&Fields::filteredTemplates>(matchingTemplates(all, searchIn(*input)));
    show(DropdownType::noteTemplate);
    m_fields.clear<&Fields::selectedCommand>();
    if (!indexOf(m_fields->selectedTemplate, m_fields->filteredTemplates))
        m_fields.set<&Fields::selectedTemplate>(firstOf(m_fields->filteredTemplates));
}

void Dropdown::updateFolderDropdown(const std::optional<QString>& input)
{
    const QString search = searchIn(input.value_or(QString()));
    m_fields.set<&Fields::filteredFolders>(matchingFolders(m_names.folderNames(), search));
    show(DropdownType::folder);
    m_fields.clear<&Fields::selectedCommand>();
    if (!indexOf(m_fields->selectedFolder, m_fields->filteredFolders))
        m_fields.set<&Fields::selectedFolder>(firstOf(m_fields->filteredFolders));
}

void Dropdown::updateHashtagDropdown(const QString& input)
{
    m_fields.set<&Fields::filteredHashtags>(
        hashtagRows(m_tags.searchTags(searchIn(input), hashtagRowLimit)));
    if (m_fields->filteredHashtags.isEmpty()) {
        close();
        return;
    }
    show(DropdownType::hashtag);
    m_fields.clear<&Fields::selectedCommand>();
    m_fields.clear<&Fields::selectedTemplate>();
    m_fields.clear<&Fields::selectedFolder>();
    if (!indexOf(m_fields->selectedHashtag, m_fields->filteredHashtags))
        m_fields.set<&Fields::selectedHashtag>(firstOf(m_fields->filteredHashtags));
}

void Dropdown::close()
{
    m_fields.set<&Fields::showDropdown>(false);
    m_fields.set<&Fields::dropdownType>(DropdownType::none);
    m_fields.clear<&Fields::selectedCommand>();
    m_fields.clear<&Fields::selectedTemplate>();
    m_fields.clear<&Fields::selectedFolder>();
    m_fields.clear<&Fields::selectedHashtag>();
    m_fields.clear<&Fields::clickedCommandRange>();
    m_fields.clear<&Fields::clickedTemplateRange>();
    m_fields.clear<&Fields::clickedHashtagRange>();
}

void Dropdown::openCommands(const TextRange& clicked)
{
    m_fields.set<&Fields::clickedCommandRange>(clicked);
    show(DropdownType::command);
    m_fields.set<&Fields::filteredCommands>(QList<Command>(allCommands.begin(), allCommands.end()));
    m_fields.set<&Fields::selectedCommand>(allCommands.front());
    m_fields.clear<&Fields::selectedTemplate>();
    m_fields.clear<&Fields::clickedTemplateRange>();
}

void Dropdown::openFolders(const TextRange& clicked)
{
    m_fields.set<&Fields::clickedTemplateRange>(clicked);
    m_fields.set<&Fields::dropdownType>(DropdownType::folder);
    m_fields.set<&Fields::filteredFolders>(matchingFolders(m_names.folderNames(), QString()));
    m_fields.set<&Fields::selectedFolder>(firstOf(m_fields->filteredFolders));
    m_fields.clear<&Fields::selectedTemplate>();
    showClickedParameters();
}

void Dropdown::openTemplates(const TextRange& clicked)
{
    m_fields.set<&Fields::clickedTemplateRange>(clicked);
    m_fields.set<&Fields::dropdownType>(DropdownType::noteTemplate);
    m_fields.set<&Fields::filteredTemplates>(m_names.enabledTemplates());
    m_fields.set<&Fields::selectedTemplate>(firstOf(m_fields->filteredTemplates));
    m_fields.clear<&Fields::selectedFolder>();
    showClickedParameters();
}

void Dropdown::showClickedParameters()
{
    m_fields.set<&Fields::showDropdown>(true);
    m_fields.clear<&Fields::selectedCommand>();
    m_fields.clear<&Fields::clickedCommandRange>();
}

void Dropdown::openHashtags(const TextRange& clicked)
{
    m_fields.set<&Fields::clickedHashtagRange>(clicked);
    m_fields.set<&Fields::dropdownType>(DropdownType::hashtag);
    m_fields.set<&Fields::filteredHashtags>(
        hashtagRows(m_tags.getAllTagsWithCounts(hashtagRowLimit)));
    if (m_fields->filteredHashtags.isEmpty())
        return;
    m_fields.set<&Fields::selectedHashtag>(m_fields->filteredHashtags.first());
    m_fields.set<&Fields::showDropdown>(true);
    m_fields.clear<&Fields::selectedCommand>();
    m_fields.clear<&Fields::selectedTemplate>();
    m_fields.clear<&Fields::selectedFolder>();
    m_fields.clear<&Fields::clickedCommandRange>();
    m_fields.clear<&Fields::clickedTemplateRange>();
}

std::optional<qsizetype> Dropdown::selectedIndex() const
{
    return lookAtList(m_fields.values(), [](const auto& rows, const auto& selected) {
        return indexOf(selected, rows);
    });
}

bool Dropdown::select(qsizetype index)
{
    return lookAtList(m_fields.values(), [this, index](const auto& rows, const auto&) {
        const bool isThere = index >= 0 && index < rows.size();
        if (isThere)
            storeSelected(rows[index]);
        return isThere;
    });
}

void Dropdown::storeSelected(Command command)
{
    m_fields.set<&Fields::selectedCommand>(command);
}

void Dropdown::storeSelected(const ObsidianTemplate& value)
{
    m_fields.set<&Fields::selectedTemplate>(value);
}

void Dropdown::storeSelected(const FolderItem& folder)
{
    m_fields.set<&Fields::selectedFolder>(folder);
}

void Dropdown::storeSelected(const HashtagItem& hashtag)
{
    m_fields.set<&Fields::selectedHashtag>(hashtag);
}

void Dropdown::show(DropdownType type)
{
    m_fields.set<&Fields::showDropdown>(true);
    m_fields.set<&Fields::dropdownType>(type);
}

} // namespace jotwell
