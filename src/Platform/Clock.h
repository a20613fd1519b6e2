#pragma once

#include <chrono>

namespace jotwell {

/// The wall clock of the machine. May be asked from any thread.
class Clock {
public:
    using TimePoint = std::chrono::system_clock::time_point;

    virtual ~Clock() = default;
    [[nodiscard]] virtual TimePoint now() const = 0;
};

} // namespace jotwell
