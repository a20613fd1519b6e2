#pragma once

#include "Services/CommandTemplateManager.h"
#include "Views/FloatingDropdown.h"
#include "Views/FloatingDropdownRows.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace jotwell {

/// The rows of the open completion list, the selected one of them and the one under the pointer.
/// Follows the input state once in a turn of the event loop, however many fields have changed in
/// it. A row is known by its place: other rows take the places of those before. Main thread; the
/// state and the scheduler outlive it.
class DropdownModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the state of the capture window")

    Q_PROPERTY(bool isShown READ isShown NOTIFY isShownChanged)
    Q_PROPERTY(int selectedIndex READ selectedIndex NOTIFY selectedIndexChanged)
    Q_PROPERTY(bool hasSymbols READ hasSymbols NOTIFY dropdownTypeChanged)

public:
    /// Colours by their names, as `FloatingDropdown` has them.
    enum Role {
        displayName = Qt::UserRole,
        icon,
        description,
        isSelected,
        iconColor,
        backgroundColor
    };

    DropdownModel(CommandTemplateState& state, Scheduler& scheduler, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// The rows are those of an open list. A list that has been closed leaves its rows behind.
    [[nodiscard]] bool isShown() const { return m_isShown; }
    /// -1 for none.
    [[nodiscard]] int selectedIndex() const { return m_selectedIndex; }
    [[nodiscard]] DropdownType dropdownType() const { return m_dropdownType; }
    [[nodiscard]] bool hasSymbols() const { return FloatingDropdown::hasSymbols(m_dropdownType); }

    /// The user has chosen that row.
    Q_INVOKABLE void choose(int row);
    /// The pointer has come to that row, or has left it.
    Q_INVOKABLE void hover(int row, bool isHovered);

signals:
    void isShownChanged();
    void selectedIndexChanged();
    void dropdownTypeChanged();
    /// Other rows than before, of the same list or of another; which is selected is known.
    void rowsReplaced();
    void scrollRequested(int index, jotwell::ScrollAnchor::Anchor anchor);

private:
    void stateChanged(CommandTemplateField field);
    void scrollToSelected(std::optional<ArrowDirection> direction);
    void refreshLater();
    void refresh();
    void setDropdownType(DropdownType type);
    [[nodiscard]] bool setRows(const FloatingDropdownRows& rows);
    void setRowCount(int count);
    void setSelectedItem(const std::optional<Dropdown::Item>& item);
    void setHoveredIndex(int index);
    void setShown(bool isShown);
    void requestScroll(std::optional<ArrowDirection> direction);
    [[nodiscard]] bool isRow(int row) const { return row >= 0 && row < m_rowCount; }
    [[nodiscard]] bool isSelectedRow(const DropdownItem& row) const;
    void emitChanged(int first, int count, const QList<int>& roles);

    CommandTemplateState& m_state;
    Scheduler& m_scheduler;
    FloatingDropdownRows m_rows;
    int m_rowCount = 0; // may lag behind the rows for as long as they are replaced
    std::optional<DropdownItem> m_selectedItem;
    int m_selectedIndex = -1;
    int m_hoveredIndex = -1;
    DropdownType m_dropdownType = DropdownType::none;
    bool m_isShown = false;
    bool m_isOutdated = false;
    bool m_hasToScroll = false;
    std::optional<ArrowDirection> m_scrollDirection;
};

} // namespace jotwell
