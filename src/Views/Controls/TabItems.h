#pragma once

#include "Views/Controls/TabItem.h"

#include <QAbstractListModel>

namespace jotwell {

/// Many tabs for a CustomTabsView, one TabItem in a row. Main thread.
class TabItems : public QAbstractListModel {
    Q_OBJECT
    QML_ANONYMOUS

public:
    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] const QList<TabItem>& items() const { return m_items; }
    /// Rows that stay are told to have changed, not to have gone: they are found by their ids.
    void setItems(const QList<TabItem>& items);

    /// -1 for an id that isn't there.
    [[nodiscard]] int rowOf(const QUuid& id) const;
    Q_INVOKABLE int rowOfId(const QString& id) const { return rowOf(QUuid::fromString(id)); }
    /// Empty for a row that isn't there.
    Q_INVOKABLE QString idOfRow(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    void change(int row, const TabItem& item);

    QList<TabItem> m_items;
};

} // namespace jotwell
