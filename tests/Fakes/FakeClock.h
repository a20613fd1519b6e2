#pragma once

#include "Platform/Clock.h"

namespace jotwell {

/// A clock that stands where it is put and ticks only when told to.
class FakeClock : public Clock {
public:
    /// 5 March 2024, 14:46:07 UTC.
    static constexpr std::chrono::seconds usualTime{1709649967};

    [[nodiscard]] TimePoint now() const override { return m_now; }
    void set(TimePoint now) { m_now = now; }
    void advance(std::chrono::nanoseconds by)
    {
        m_now += std::chrono::duration_cast<TimePoint::duration>(by);
    }

private:
    TimePoint m_now{usualTime};
};

} // namespace jotwell
