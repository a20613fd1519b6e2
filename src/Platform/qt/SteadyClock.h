#pragma once

#include "Platform/Clock.h"

namespace jotwell {

/// The time of day as it was at the start and has gone on since, however often the machine's clock
/// has been set meanwhile.
class SteadyClock : public Clock {
public:
    [[nodiscard]] TimePoint now() const override
    {
        const auto passed = std::chrono::steady_clock::now() - m_steadyStart;
        return m_start + std::chrono::duration_cast<TimePoint::duration>(passed);
    }

private:
    const TimePoint m_start = std::chrono::system_clock::now();
    const std::chrono::steady_clock::time_point m_steadyStart = std::chrono::steady_clock::now();
};

} // namespace jotwell
