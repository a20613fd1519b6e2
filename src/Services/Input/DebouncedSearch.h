#pragma once

#include "Services/Input/InputServices.h"

#include <QString>

#include <memory>
#include <optional>

namespace jotwell {

/// A search that waits until nothing has been typed for 0.3 seconds. At most one waits; it runs
/// also if this object is gone by then. Main thread; the services outlive it.
class DebouncedSearch {
public:
    explicit DebouncedSearch(const InputServices& services);

    /// Lets a search for `query` wait in place of the one that waits now.
    void schedule(const QString& query);
    void cancel();

    /// What the waiting search will look for.
    [[nodiscard]] std::optional<QString> pendingQuery() const;

private:
    InputServices m_services;
    std::shared_ptr<std::optional<QString>> m_pending; ///< emptied when it isn't to run any more
};

} // namespace jotwell
