#include "Views/WindowKeys.h"

#include <optional>

namespace jotwell {

namespace {

constexpr int escape = 53;

// By place, as in many layouts the digits of that row need Shift or are none at all.
std::optional<Command> commandAt(int keyCode)
{
    switch (keyCode) {
    case 18:
        return Command::newNote;
    case 19:
        return Command::searchNotes;
    case 20:
        return Command::recentNotes;
    default:
        return std::nullopt;
    }
}

bool isCommandHeld(quint64 flags)
{
    constexpr quint64 allOthers = ModifierBit::shift | ModifierBit::control | ModifierBit::option;
    return (flags & ModifierBit::command) != 0 && (flags & allOthers) != allOthers;
}

} // namespace

WindowKeyAction actionFor(const KeyEvent& event, const Hotkey& hotkey, bool captureWindowIsKey)
{
    if (event.type != KeyEvent::keyDown)
        return std::monostate();
    if (event.keyCode == escape && captureWindowIsKey)
        return ToggleWindow();
    if (event.keyCode == hotkey.keyCode && (event.flags & ModifierBit::all) == hotkey.modifiers)
        return ToggleWindow();
    const auto command = commandAt(event.keyCode);
    if (command && captureWindowIsKey && isCommandHeld(event.flags))
        return InsertCommand{*command};
    return std::monostate();
}

} // namespace jotwell
