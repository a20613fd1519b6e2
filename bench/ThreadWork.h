#pragma once

#include <cstdint>

#include <time.h>

namespace jotwell::bench {

/// What this thread has worked so far, in nanoseconds, without what it has waited for a core.
[[nodiscard]] inline std::int64_t threadWork()
{
    timespec time;
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return time.tv_sec * 1'000'000'000 + time.tv_nsec;
}

} // namespace jotwell::bench
