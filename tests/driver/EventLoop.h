#pragma once

#include <chrono>

class QThreadPool;

namespace jotwell {

// The two ways to let the event loop of this thread run other than by awaiting a task.

void runEventLoop(std::chrono::milliseconds time);

/// Runs until nothing is queued here and nothing works in `background`; timers that aren't due
/// don't count. False if that isn't so in time.
[[nodiscard]] bool drainEventLoop(QThreadPool& background, std::chrono::milliseconds timeOut);

} // namespace jotwell
