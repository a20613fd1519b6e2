#pragma once

#include <QStringList>

#include <optional>

namespace jotwell {

/// What a start says instead of starting.
struct CommandLineAnswer {
    int status = 0; ///< to end with
    QString text;   ///< for standard output, or standard error if the status isn't 0
};

/// The answer to a command line, the program's name first; none where the program is to start.
/// Needs no QCoreApplication, no display and no bus.
[[nodiscard]] std::optional<CommandLineAnswer> answerTo(const QStringList& commandLine);

/// The same for what `main` is given. Says the answer, and gives the status to end with.
[[nodiscard]] std::optional<int> answerCommandLine(int argc, const char* const* argv);

} // namespace jotwell
