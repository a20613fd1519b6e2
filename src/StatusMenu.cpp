#include "StatusMenu.h"

#include <utility>

namespace jotwell {

std::optional<QString> getKeyEquivalent(qint64 keyCode)
{
    // By key code; a dot stands for none.
    constexpr QLatin1String table("asdfhgzxcv.bqweryt123465.97.80.ou.ip.lj.k....nm.. ");
    if (keyCode < 0 || keyCode >= table.size() || table[keyCode] == QLatin1Char('.'))
        return std::nullopt;
    return QString(table[keyCode]);
}

std::vector<MenuEntry> statusMenu(const Hotkey& hotkey, StatusMenuActions actions,
                                  MenuEntry updateItem)
{
    std::vector<MenuEntry> entries(7); // the others are separators
    entries[0] = {QStringLiteral("Open"), std::move(actions.open),
                  getKeyEquivalent(hotkey.keyCode).value_or(QString()), hotkey.modifiers, true};
    entries[2].title = QStringLiteral("Settings");
    entries[2].action = std::move(actions.showSettings);
    entries[4] = std::move(updateItem);
    entries[6].title = QStringLiteral("Quit");
    entries[6].action = std::move(actions.quit);
    entries[6].keyEquivalent = QStringLiteral("q");
    return entries;
}

} // namespace jotwell
