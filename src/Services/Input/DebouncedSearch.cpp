#include "Services/Input/DebouncedSearch.h"

#include "Platform/Scheduler.h"
#include "Services/Input/CommandRuns.h"

#include <utility>

namespace jotwell {

DebouncedSearch::DebouncedSearch(const InputServices& services) : m_services(services) {}

void DebouncedSearch::schedule(const QString& query)
{
    cancel();
    m_pending = std::make_shared<std::optional<QString>>(query);
    m_services.scheduler.after(std::chrono::milliseconds(300), lifetimeOf(m_services),
                               [services = m_services, pending = m_pending] {
                                   if (const auto due = std::exchange(*pending, std::nullopt))
                                       startSearch(services, *due);
                               });
}

void DebouncedSearch::cancel()
{
    if (m_pending)
        m_pending->reset(); // the timer runs out with nothing to do
}

std::optional<QString> DebouncedSearch::pendingQuery() const
{
    return m_pending ? *m_pending : std::nullopt;
}

} // namespace jotwell
