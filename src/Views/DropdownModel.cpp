#include "Views/DropdownModel.h"

#include "Platform/Scheduler.h"

#include <algorithm>
#include <utility>

namespace jotwell {

DropdownModel::DropdownModel(CommandTemplateState& state, Scheduler& scheduler, QObject* parent)
    : QAbstractListModel(parent), m_state(state), m_scheduler(scheduler)
{
    connect(&m_state, &CommandTemplateState::changed, this, &DropdownModel::stateChanged);
}

int DropdownModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant DropdownModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const DropdownItem row = Dropdown::row(m_rows.at(index.row()));
    switch (role) {
    case displayName:
        return row.displayName;
    case icon:
        return row.icon;
    case description:
        return row.description;
    default:
        return {};
    }
}

QHash<int, QByteArray> DropdownModel::roleNames() const
{
    return {{displayName, "displayName"}, {icon, "icon"}, {description, "description"}};
}

void DropdownModel::choose(int row)
{
    if (row < 0 || row >= m_rows.size())
        return;
    const CommandTemplateState::Item item = m_rows.at(row);
    m_state.selectItem(item);
}

void DropdownModel::stateChanged(CommandTemplateField field)
{
    using Field = CommandTemplateField;
    if (field == Field::text || field == Field::forceTextUpdate)
        return;
    if (!std::exchange(m_isOutdated, true))
        m_scheduler.after({}, this, [this] { refresh(); });
}

void DropdownModel::refresh()
{
    m_isOutdated = false;
    // A list that closes keeps its rows, so that it can leave the screen as it was.
    if (m_state.fields().showDropdown)
        setRows(m_state.dropdownItems());
    const auto selected = m_state.selectedItem();
    setSelectedIndex(selected ? indexOf(*selected) : -1);
}

void DropdownModel::setRows(QList<CommandTemplateState::Item> rows)
{
    if (rows == m_rows)
        return;
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
    const bool hasSymbols = m_state.fields().dropdownType != DropdownType::command;
    if (std::exchange(m_hasSymbols, hasSymbols) != hasSymbols)
        emit hasSymbolsChanged();
}

void DropdownModel::setSelectedIndex(int index)
{
    // Also for the same index: a model that was reset has lost it in the view.
    m_selectedIndex = index;
    emit selectedIndexChanged();
}

int DropdownModel::indexOf(const CommandTemplateState::Item& item) const
{
    const auto id = Dropdown::row(item).id;
    const auto found = std::find_if(m_rows.begin(), m_rows.end(), [&id](const auto& each) {
        return Dropdown::row(each).id == id;
    });
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

} // namespace jotwell
