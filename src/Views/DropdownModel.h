#pragma once

#include "Services/CommandTemplateManager.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

namespace jotwell {

/// The rows of the open completion list and the selected one of them. Follows the input state once
/// in a turn of the event loop, however many fields have changed in it. Main thread; the state and
/// the scheduler outlive it.
class DropdownModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the state of the capture window")

    Q_PROPERTY(int selectedIndex READ selectedIndex NOTIFY selectedIndexChanged)
    Q_PROPERTY(bool hasSymbols READ hasSymbols NOTIFY hasSymbolsChanged)

public:
    enum Role { displayName = Qt::UserRole, icon, description };

    DropdownModel(CommandTemplateState& state, Scheduler& scheduler, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    /// -1 for none.
    [[nodiscard]] int selectedIndex() const { return m_selectedIndex; }
    /// The icons are names of symbols, not texts.
    [[nodiscard]] bool hasSymbols() const { return m_hasSymbols; }

    /// The user has chosen that row.
    Q_INVOKABLE void choose(int row);

signals:
    void selectedIndexChanged();
    void hasSymbolsChanged();

private:
    void stateChanged(CommandTemplateField field);
    void refresh();
    void setRows(QList<CommandTemplateState::Item> rows);
    void setSelectedIndex(int index);
    [[nodiscard]] int indexOf(const CommandTemplateState::Item& item) const;

    CommandTemplateState& m_state;
    Scheduler& m_scheduler;
    QList<CommandTemplateState::Item> m_rows;
    int m_selectedIndex = -1;
    bool m_hasSymbols = false;
    bool m_isOutdated = false;
};

} // namespace jotwell
