#pragma once

#include <chrono>
#include <functional>

class QObject;

namespace jotwell {

/// Runs work later on the main thread. To be called on the main thread.
class Scheduler {
public:
    virtual ~Scheduler() = default;

    /// Runs `work` once, `delay` from now at the earliest and never inside this call, also with a
    /// delay of zero. Work whose `context` has been destroyed meanwhile is dropped.
    virtual void after(std::chrono::milliseconds delay, QObject* context,
                       std::function<void()> work) = 0;

    /// The same for the rest of a task that sleeps: nothing is idle until it has run.
    virtual void resumeAfter(std::chrono::milliseconds delay, QObject* context,
                             std::function<void()> work)
    {
        after(delay, context, std::move(work));
    }
};

} // namespace jotwell
