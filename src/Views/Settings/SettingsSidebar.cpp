#include "Views/Settings/SettingsSidebar.h"

namespace jotwell {

namespace {

QString headingOf(int row)
{
    const QList<SidebarEntry>& all = SettingsSidebar::entries();
    const QString& group = all.at(row).group;
    return row > 0 && all.at(row - 1).group == group ? QString() : group;
}

SidebarEntry general(const char* id, const char* symbol, const char* title)
{
    return {QString::fromLatin1(id),
            QStringLiteral("GENERAL"),
            QString::fromLatin1(symbol),
            QString::fromLatin1(title),
            QString(),
            std::nullopt};
}

QList<SidebarEntry> makeEntries()
{
    QList<SidebarEntry> entries{
        general("globalHotkey", "command.circle.fill", "Global Hotkey"),
        general("obsidianVault", "folder.circle.fill", "Obsidian Vault"),
        general("softwareUpdates", "arrow.down.circle.fill", "Updates"),
        general("other", "gearshape.circle.fill", "Other"),
    };
    for (const Command command : allCommands) {
        const DropdownItem item = row(command);
        entries.append({rawValue(command), QStringLiteral("COMMANDS"), item.icon, item.displayName,
                        item.description, command});
    }
    return entries;
}

} // namespace

const QList<SidebarEntry>& SettingsSidebar::entries()
{
    static const QList<SidebarEntry> all = makeEntries();
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
    case description:
        return entry.description;
    default:
        return {};
    }
}

QHash<int, QByteArray> SettingsSidebar::roleNames() const
{
    return {{entryId, "entryId"},
            {heading, "heading"},
            {symbol, "symbol"},
            {title, "title"},
            {description, "description"}};
}

} // namespace jotwell
