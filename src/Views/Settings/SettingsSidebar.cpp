#include "Views/Settings/SettingsSidebar.h"

namespace jotwell {

namespace {

QString headingOf(int row)
{
    const QList<SidebarEntry>& all = SettingsSidebar::entries();
    const QString& group = all.at(row).group;
    return row > 0 && all.at(row - 1).group == group ? QString() : group;
}

} // namespace

const QList<SidebarEntry>& SettingsSidebar::entries()
{
    const QString general = QStringLiteral("GENERAL");
    static const QList<SidebarEntry> all{
        {QStringLiteral("globalHotkey"), general, QStringLiteral("command.circle.fill"),
         QStringLiteral("Global Hotkey")},
        {QStringLiteral("softwareUpdates"), general, QStringLiteral("arrow.down.circle.fill"),
         QStringLiteral("Updates")},
        {QStringLiteral("other"), general, QStringLiteral("gearshape.circle.fill"),
         QStringLiteral("Other")},
    };
    return all;
}

std::optional<int> SettingsSidebar::rowOf(const QString& id)
{
    for (int row = 0; row < entries().size(); ++row) {
        if (entries().at(row).id == id)
            return row;
    }
    return std::nullopt;
}

int SettingsSidebar::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(entries().size());
}

QVariant SettingsSidebar::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const SidebarEntry& entry = entries().at(index.row());
    switch (role) {
    case entryId:
        return entry.id;
    case heading:
        return headingOf(index.row());
    case symbol:
        return entry.symbol;
    case title:
        return entry.title;
    default:
        return {};
    }
}

QHash<int, QByteArray> SettingsSidebar::roleNames() const
{
    return {{entryId, "entryId"}, {heading, "heading"}, {symbol, "symbol"}, {title, "title"}};
}

} // namespace jotwell
