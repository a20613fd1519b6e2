#pragma once

#include "Platform/Clock.h"

namespace jotwell {

/// Tells a key press of its own from the second report of the same one.
struct HotkeyDeduplication {
    static constexpr std::chrono::milliseconds deduplicationInterval{100};

    /// Of the last accepted press; 1970 if there was none.
    Clock::TimePoint lastTriggerTime;

    /// Whether a press at this time is one of its own; if so it is the last accepted one from now.
    [[nodiscard]] bool accept(Clock::TimePoint now)
    {
        if (now - lastTriggerTime <= deduplicationInterval)
            return false;
        lastTriggerTime = now;
        return true;
    }
};

} // namespace jotwell
