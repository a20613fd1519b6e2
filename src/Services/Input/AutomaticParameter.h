#pragma once

#include "Models/Command.h"

#include <QString>
#include <QStringView>

namespace jotwell {

// The parameter that a command is given when the text has none. Pure; any thread.

/// What stands behind a command as its parameter: two blanks, "$" and the name.
[[nodiscard]] QString parameterText(const QString& name);

/// Whether the text holds the command and no "$" anywhere, whatever for.
[[nodiscard]] bool needsParameter(const QString& text, Command command);

/// The text with the parameter put behind the command: at its end if the command ends the text,
/// else behind each command that has a blank behind it, else behind each command.
[[nodiscard]] QString withParameter(const QString& text, Command command, const QString& name);

} // namespace jotwell
