#pragma once

#include "Models/Command.h"

#include <QString>

#include <optional>

namespace jotwell {

// What a command takes out of the raw text of the capture window. Pure; any thread.

/// Whether the command's raw value stands anywhere in the text.
[[nodiscard]] bool containsCommand(QStringView text, Command command);

/// The first command, in the order of the commands, whose raw value the text contains.
[[nodiscard]] std::optional<Command> findCommand(QStringView text);

/// The name of a template behind the first "$". Word characters, blanks, line ends and hyphens all
/// count to it, so further words behind the name make another one.
[[nodiscard]] std::optional<QString> templateNameIn(QStringView text);

/// The name of a folder behind the first "$", by the same rule.
[[nodiscard]] std::optional<QString> folderNameIn(QStringView text);

/// What is to be searched for: the text without any "/search_notes" and without the blanks and line
/// ends around it.
[[nodiscard]] QString searchQueryIn(QStringView text);

} // namespace jotwell
