#include "Models/Command.h"

#include <algorithm>

namespace jotwell {

QString rawValue(Command command)
{
    switch (command) {
    case Command::newNote:
        return QStringLiteral("/new_note");
    case Command::searchNotes:
        return QStringLiteral("/search_notes");
    case Command::recentNotes:
        return QStringLiteral("/recent");
    }
    Q_UNREACHABLE();
}

std::optional<Command> commandFromRawValue(QStringView text)
{
    const auto found = std::find_if(allCommands.begin(), allCommands.end(),
                                    [text](Command each) { return rawValue(each) == text; });
    return found == allCommands.end() ? std::nullopt : std::optional(*found);
}

DropdownItem row(Command command)
{
    const QString name = rawValue(command);
    switch (command) {
    case Command::newNote:
        return {name, name, QStringLiteral("📝"), QStringLiteral("Create new note")};
    case Command::searchNotes:
        return {name, name, QStringLiteral("🔍"), QStringLiteral("Search notes in Obsidian")};
    case Command::recentNotes:
        return {name, name, QStringLiteral("🕐"), QStringLiteral("Show recent notes")};
    }
    Q_UNREACHABLE();
}

} // namespace jotwell
