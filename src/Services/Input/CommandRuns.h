#pragma once

#include "Models/Command.h"
#include "Services/Input/InputServices.h"

#include <QObject>
#include <QString>

namespace jotwell {

// Runs of commands for whose outcome nobody waits. They live as long as the services, whoever
// started them. Main thread.

/// Something that is there as long as the services are.
[[nodiscard]] QObject* lifetimeOf(const InputServices& services);

/// Runs the command with the text in a later turn of the event loop.
void runLater(const InputServices& services, Command command, const QString& text);

/// Begins the search at once.
void startSearch(const InputServices& services, const QString& query);

} // namespace jotwell
