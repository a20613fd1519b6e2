#include "Views/WindowKeys.h"

namespace jotwell {

namespace {

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

bool isCommandHeld(Qt::KeyboardModifiers modifiers)
{
    constexpr Qt::KeyboardModifiers allOthers =
        Qt::ShiftModifier | Qt::MetaModifier | Qt::AltModifier;
    // A character of the third level is being typed with AltGr.
    if (modifiers.testFlag(Qt::GroupSwitchModifier))
        return false;
    return modifiers.testFlag(Qt::ControlModifier) && (modifiers & allOthers) != allOthers;
}

} // namespace

WindowKeyAction actionFor(const WindowKey& key)
{
    if (key.key == Qt::Key_Escape)
        return ToggleWindow();
    const auto command = key.keyCode ? commandAt(*key.keyCode) : std::nullopt;
    if (command && isCommandHeld(key.modifiers))
        return InsertCommand{*command};
    return std::monostate();
}

} // namespace jotwell
