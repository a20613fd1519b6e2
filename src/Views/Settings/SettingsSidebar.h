#pragma once

#include "Models/Command.h"

#include <QAbstractListModel>
#include <QList>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace jotwell {

/// An entry of the sidebar. Its group is written over the first one of it.
struct SidebarEntry {
    QString id;
    QString group;
    QString symbol; ///< a symbol name, or the emoji itself for commands
    QString title;
    QString description; ///< what a command does, empty for the others
    std::optional<Command> command;

    bool operator==(const SidebarEntry&) const = default;
};

/// The rows of the sidebar: the screens that there are, in groups. Never changes; main thread.
class SettingsSidebar : public QAbstractListModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(SettingsSidebarState)
    QML_UNCREATABLE("belongs to the settings window")

public:
    /// `heading` is the name of the group in its first row, and empty in the others.
    enum Role { entryId = Qt::UserRole, heading, symbol, title, description };

    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] static const QList<SidebarEntry>& entries();
    /// The row of that entry; none for an id that isn't there.
    [[nodiscard]] static std::optional<int> rowOf(const QString& id);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
};

} // namespace jotwell
