#include "Views/DropdownModel.h"

#include "Platform/Scheduler.h"

#include <algorithm>
#include <utility>

namespace jotwell {

DropdownModel::DropdownModel(CommandTemplateState& state, Scheduler& scheduler, QObject* parent)
    : QAbstractListModel(parent), m_state(state), m_scheduler(scheduler)
{
    connect(&m_state, &CommandTemplateState::changed, this, &DropdownModel::stateChanged);
    connect(&m_state, &CommandTemplateState::scrollToSelectedItem, this,
            &DropdownModel::scrollToSelected);
}

int DropdownModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rowCount;
}

QVariant DropdownModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const DropdownItem row = Dropdown::row(m_rows.item(index.row()));
    switch (role) {
    case displayName:
        return row.displayName;
    case icon:
        return row.icon;
    case description:
        return row.description;
    case isSelected:
        return isSelectedRow(row);
    case iconColor:
        return FloatingDropdown::iconColor(m_dropdownType, isSelectedRow(row));
    case backgroundColor:
        return FloatingDropdown::backgroundColor(m_dropdownType, isSelectedRow(row),
                                                 index.row() == m_hoveredIndex);
    default:
        return {};
    }
}

QHash<int, QByteArray> DropdownModel::roleNames() const
{
    return {{displayName, "displayName"}, {icon, "icon"},
            {description, "description"}, {isSelected, "isSelected"},
            {iconColor, "iconColor"},     {backgroundColor, "backgroundColor"}};
}

bool DropdownModel::isSelectedRow(const DropdownItem& row) const
{
    return m_selectedItem && FloatingDropdown::areItemsEqual(row, *m_selectedItem);
}

void DropdownModel::choose(int row)
{
    if (isRow(row))
        m_state.selectItem(m_rows.item(row));
}

void DropdownModel::hover(int row, bool isHovered)
{
    if (isHovered && isRow(row))
        setHoveredIndex(row);
    else if (!isHovered && row == m_hoveredIndex)
        setHoveredIndex(-1);
}

void DropdownModel::stateChanged(CommandTemplateField field)
{
    using Field = CommandTemplateField;
    if (field != Field::text && field != Field::forceTextUpdate)
        refreshLater();
}

void DropdownModel::scrollToSelected(std::optional<ArrowDirection> direction)
{
    m_hasToScroll = true;
    m_scrollDirection = direction;
    refreshLater();
}

void DropdownModel::refreshLater()
{
    if (!std::exchange(m_isOutdated, true))
        m_scheduler.after({}, this, [this] { refresh(); });
}

void DropdownModel::refresh()
{
    m_isOutdated = false;
    const bool hasToScroll = std::exchange(m_hasToScroll, false);
    const CommandTemplateFields& fields = m_state.fields();
    if (!fields.showDropdown) {
        setShown(false);
        setSelectedItem(std::nullopt);
        return;
    }
    setDropdownType(fields.dropdownType);
    const bool isReplaced = setRows(FloatingDropdownRows(fields));
    setSelectedItem(m_state.selectedItem());
    if (isReplaced)
        emit rowsReplaced();
    setShown(true);
    if (hasToScroll)
        requestScroll(m_scrollDirection);
}

void DropdownModel::setDropdownType(DropdownType type)
{
    if (std::exchange(m_dropdownType, type) == type)
        return;
    emit dropdownTypeChanged();
    emitChanged(0, m_rowCount, {iconColor, backgroundColor});
}

bool DropdownModel::setRows(const FloatingDropdownRows& rows)
{
    if (rows == m_rows)
        return false;
    const int count = static_cast<int>(rows.size());
    const int kept = std::min(m_rowCount, count);
    setRowCount(kept);
    m_rows = rows;
    emitChanged(0, kept, {});
    setRowCount(count);
    return true;
}

void DropdownModel::setRowCount(int count)
{
    if (count > m_rowCount) {
        beginInsertRows({}, m_rowCount, count - 1);
        m_rowCount = count;
        endInsertRows();
    } else if (count < m_rowCount) {
        beginRemoveRows({}, count, m_rowCount - 1);
        m_rowCount = count;
        endRemoveRows();
    }
    if (!isRow(m_hoveredIndex))
        m_hoveredIndex = -1;
}

void DropdownModel::setSelectedItem(const std::optional<Dropdown::Item>& item)
{
    const auto row = item ? std::optional(Dropdown::row(*item)) : std::nullopt;
    const auto index = row ? m_rows.indexOf(*row) : std::nullopt;
    if (std::exchange(m_selectedItem, row) != row)
        emitChanged(0, m_rowCount, {isSelected, iconColor, backgroundColor});
    const int selectedIndex = static_cast<int>(index.value_or(-1));
    if (std::exchange(m_selectedIndex, selectedIndex) != selectedIndex)
        emit selectedIndexChanged();
}

void DropdownModel::setHoveredIndex(int index)
{
    const int before = std::exchange(m_hoveredIndex, index);
    if (before == index)
        return;
    for (const int row : {before, index}) {
        if (isRow(row))
            emitChanged(row, 1, {backgroundColor});
    }
}

void DropdownModel::setShown(bool isShown)
{
    if (m_isShown == isShown)
        return;
    setHoveredIndex(-1);
    m_isShown = isShown;
    emit isShownChanged();
    if (isShown)
        requestScroll(std::nullopt);
}

void DropdownModel::requestScroll(std::optional<ArrowDirection> direction)
{
    if (const auto target = FloatingDropdown::scrollTarget(m_rows, m_selectedItem, direction))
        emit scrollRequested(target->index, target->anchor);
}

void DropdownModel::emitChanged(int first, int count, const QList<int>& roles)
{
    if (count > 0)
        emit dataChanged(index(first), index(first + count - 1), roles);
}

} // namespace jotwell
