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

// Whether the selected row is still there, by what tells rows apart.
template <typename T, typename Key>
bool isListed(const std::optional<T>& selected, const QList<T>& rows, Key key)
{
    return selected && std::ranges::find(rows, std::invoke(key, *selected), key) != rows.end();
}

} // namespace

Dropdown::Dropdown(ObservedFields& fields, const InputServices& services)
    : m_fields(fields), m_tags(services.tags), m_names(services)
{
}

QList<Dropdown::Item> Dropdown::items() const
{
    switch (m_fields->dropdownType) {
    case DropdownType::command:
        return itemsOf(m_fields->filteredCommands);
    case DropdownType::noteTemplate:
        return itemsOf(m_fields->filteredTemplates);
    case DropdownType::folder:
        return itemsOf(m_fields->filteredFolders);
    case DropdownType::hashtag:
        return itemsOf(m_fields->filteredHashtags);
    case DropdownType::none:
        break;
    }
    return {};
}

std::optional<Item> Dropdown::selectedItem() const
{
    switch (m_fields->dropdownType) {
    case DropdownType::command:
        return itemOf(m_fields->selectedCommand);
    case DropdownType::noteTemplate:
        return itemOf(m_fields->selectedTemplate);
    case DropdownType::folder:
        return itemOf(m_fields->selectedFolder);
    case DropdownType::hashtag:
        return itemOf(m_fields->selectedHashtag);
    case DropdownType::none:
        break;
    }
    return std::nullopt;
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
    if (!isListed(m_fields->selectedCommand, m_fields->filteredCommands, std::identity()))
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
    if (!isListed(m_fields->selectedTemplate, m_fields->filteredTemplates, &ObsidianTemplate::id))
        m_fields.set<&Fields::selectedTemplate>(firstOf(m_fields->filteredTemplates));
}

void Dropdown::updateFolderDropdown(const std::optional<QString>& input)
{
    const QString search = searchIn(input.value_or(QString()));
    m_fields.set<&Fields::filteredFolders>(matchingFolders(m_names.folderNames(), search));
    show(DropdownType::folder);
    m_fields.clear<&Fields::selectedCommand>();
    if (!isListed(m_fields->selectedFolder, m_fields->filteredFolders, &FolderItem::name))
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
    if (!isListed(m_fields->selectedHashtag, m_fields->filteredHashtags, &HashtagItem::tag))
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
    const auto selected = selectedItem();
    if (!selected)
        return std::nullopt;
    const QList<Item> all = items();
    const auto found =
        std::ranges::find(all, row(*selected).id, [](const Item& each) { return row(each).id; });
    return found == all.end() ? std::nullopt : std::optional(found - all.begin());
}

bool Dropdown::select(qsizetype index)
{
    const QList<Item> all = items();
    if (index < 0 || index >= all.size())
        return false;
    const auto store = [this](const auto& row) { storeSelected(row); };
    std::visit(store, all[index]);
    return true;
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
