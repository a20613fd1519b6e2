#pragma once

#include <chrono>
#include <functional>

namespace jotwell {

// The two ways to let the event loop of this thread run other than by awaiting a task.

void runEventLoop(std::chrono::milliseconds time);

/// Runs until nothing is queued here and `isWorking` says no; timers that aren't due don't count.
/// False if that isn't so in time.
[[nodiscard]] bool drainEventLoop(const std::function<bool()>& isWorking,
                                  std::chrono::milliseconds timeOut);

} // namespace jotwell
