#pragma once

#include "Platform/KeyEvent.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace jotwell {

// How a key combination is written: the symbols ⌃ ⌥ ⌘ ⇧ of its modifiers in this order, then the
// text of its key.

/// The text of the key of that virtual key code; none for keys that have no name.
[[nodiscard]] std::optional<QString> keyStringFromKeyCode(qint64 keyCode);

/// The symbols of the modifier bits that are set; other bits don't count.
[[nodiscard]] QStringList modifierSymbols(quint64 modifiers);

/// All in one: "⌥⌘B".
[[nodiscard]] QString shortcutString(const Hotkey& shortcut);

/// Such a text as a list for key caps: "⌥", "⌘", "B".
[[nodiscard]] QStringList shortcutStringToKeys(const QString& shortcut);

/// The same of what has been recorded so far, in which the key code 0 is none.
[[nodiscard]] QStringList recordedShortcutKeys(const Hotkey& recorded);

/// Whether a press of that key is recorded: Tab and Escape keep their effect, and a key that has no
/// place on the keyboard isn't known by it.
[[nodiscard]] bool isRecordable(int keyCode);

/// Whether what has been recorded can be a hotkey: a key, other than that of code 0, and a
/// modifier.
[[nodiscard]] bool isValidShortcut(const Hotkey& recorded);

} // namespace jotwell
