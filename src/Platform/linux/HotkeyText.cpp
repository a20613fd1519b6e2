#include "Platform/linux/HotkeyText.h"

#include "Platform/linux/PcKeys.h"

#include <array>

namespace jotwell {

namespace {

struct Modifier {
    quint64 bit;
    const char* trigger;
    const char* word;
};

constexpr std::array modifiers{
    Modifier{ModifierBit::control, "LOGO", "Super"}, Modifier{ModifierBit::command, "CTRL", "Ctrl"},
    Modifier{ModifierBit::option, "ALT", "Alt"}, Modifier{ModifierBit::shift, "SHIFT", "Shift"}};

QString joined(quint64 flags, const char* Modifier::*name, const QString& key)
{
    QString text;
    for (const Modifier& modifier : modifiers) {
        if (flags & modifier.bit)
            text += QLatin1String(modifier.*name) + QLatin1Char('+');
    }
    return text + key;
}

} // namespace

QString triggerOf(const Hotkey& hotkey)
{
    const QString key = keysymNameOf(hotkey.keyCode);
    return key.isEmpty() ? QString() : joined(hotkey.modifiers, &Modifier::trigger, key);
}

QString wordsOf(const Hotkey& hotkey)
{
    QString key = keysymNameOf(hotkey.keyCode);
    if (!key.isEmpty())
        key[0] = key[0].toUpper();
    return joined(hotkey.modifiers, &Modifier::word, key);
}

} // namespace jotwell
