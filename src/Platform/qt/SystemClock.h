#pragma once

#include "Platform/Clock.h"

namespace jotwell {

class SystemClock : public Clock {
public:
    [[nodiscard]] TimePoint now() const override;
};

} // namespace jotwell
