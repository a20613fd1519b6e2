#include "Views/FloatingDropdownRows.h"

#include <algorithm>

namespace jotwell {

namespace {

using Id = decltype(DropdownItem::id);

bool isId(const QUuid& own, const Id& id)
{
    const auto* const uuid = std::get_if<QUuid>(&id);
    return uuid && *uuid == own;
}

bool isId(const QString& own, const Id& id)
{
    const auto* const string = std::get_if<QString>(&id);
    return string && *string == own;
}

// Without making each row for its identifier alone.

bool hasId(Command command, const Id& id)
{
    return row(command).id == id;
}

bool hasId(const ObsidianTemplate& item, const Id& id)
{
    return isId(item.id, id);
}

bool hasId(const FolderItem& folder, const Id& id)
{
    return isId(folder.name, id);
}

bool hasId(const HashtagItem& hashtag, const Id& id)
{
    return isId(hashtag.tag, id);
}

} // namespace

FloatingDropdownRows::FloatingDropdownRows(const CommandTemplateFields& fields)
{
    switch (fields.dropdownType) {
    case DropdownType::command:
        m_rows = fields.filteredCommands;
        break;
    case DropdownType::noteTemplate:
        m_rows = fields.filteredTemplates;
        break;
    case DropdownType::folder:
        m_rows = fields.filteredFolders;
        break;
    case DropdownType::hashtag:
        m_rows = fields.filteredHashtags;
        break;
    case DropdownType::none:
        break;
    }
}

qsizetype FloatingDropdownRows::size() const
{
    return std::visit([](const auto& rows) { return rows.size(); }, m_rows);
}

Dropdown::Item FloatingDropdownRows::item(qsizetype index) const
{
    return std::visit([index](const auto& rows) -> Dropdown::Item { return rows.at(index); },
                      m_rows);
}

std::optional<qsizetype> FloatingDropdownRows::indexOf(const DropdownItem& row) const
{
    const auto find = [&row](const auto& rows) -> std::optional<qsizetype> {
        const auto found =
            std::ranges::find_if(rows, [&row](const auto& each) { return hasId(each, row.id); });
        return found == rows.end() ? std::nullopt : std::optional(found - rows.begin());
    };
    return std::visit(find, m_rows);
}

} // namespace jotwell
