#pragma once

#include <QCoroTask>

#include <chrono>

namespace jotwell {

class Scheduler;

// For tasks on the main thread that let time pass.

/// Goes on after `delay`. The scheduler must outlive it.
QCoro::Task<void> sleepFor(Scheduler& scheduler, std::chrono::milliseconds delay);

/// Goes on once the event loop has seen to all that is waiting there now.
QCoro::Task<void> nextTurn();

} // namespace jotwell
