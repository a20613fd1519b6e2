#include "Views/Controls/TabItems.h"

#include <algorithm>

namespace jotwell {

namespace {

constexpr int itemRole = Qt::UserRole;

bool isSame(const TabItem& left, const TabItem& right)
{
    return left.id == right.id;
}

} // namespace

// What lies between the rows that stay at both ends is taken out and put in anew.
void TabItems::setItems(const QList<TabItem>& items)
{
    const auto [firstGone, firstNew] =
        std::mismatch(m_items.begin(), m_items.end(), items.begin(), items.end(), isSame);
    const auto start = static_cast<int>(firstGone - m_items.begin());
    const auto [lastGone, lastNew] =
        std::mismatch(m_items.rbegin(), std::make_reverse_iterator(firstGone), items.rbegin(),
                      std::make_reverse_iterator(firstNew), isSame);
    const auto end = static_cast<int>(lastGone - m_items.rbegin());
    const int gone = static_cast<int>(m_items.size()) - start - end;
    const int added = static_cast<int>(items.size()) - start - end;
    if (gone > 0) {
        beginRemoveRows({}, start, start + gone - 1);
        m_items.remove(start, gone);
        endRemoveRows();
    }
    if (added > 0) {
        beginInsertRows({}, start, start + added - 1);
        m_items = m_items.first(start) + items.sliced(start, added) + m_items.sliced(start);
        endInsertRows();
    }
    for (int row = 0; row < items.size(); ++row)
        change(row, items.at(row));
}

void TabItems::change(int row, const TabItem& item)
{
    if (m_items.at(row) == item)
        return;
    m_items[row] = item;
    emit dataChanged(index(row), index(row));
}

int TabItems::rowOf(const QUuid& id) const
{
    const auto found = std::find_if(m_items.begin(), m_items.end(),
                                    [&id](const TabItem& each) { return each.id == id; });
    return found == m_items.end() ? -1 : static_cast<int>(found - m_items.begin());
}

QString TabItems::idOfRow(int row) const
{
    return row < 0 || row >= m_items.size() ? QString() : m_items.at(row).idText();
}

int TabItems::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_items.size());
}

QVariant TabItems::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || role != itemRole)
        return {};
    return QVariant::fromValue(m_items.at(index.row()));
}

QHash<int, QByteArray> TabItems::roleNames() const
{
    return {{itemRole, "modelData"}};
}

} // namespace jotwell
