#pragma once

#include "Models/DropdownItem.h"

#include <array>
#include <optional>

namespace jotwell {

/// The commands of the input language, in the order in which they are looked for and listed.
enum class Command { newNote, searchNotes, recentNotes };

inline constexpr std::array allCommands{Command::newNote, Command::searchNotes,
                                        Command::recentNotes};

/// What the user types for it, "/new_note".
[[nodiscard]] QString rawValue(Command command);

/// Takes the exact raw value; nothing for any other text.
[[nodiscard]] std::optional<Command> commandFromRawValue(QStringView text);

[[nodiscard]] DropdownItem row(Command command);

} // namespace jotwell
