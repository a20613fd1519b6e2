#pragma once

#include "Platform/Scheduler.h"

namespace jotwell {

/// Schedules on the event loop of the main thread.
class QtScheduler : public Scheduler {
public:
    void after(std::chrono::milliseconds delay, QObject* context,
               std::function<void()> work) override;
};

} // namespace jotwell
