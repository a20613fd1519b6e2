#include "Views/Settings/ShortcutKeys.h"

#include <array>

namespace jotwell {

namespace {

struct Modifier {
    quint64 bit;
    QChar symbol;
};

constexpr std::array modifiersInOrder{
    Modifier{ModifierBit::control, u'\u2303'}, Modifier{ModifierBit::option, u'\u2325'},
    Modifier{ModifierBit::command, u'\u2318'}, Modifier{ModifierBit::shift, u'\u21e7'}};

// By key code; an empty text stands for none.
constexpr std::array keyTexts{
    // 0
    "A", "S", "D", "F", "H", "G", "Z", "X", "C", "V", "",
    // 11
    "B", "Q", "W", "E", "R", "Y", "T",
    // 18
    "1", "2", "3", "4", "6", "5", "=", "9", "7", "-", "8", "0",
    // 30
    "]", "O", "U", "[", "I", "P", "Return",
    // 37
    "L", "J", "'", "K", ";", "\\", ",", "/", "N", "M", ".",
    // 48
    "Tab", "Space", "`", "Delete", "", "Escape",
    // 54
    "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "Clear",
    // 72
    "", "", "", "", "Enter",
    // 77
    "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "", "",
    // 96
    "F5", "F6", "F7", "F3", "F8", "F9", "", "F11", "", "F13", "F16", "F14",
    // 108
    "", "F10", "", "F12", "", "F15",
    // 114
    "Help", "Home", "Page Up", "Delete", "F4", "End", "F2", "Page Down", "F1",
    // 123
    "Left", "Right", "Down", "Up"};
static_assert(keyTexts.size() == 127);

} // namespace

std::optional<QString> keyStringFromKeyCode(qint64 keyCode)
{
    if (keyCode < 0 || keyCode >= static_cast<qint64>(keyTexts.size()))
        return std::nullopt;
    const QLatin1String text(keyTexts.at(static_cast<std::size_t>(keyCode)));
    return text.isEmpty() ? std::nullopt : std::optional<QString>(text);
}

QStringList modifierSymbols(quint64 modifiers)
{
    QStringList symbols;
    for (const Modifier& each : modifiersInOrder) {
        if (modifiers & each.bit)
            symbols.append(each.symbol);
    }
    return symbols;
}

QString shortcutString(const Hotkey& shortcut)
{
    return modifierSymbols(shortcut.modifiers).join(QString()) +
           keyStringFromKeyCode(shortcut.keyCode).value_or(QString());
}

QStringList shortcutStringToKeys(const QString& shortcut)
{
    QStringList keys;
    QString rest = shortcut;
    for (const Modifier& each : modifiersInOrder) {
        if (shortcut.contains(each.symbol))
            keys.append(each.symbol);
        rest.remove(each.symbol);
    }
    if (!rest.isEmpty())
        keys.append(rest);
    return keys;
}

QStringList recordedShortcutKeys(const Hotkey& recorded)
{
    QStringList keys = modifierSymbols(recorded.modifiers);
    if (recorded.keyCode < 1)
        return keys;
    if (const auto text = keyStringFromKeyCode(recorded.keyCode))
        keys.append(*text);
    return keys;
}

bool isRecordable(int keyCode)
{
    constexpr int tab = 48;
    constexpr int escape = 53;
    return keyCode >= 0 && keyCode != tab && keyCode != escape;
}

bool isValidShortcut(const Hotkey& recorded)
{
    return recorded.keyCode >= 1 && (recorded.modifiers & ModifierBit::all) != 0;
}

} // namespace jotwell
