#include "Services/Input/CommandRuns.h"

#include "Platform/Scheduler.h"
#include "Services/CommandService.h"
#include "Services/TagIndexService.h"

#include <QCoroTask>

namespace jotwell {

QObject* lifetimeOf(const InputServices& services)
{
    return &services.tags;
}

void runLater(const InputServices& services, Command command, const QString& text)
{
    services.scheduler.after(std::chrono::milliseconds(0), lifetimeOf(services),
                             [services, command, text] {
                                 QCoro::connect(services.commands.executeCommand(command, text),
                                                lifetimeOf(services), [](bool) {});
                             });
}

void startSearch(const InputServices& services, const QString& query)
{
    QCoro::connect(services.commands.performSearch(query), lifetimeOf(services), [] {});
}

} // namespace jotwell
