#include "Platform/qt/SystemClock.h"

namespace jotwell {

Clock::TimePoint SystemClock::now() const
{
    return std::chrono::system_clock::now();
}

} // namespace jotwell
