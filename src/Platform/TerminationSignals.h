#pragma once

#include <functional>

namespace jotwell {

/// The operating system's requests to end (SIGTERM, SIGINT, SIGHUP) as calls on the main thread.
class TerminationSignals {
public:
    virtual ~TerminationSignals() = default;

    /// Calls `requested` for each request from now on, instead of ending the process at once.
    virtual void listen(std::function<void()> requested) = 0;
};

} // namespace jotwell
